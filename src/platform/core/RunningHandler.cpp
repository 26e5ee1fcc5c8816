#include "RunningHandler.h"

#include <QCoreApplication>
#include <QList>
#include <QPointer>
#include <utility>

namespace {

int running = 0;

QList<QPointer<QObject>> &doomed()
{
    static QList<QPointer<QObject>> objects;
    return objects;
}

/// Runs as an event of its own, behind the code of Qt's that called the last handler.
void deleteDoomed()
{
    if (running > 0)
        return; // the outermost one asks again
    for (const QPointer<QObject> &object : std::exchange(doomed(), {}))
        delete object;
}

void deleteDoomedSoon()
{
    if (!doomed().isEmpty() && QCoreApplication::instance())
        QMetaObject::invokeMethod(QCoreApplication::instance(), deleteDoomed, Qt::QueuedConnection);
}

} // namespace

RunningHandler::RunningHandler()
{
    ++running;
}

RunningHandler::~RunningHandler()
{
    if (--running == 0)
        deleteDoomedSoon();
}

void RunningHandler::deleteWhenNoneRuns(QObject *object)
{
    doomed().append(object);
    if (running == 0)
        deleteDoomedSoon();
}
