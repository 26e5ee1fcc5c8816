#include "ToneSequence.h"

#include "EventGate.h"

namespace {

constexpr int pauseTime = 2000; // milliseconds
constexpr int toneTime = 250;   // milliseconds from one tone to the next

} // namespace

ToneSequence::ToneSequence(QObject *parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    on(&m_timer, &QTimer::timeout, this, &ToneSequence::next);
}

void ToneSequence::add(const QString &tones)
{
    m_tones += tones;
    if (!m_timer.isActive())
        next();
}

void ToneSequence::stop()
{
    m_tones.clear();
    m_timer.stop();
}

void ToneSequence::next()
{
    if (m_tones.isEmpty())
        return;
    const QChar sign = m_tones.front();
    m_tones.remove(0, 1);
    m_timer.start(sign == u',' ? pauseTime : toneTime);
    if (sign != u',')
        Q_EMIT toneDue(sign);
}
