#pragma once

#include <functional>

/// Keeps the caller for \a Milliseconds. Events run meanwhile only with \a ProcessEvents; without it the
/// suite does not answer.
void Pause(int Milliseconds, bool ProcessEvents);

/// Replaces the waiting, for tests: \a replacement gets the milliseconds. An empty function puts the real one
/// back.
void setPause(std::function<void(int)> replacement);
