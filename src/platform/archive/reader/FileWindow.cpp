#include "FileWindow.h"

QByteArrayView FileWindow::at(qint64 offset, qsizetype size)
{
    if (offset < m_offset || offset + size > m_offset + m_bytes.size()) {
        m_bytes.resize(mostBytes);
        m_bytes.resize(m_file.readAt(offset, m_bytes.data(), mostBytes));
        m_offset = offset;
    }
    const QByteArrayView bytes = QByteArrayView(m_bytes).sliced(offset - m_offset);
    return bytes.first(qMin(size, bytes.size()));
}
