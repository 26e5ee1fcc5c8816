#pragma once

#include <chrono>

/// The clock by which this process's timers and time-outs run. Its end puts it right again.
class ScratchClock
{
public:
    ScratchClock() = default;
    ~ScratchClock();
    ScratchClock(const ScratchClock &) = delete;
    ScratchClock &operator=(const ScratchClock &) = delete;

    /// As much later it is from now on. Timers that are due come with the next events.
    void advance(std::chrono::milliseconds time);
};
