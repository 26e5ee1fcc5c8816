#include "AtChat.h"

#include "EventGate.h"

AtChat::AtChat(QObject *parent)
    : QObject(parent)
{
    m_limit.setSingleShot(true);
    on(&m_limit, &QTimer::timeout, this, [this] { finish(AtResult::None); });
    on(&m_port, &SerialPort::received, this, &AtChat::take);
    on(&m_port, &SerialPort::lost, this, [this] {
        forget();
        Q_EMIT lost();
    });
}

void AtChat::send(const QByteArray &command, int time)
{
    m_isWaiting = true;
    const bool isSent = m_port.write(command + '\r');
    if (!isSent)
        m_limit.start(0);
    else if (time > 0)
        m_limit.start(time);
    else
        m_limit.stop();
}

void AtChat::interrupt()
{
    forget();
    m_port.write("\r");
}

void AtChat::forget()
{
    m_limit.stop();
    m_isWaiting = false;
    m_reader.clear();
}

void AtChat::take(const QByteArray &bytes)
{
    for (const AtReader::Item &item : m_reader.add(bytes)) {
        if (item.isEvent)
            Q_EMIT eventCame(item.text.front());
        else
            takeResult(atResult(item.text));
    }
}

void AtChat::takeResult(AtResult result)
{
    if (result == AtResult::None)
        return;
    if (m_isWaiting)
        finish(result);
    else
        Q_EMIT reported(result);
}

void AtChat::finish(AtResult result)
{
    m_limit.stop();
    m_isWaiting = false;
    Q_EMIT answered(result);
}
