#pragma once

#include "LineMessage.h"

#include <QList>
#include <QTimer>

/// Hands messages to the callback in their order, each from an event of its own. So nobody hears of a request
/// before it knows the request's identifier, and a callback that waits does not hold the others up.
class LineMessageQueue : public QObject
{
    Q_OBJECT

public:
    using Callback = void (*)(const LineMessage &message);

    explicit LineMessageQueue(QObject *parent = nullptr);

    void setCallback(Callback callback) { m_callback = callback; }
    void post(const LineMessage &message);
    /// Forgets what has not been handed over.
    void clear();

private:
    void deliver();

    Callback m_callback = nullptr;
    QList<LineMessage> m_messages;
    QTimer m_next;
};
