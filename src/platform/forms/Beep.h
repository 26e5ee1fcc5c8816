#pragma once

#include <functional>

/// Sounds the desktop's bell.
void Beep();

/// Replaces the bell, for tests; an empty function puts the real one back.
void setBeep(std::function<void()> replacement);
