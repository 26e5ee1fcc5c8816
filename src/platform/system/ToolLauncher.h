#pragma once

#include "ToolCandidates.h"

#include <QtGlobal>
#include <optional>

/// Starts the desktop's own tools. What is installed is looked up each time.
namespace ToolLauncher {

/// Whether any of \a candidates is there.
bool isThere(const ToolCandidates &candidates);

/// Starts the first of \a candidates that is there and can be started, on its own: the running desktop's
/// column first, then the fallback, then the other columns. Does not wait. Gives the process id, or nothing
/// when none is there; throws RuntimeError 53 when some are and none of them can be started.
std::optional<qint64> start(const ToolCandidates &candidates);

} // namespace ToolLauncher
