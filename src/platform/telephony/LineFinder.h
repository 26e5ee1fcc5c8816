#pragma once

#include "LineSettings.h"

#include <QList>
#include <memory>
#include <vector>

class TelephoneLine;

/// Makes the telephone lines of this computer.
namespace LineFinder {

/// A line for each of \a settings, in their order, also where its device is missing; behind them the mobile
/// modems that the system has and \a settings do not name, sorted by their identifiers, so that the numbers
/// of the first ones stay.
std::vector<std::unique_ptr<TelephoneLine>> find(const QList<LineSettings> &settings);

} // namespace LineFinder
