#pragma once

#include <functional>
#include <sys/types.h>

/// A step that reads the program's memory as it is at one moment and works on it beside the program, in a
/// process made by fork(). What the step changes in memory is not seen here; files that it writes are.
///
/// For steps that take long and only read what the calling thread owns. Making the process takes some
/// milliseconds, however large the memory is.
class ForkedTask
{
public:
    ForkedTask() = default;
    /// Stops the step.
    ~ForkedTask();
    ForkedTask(const ForkedTask &) = delete;
    ForkedTask &operator=(const ForkedTask &) = delete;

    /// Stops the step before and starts \a step, which returns whether it has succeeded; an exception counts
    /// as a failure. It must not touch windows, sockets or threads. It dies with this process, or after ten
    /// seconds. Returns false where no process could be made.
    bool start(const std::function<bool()> &step);

    bool isRunning();
    /// Of the latest step, once it is over; true when none has been started.
    bool hasSucceeded() const { return m_hasSucceeded; }

    /// Waits for the step's end and returns whether it has succeeded.
    bool wait();
    /// Ends the step wherever it is.
    void stop();

private:
    bool reap(int options);

    pid_t m_process = 0; ///< 0 when no step runs
    bool m_hasSucceeded = true;
};
