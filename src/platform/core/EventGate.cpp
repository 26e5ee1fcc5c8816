#include "EventGate.h"

#include "RuntimeError.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <cstdio>
#include <cstdlib>

namespace {

void printError(int number, const QString &description)
{
    std::fprintf(stderr, "Run-time error '%d': %s\n", number, qPrintable(description));
}

bool blocked = false;

/// A normal end lets the application object go as it should, so that what was copied stays with the desktop;
/// but no handler runs any more.
void endProcess(int code)
{
    if (code != EXIT_SUCCESS || !QCoreApplication::instance())
        std::_Exit(code);
    blocked = true;
    QCoreApplication::exit(code);
}

EventGate::Box &currentBox()
{
    static EventGate::Box current = printError;
    return current;
}

EventGate::End &currentEnd()
{
    static EventGate::End current = endProcess;
    return current;
}

struct LastStep
{
    QPointer<const QObject> context;
    std::function<void()> run;
};

/// Those whose context still exists.
QList<LastStep> &lastSteps()
{
    static QList<LastStep> steps;
    steps.removeIf([](const LastStep &step) { return !step.context; });
    return steps;
}

void runLastSteps() noexcept
{
    for (const LastStep &step : QList(lastSteps())) {
        try {
            if (step.context) // an earlier step may have deleted it
                step.run();
        } catch (...) {
            continue; // the process has to end whatever they meet
        }
    }
}

} // namespace

void EventGate::setBox(Box replacement)
{
    currentBox() = replacement ? std::move(replacement) : printError;
}

void EventGate::setEnd(End replacement)
{
    currentEnd() = replacement ? std::move(replacement) : endProcess;
}

void EventGate::beforeEnd(const QObject *context, std::function<void()> step)
{
    lastSteps().append({context, std::move(step)});
}

void EventGate::end(int code)
{
    runLastSteps();
    currentEnd()(code);
}

bool EventGate::isBlocked()
{
    return blocked;
}

void EventGate::fail(int number, const QString &description)
{
    if (blocked)
        return;
    blocked = true;
    runLastSteps();
    currentBox()(number, description);
    currentEnd()(EXIT_FAILURE);
    blocked = false; // reached only where a test replaced the end
}

void EventGate::failWithCurrentException() noexcept
{
    const RuntimeError error = RuntimeError::current();
    fail(error.number(), error.description());
}

void processPendingEvents()
{
    const RunningHandler running; // also for a caller that is no handler itself
    QCoreApplication::processEvents();
}

void waitForEvents()
{
    const RunningHandler running;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void waitForEventsButInput()
{
    const RunningHandler running;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::ExcludeUserInputEvents);
}
