#include "RtfKeptGroup.h"

#include "RtfCodePage.h"
#include "RtfWords.h"

void RtfKeptGroup::begin(const RtfToken &word, const RtfCodePage &page)
{
    m_page = &page;
    m_group = "{";
    m_bytes.clear();
    m_begun = RtfWord::Unknown;
    m_texts.remove(m_begun);
    append(word);
}

QByteArray RtfKeptGroup::end()
{
    flush();
    return std::exchange(m_group, {}).append('}');
}

void RtfKeptGroup::open()
{
    flush();
    m_group.append('{');
    m_wordIsOpen = false;
    m_begun = RtfWord::Unknown;
}

void RtfKeptGroup::close()
{
    flush();
    m_group.append('}');
    m_wordIsOpen = false;
    m_begun = RtfWord::Unknown;
}

void RtfKeptGroup::word(const RtfToken &token)
{
    flush();
    if (RtfKeywords::subject(token.word) == RtfSubject::Character)
        return; // what it names has other numbers when it is written
    const bool beginsGroup = m_group.endsWith('{');
    append(token);
    if (beginsGroup) {
        m_begun = token.word;
        m_texts[m_begun] = token.hasParameter ? QString::number(token.parameter) : QString();
    }
}

void RtfKeptGroup::append(const RtfToken &token)
{
    if (token.isStarred)
        m_group.append("\\*");
    m_group.append('\\').append(token.text.data(), token.text.size());
    if (token.hasParameter)
        m_group.append(QByteArray::number(token.parameter));
    m_wordIsOpen = true;
}

void RtfKeptGroup::bytes(QByteArrayView bytes)
{
    m_bytes.append(bytes);
}

void RtfKeptGroup::character(char16_t c)
{
    flush();
    const QChar text(c);
    if (std::exchange(m_wordIsOpen, false))
        m_group.append(' ');
    RtfWords::appendText(m_group, QStringView(&text, 1));
    m_texts[m_begun].append(text);
}

void RtfKeptGroup::flush()
{
    if (m_bytes.isEmpty())
        return;
    QString text;
    m_page->append(text, m_bytes);
    m_bytes.clear();
    if (std::exchange(m_wordIsOpen, false))
        m_group.append(' ');
    RtfWords::appendText(m_group, text);
    m_texts[m_begun].append(text);
}
