#include "BackgroundTask.h"

#include "EventGate.h"

#include <QSocketNotifier>
#include <atomic>
#include <cerrno>
#include <sys/eventfd.h>
#include <system_error>
#include <thread>
#include <unistd.h>

/// What the thread leaves behind, and how it says so. The last of both sides closes it.
struct BackgroundTask::Shared
{
    ~Shared() { ::close(event); }

    const int event = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    std::atomic<int> result = 0;
};

BackgroundTask::BackgroundTask(QObject *parent)
    : QObject(parent)
    , m_shared(std::make_shared<Shared>())
{}

BackgroundTask::~BackgroundTask() = default;

void BackgroundTask::start(std::function<int()> call)
{
    if (const int error = launch(std::move(call)); error != 0) {
        QMetaObject::invokeMethod(
            this, [this, error] { run([&] { Q_EMIT finished(error); }); }, Qt::QueuedConnection);
        return;
    }
    auto *notifier = new QSocketNotifier(m_shared->event, QSocketNotifier::Read, this);
    on(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Q_EMIT finished(m_shared->result);
    });
}

/// Returns the C library's code of what went wrong: there may be no more threads or files.
int BackgroundTask::launch(std::function<int()> call)
{
    if (m_shared->event < 0)
        return EMFILE;
    try {
        std::thread([shared = m_shared, call = std::move(call)] {
            try {
                shared->result = call();
            } catch (...) { // nothing but memory can be missing
                shared->result = ENOMEM;
            }
            ::eventfd_write(shared->event, 1);
        }).detach();
        return 0;
    } catch (const std::system_error &failure) {
        return failure.code().value();
    }
}
