#include "RunningHandler.h"

#include <QCoreApplication>
#include <QList>
#include <QPointer>
#include <utility>

namespace {

int running = 0;

QList<QPointer<QObject>> &pendingDeletions()
{
    static QList<QPointer<QObject>> objects;
    return objects;
}

/// Runs as an event of its own, after the Qt code that called the last handler has returned.
void deletePending()
{
    if (running > 0)
        return; // the outermost one asks again
    for (const QPointer<QObject> &object : std::exchange(pendingDeletions(), {}))
        delete object;
}

void deletePendingSoon()
{
    if (!pendingDeletions().isEmpty() && QCoreApplication::instance())
        QMetaObject::invokeMethod(QCoreApplication::instance(), deletePending, Qt::QueuedConnection);
}

} // namespace

RunningHandler::RunningHandler()
{
    ++running;
}

RunningHandler::~RunningHandler()
{
    if (--running == 0)
        deletePendingSoon();
}

void RunningHandler::deleteWhenNoneRuns(QObject *object)
{
    pendingDeletions().append(object);
    if (running == 0)
        deletePendingSoon();
}
