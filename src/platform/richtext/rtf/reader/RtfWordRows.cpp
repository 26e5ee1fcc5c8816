#include "RtfWordRows.h"

#include <algorithm>

int RtfWordRows::add(int row, int word, int value)
{
    constexpr int mostWords = 256;
    const Entry entry = {row, m_entries.at(row).count + 1, word, value};
    if (entry.count > mostWords)
        return row;
    constexpr qint64 span = qint64(1) << 32;
    int &number = m_rows[{row, word * span + quint32(value)}];
    if (number == 0) {
        number = int(m_entries.size());
        m_entries.append(entry);
    }
    return number;
}

QList<RtfWordRows::Entry> RtfWordRows::entries(int row) const
{
    QList<Entry> list;
    for (; row != 0; row = m_entries.at(row).before)
        list.append(m_entries.at(row));
    std::reverse(list.begin(), list.end());
    return list;
}
