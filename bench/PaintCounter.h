#pragma once

#include "EventGate.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>
#include <QWidget>

/// Asks for a window to be painted again and again, and counts how often it is.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget &window)
    {
        window.installEventFilter(this);
        on(&m_asks, &QTimer::timeout, &window, [&window] { window.update(); });
    }

    void start()
    {
        constexpr int interval = 5; // milliseconds
        m_last = m_longestGap = 0;
        m_count = 0;
        m_asks.start(interval);
        m_time.start();
    }
    void stop()
    {
        noteGap();
        m_elapsed = m_time.elapsed();
        m_asks.stop();
    }
    /// What has passed since the start belongs to the server.
    void markReply() { m_reply = m_time.elapsed(); }

    // Milliseconds.
    qint64 afterReply() const { return m_elapsed - m_reply; }
    qint64 elapsed() const { return m_elapsed; }
    qint64 longestGap() const { return m_longestGap; }
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && m_asks.isActive()) {
            ++m_count;
            noteGap();
        }
        return false;
    }

private:
    void noteGap()
    {
        const qint64 now = m_time.elapsed();
        m_longestGap = qMax(m_longestGap, now - m_last);
        m_last = now;
    }

    QTimer m_asks;
    QElapsedTimer m_time;
    qint64 m_elapsed = 0;
    qint64 m_reply = 0;
    qint64 m_last = 0;
    qint64 m_longestGap = 0;
    int m_count = 0;
};
