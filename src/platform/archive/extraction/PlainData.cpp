#include "PlainData.h"

#include "BadArchive.h"

qsizetype PlainData::read(char *to, qsizetype size)
{
    const qsizetype wanted = qsizetype(qMin<qint64>(size, m_end - m_offset));
    if (m_file.readAt(m_offset, to, wanted) < wanted)
        throw BadArchive{"it is cut", BadArchive::Cut};
    m_offset += wanted;
    return wanted;
}
