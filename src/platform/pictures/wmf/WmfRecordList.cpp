#include "WmfRecordList.h"

#include <QtEndian>

std::optional<WmfRecord> WmfRecordList::next()
{
    constexpr qsizetype headerSize = 6;
    constexpr quint16 end = 0;
    if (m_left.size() < headerSize) {
        m_isDamaged = true;
        return {};
    }
    const quint16 function = qFromLittleEndian<quint16>(m_left.data() + 4);
    if (function == end)
        return {};
    const qint64 size = 2 * qint64(qFromLittleEndian<quint32>(m_left.data()));
    if (size < headerSize || size > m_left.size()) {
        m_isDamaged = true;
        return {};
    }
    const WmfRecord record{function, m_left.sliced(headerSize, size - headerSize)};
    m_left = m_left.sliced(size);
    return record;
}
