#pragma once

class QObject;

/// Marks a running handler for as long as it exists. No window is deleted while a handler runs, since the
/// handler may be the window's own: deletions wait until none runs, also where several handlers are nested in
/// waits for events.
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
