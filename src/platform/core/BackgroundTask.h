#pragma once

#include <QObject>
#include <functional>
#include <memory>

/// One call that may block for long, such as a look-up of a name, made in a thread of its own. The call
/// shares nothing with the rest of the process but its result. Nothing waits for the thread: when the task is
/// deleted, the call ends some time later, and nobody hears of it.
class BackgroundTask : public QObject
{
    Q_OBJECT

public:
    explicit BackgroundTask(QObject *parent = nullptr);
    ~BackgroundTask() override;

    /// Starts \a call, once. Its result is an errno value, or another number that both sides know.
    void start(std::function<int()> call);

Q_SIGNALS:
    /// From the event loop of the thread that has started it.
    void finished(int result);

private:
    struct Shared;

    int launch(std::function<int()> call);

    std::shared_ptr<Shared> m_shared;
};
