#include "RtfTextPart.h"

#include "RtfCodePage.h"

void RtfTextPart::begin(const RtfCodePage &page)
{
    m_page = &page;
    m_bytes.clear();
    m_text.clear();
}

QString RtfTextPart::end()
{
    flush();
    return m_text;
}

void RtfTextPart::bytes(QByteArrayView bytes)
{
    m_bytes.append(bytes);
}

void RtfTextPart::character(char16_t c)
{
    flush();
    m_text.append(QChar(c));
}

void RtfTextPart::flush()
{
    m_page->append(m_text, m_bytes);
    m_bytes.clear();
}
