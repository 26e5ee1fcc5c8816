#pragma once

#include "ToolCandidates.h"

#include <QtGlobal>
#include <optional>

/// Starts the desktop's own tools. What is installed is looked up each time.
namespace ToolLauncher {

/// Starts the first of \a candidates that is there, on its own: the running desktop's column first, then the
/// fallback, then the other columns. Does not wait. Gives the process id, or nothing when none is there.
std::optional<qint64> start(const ToolCandidates &candidates);

} // namespace ToolLauncher
