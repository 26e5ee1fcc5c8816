#include "Pause.h"

#include "EventGate.h"

#include <QDeadlineTimer>
#include <QThread>

namespace {

constexpr int turn = 10; // milliseconds between two times when events go through

void block(int milliseconds)
{
    QThread::msleep(milliseconds);
}

std::function<void(int)> &waiting()
{
    static std::function<void(int)> current = block;
    return current;
}

} // namespace

void Pause(int Milliseconds, bool ProcessEvents)
{
    if (!ProcessEvents) {
        waiting()(Milliseconds);
        return;
    }
    for (const QDeadlineTimer target(Milliseconds); !target.hasExpired();) {
        processPendingEvents();
        waiting()(int(qMin<qint64>(target.remainingTime(), turn)));
    }
}

void setPause(std::function<void(int)> replacement)
{
    waiting() = replacement ? std::move(replacement) : std::function<void(int)>(block);
}
