#pragma once

#include <functional>

/// Runs \a step. Where another program has the database locked and does not let go of it, says so in a box
/// and returns false; everything else that \a step throws reaches the caller.
bool unlessLocked(const std::function<void()> &step);
