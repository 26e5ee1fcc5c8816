#include "LineMessageQueue.h"

#include "EventGate.h"

LineMessageQueue::LineMessageQueue(QObject *parent)
    : QObject(parent)
{
    m_next.setSingleShot(true);
    on(&m_next, &QTimer::timeout, this, &LineMessageQueue::deliver);
}

void LineMessageQueue::post(const LineMessage &message)
{
    m_messages.append(message);
    m_next.start(0);
}

void LineMessageQueue::clear()
{
    m_messages.clear();
    m_next.stop();
}

void LineMessageQueue::deliver()
{
    if (m_messages.isEmpty())
        return;
    const LineMessage message = m_messages.takeFirst();
    if (!m_messages.isEmpty())
        m_next.start(0);
    m_callback(message); // the callback may delete this queue
}
