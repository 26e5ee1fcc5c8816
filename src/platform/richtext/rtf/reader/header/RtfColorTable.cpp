#include "RtfColorTable.h"

void RtfColorTable::begin()
{
    m_colors.clear();
    m_next = QColor();
}

void RtfColorTable::word(const RtfToken &token)
{
    const int value = qBound(0, token.parameter, 255);
    const auto known = [&] { return m_next.isValid() ? m_next : QColor(Qt::black); };
    switch (token.word) {
    case RtfWord::Red:
        m_next = known();
        m_next.setRed(value);
        break;
    case RtfWord::Green:
        m_next = known();
        m_next.setGreen(value);
        break;
    case RtfWord::Blue:
        m_next = known();
        m_next.setBlue(value);
        break;
    default:
        break;
    }
}

void RtfColorTable::bytes(QByteArrayView bytes)
{
    for (const char c : bytes) {
        if (c == ';') {
            m_colors.append(m_next);
            m_next = QColor();
        }
    }
}
