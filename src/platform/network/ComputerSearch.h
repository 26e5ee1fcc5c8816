#pragma once

#include "Computer.h"

#include <QList>
#include <memory>
#include <optional>
#include <vector>

class ComputerSource;

/// Asks a network for its computers in all ways at once.
namespace ComputerSearch {

using Sources = std::vector<std::unique_ptr<ComputerSource>>;

/// The computers that \a sources find until all have finished, but for a second and a half at most. Events
/// run meanwhile; the user's input waits, and comes afterwards. None at all, not even an empty list, where no
/// source could ask.
std::optional<QList<Computer>> computers(const Sources &sources);

/// The same by multicast DNS, WS-Discovery and NetBIOS.
std::optional<QList<Computer>> computers();

} // namespace ComputerSearch
