#include "FieldReader.h"

namespace {

bool isDelimiter(QChar character)
{
    return character == u',' || character == u'\r' || character == u'\n';
}

} // namespace

QString FieldReader::next()
{
    while (!atEnd() && m_text[m_next] == u' ')
        ++m_next;
    const QString field = !atEnd() && m_text[m_next] == u'"' ? quoted() : plain();
    skipDelimiter();
    return field;
}

/// What is between the closing mark and the delimiter belongs to no field. A mark that is never closed takes
/// the rest of the text.
QString FieldReader::quoted()
{
    const qsizetype first = m_next + 1;
    const qsizetype closing = m_text.indexOf(u'"', first);
    m_next = closing < 0 ? m_text.size() : closing + 1;
    plain();
    return closing < 0 ? m_text.mid(first) : m_text.mid(first, closing - first);
}

QString FieldReader::plain()
{
    const qsizetype first = m_next;
    while (!atEnd() && !isDelimiter(m_text[m_next]))
        ++m_next;
    return m_text.mid(first, m_next - first);
}

void FieldReader::skipDelimiter()
{
    if (atEnd())
        return;
    const bool isPair = m_text[m_next] == u'\r' && m_next + 1 < m_text.size() && m_text[m_next + 1] == u'\n';
    m_next += isPair ? 2 : 1;
}
