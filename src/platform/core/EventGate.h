#pragma once

#include "RunningHandler.h"

#include <QObject>
#include <QString>
#include <functional>
#include <tuple>
#include <type_traits>

/// Every handler of an event runs through this gate. No exception passes through Qt's own code: an exception
/// that the handler does not catch shows the default error box and ends the process. While that box is up no
/// other handler runs.
///
/// Where the caller has to catch an error (the load of a window, a toolbar key running a command) a plain
/// call is used instead of a signal.
namespace EventGate {

using Box = std::function<void(int number, const QString &description)>;
using End = std::function<void(int code)>;

/// Shows the default error from now on. Without a box the error goes to the standard error stream.
void setBox(Box box);
/// Replaces the end of the process, for tests; an empty function puts the real one back.
void setEnd(End end);

/// Runs \a step before each end of the process that the suite makes itself, and before the default error box
/// comes up, as long as \a context exists. What it throws is ignored.
void beforeEnd(const QObject *context, std::function<void()> step);

/// Ends the process at once with \a code, without asking any window.
void end(int code);

/// The default error box, then the end. Does nothing while the box of another failure is up.
void fail(int number, const QString &description);

/// No handler runs: the box is up, or the process ends.
bool isBlocked();

/// Fails with the exception that is being handled.
void failWithCurrentException() noexcept;

template<std::size_t Count, class Handler, class... Args>
void callWithPrefix(Handler &handler, std::tuple<Args...> &args);

} // namespace EventGate

/// Runs the events that are pending, for a handler that waits. Other handlers run meanwhile; they may unload
/// any window, also the caller's own, which is not deleted until the caller has returned.
void processPendingEvents();

/// The same, but sleeps until there is an event: for a handler that asks after each one whether what it waits
/// for has come.
void waitForEvents();

/// The same, but keys, the mouse and the closing of windows are kept until the wait is over: for a short wait
/// after which the handler's window has to be there still.
void waitForEventsButInput();

/// Runs \a step as the body of an event: for overridden virtuals of Qt.
template<class Step>
void run(Step &&step) noexcept
{
    if (EventGate::isBlocked())
        return;
    const RunningHandler running;
    try {
        step();
    } catch (...) {
        EventGate::failWithCurrentException();
    }
}

/// The same for the painting of a widget, which goes on while no handler runs: a box that is moved away
/// leaves the windows below it whole.
template<class Step>
void runPainting(Step &&step) noexcept
{
    try {
        step();
    } catch (...) {
        EventGate::failWithCurrentException();
    }
}

/// Binds \a handler to a signal of \a sender for as long as \a context exists. The handler takes as many of
/// the signal's arguments as it likes, and may answer through those that are references.
template<class Sender, class Signal, class Handler>
QMetaObject::Connection on(Sender *sender, Signal signal, const QObject *context, Handler handler)
{
    return QObject::connect(sender, signal, context,
                            [handler = std::move(handler)]<class... Args>(Args &&...args) mutable {
                                run([&] {
                                    std::tuple<Args &&...> all(std::forward<Args>(args)...);
                                    EventGate::callWithPrefix<sizeof...(Args)>(handler, all);
                                });
                            });
}

/// Binds a member function of \a object, its context, to a signal of \a sender.
template<class Sender, class Signal, class Object, class Result, class Owner, class... Params>
QMetaObject::Connection on(Sender *sender, Signal signal, Object *object, Result (Owner::*member)(Params...))
{
    return on(sender, signal, static_cast<const QObject *>(object),
              [object, member](Params... args) { (object->*member)(std::forward<Params>(args)...); });
}

template<std::size_t Count, class Handler, class... Args>
void EventGate::callWithPrefix(Handler &handler, std::tuple<Args...> &args)
{
    constexpr bool fits = []<std::size_t... I>(std::index_sequence<I...>)
    {
        return std::is_invocable_v<Handler &, std::tuple_element_t<I, std::tuple<Args...>>...>;
    }
    (std::make_index_sequence<Count>{});
    if constexpr (fits) {
        [&]<std::size_t... I>(std::index_sequence<I...>)
        {
            handler(std::forward<std::tuple_element_t<I, std::tuple<Args...>>>(std::get<I>(args))...);
        }
        (std::make_index_sequence<Count>{});
    } else {
        static_assert(Count > 0, "the handler does not fit the signal");
        callWithPrefix<Count - 1>(handler, args);
    }
}
