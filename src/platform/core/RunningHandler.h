#pragma once

class QObject;

/// While one lives, a handler runs. No window dies under its own handler: what has to go waits until none
/// runs, however many of them wait for events in the middle of their work.
class RunningHandler
{
public:
    RunningHandler();
    ~RunningHandler();
    RunningHandler(const RunningHandler &) = delete;
    RunningHandler &operator=(const RunningHandler &) = delete;

    /// Deletes \a object by an event of its own once no handler runs. An object that others delete first is
    /// forgotten.
    static void deleteWhenNoneRuns(QObject *object);
};
