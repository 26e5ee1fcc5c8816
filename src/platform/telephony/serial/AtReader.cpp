#include "AtReader.h"

namespace {

constexpr char dle = 0x10;

} // namespace

QList<AtReader::Item> AtReader::add(const QByteArray &bytes)
{
    QList<Item> items;
    for (const char byte : bytes) {
        if (m_isEvent)
            items.append({true, QByteArray(1, byte)});
        else if (byte == '\r' || byte == '\n')
            finishLine(items);
        else if (byte != dle && m_line.size() < longestLine)
            m_line += byte;
        m_isEvent = byte == dle && !m_isEvent;
    }
    return items;
}

void AtReader::finishLine(QList<Item> &items)
{
    const QByteArray line = m_line.trimmed();
    m_line.clear();
    if (!line.isEmpty())
        items.append({false, line});
}

void AtReader::clear()
{
    m_line.clear();
    m_isEvent = false;
}
