#include "RtfStyleSheet.h"

#include "RtfParagraphRows.h"

namespace {

constexpr int longestChain = 64; // of styles based on each other, which may go round in a circle
constexpr int noStyle = 222;     // what the format says where a style is based on none

} // namespace

RtfStyleSheet::RtfStyleSheet(RtfParagraphRows &rows)
    : m_rows(rows)
{}

const RtfStyleSheet::Style &RtfStyleSheet::style(Kind kind, int number)
{
    static const Style none;
    const auto entry = m_entries.find({kind, number});
    if (entry == m_entries.end())
        return none;
    if (!entry->resolved)
        entry->resolved = resolve(kind, number);
    return *entry->resolved;
}

void RtfStyleSheet::begin()
{
    m_depth = 0;
    m_isStyle = false;
}

void RtfStyleSheet::end()
{
    finishEntry();
}

void RtfStyleSheet::open()
{
    if (++m_depth != 1)
        return;
    finishEntry();
    m_isStyle = true;
}

void RtfStyleSheet::close()
{
    if (m_depth-- == 1)
        finishEntry();
}

void RtfStyleSheet::word(const RtfToken &token)
{
    if (m_depth != 1)
        return;
    switch (token.word) {
    case RtfWord::ParagraphStyle:
        m_number = token.parameter;
        break;
    case RtfWord::CharacterStyle:
        m_kind = Kind::Character;
        m_number = token.parameter;
        break;
    case RtfWord::SectionStyle:
    case RtfWord::TableStyle:
        m_isStyle = false;
        break;
    case RtfWord::BasedOn:
        if (token.parameter != noStyle)
            m_entry.basedOn = token.parameter;
        break;
    default:
        if (token.word != RtfWord::Unknown)
            m_entry.words.append(token);
        break;
    }
}

void RtfStyleSheet::finishEntry()
{
    if (m_isStyle)
        m_entries.insert({m_kind, m_number}, m_entry);
    m_isStyle = false;
    m_kind = Kind::Paragraph;
    m_number = 0;
    m_entry = Entry();
}

RtfStyleSheet::Style RtfStyleSheet::resolve(Kind kind, int number) const
{
    QList<const Entry *> chain;
    std::optional<int> next = number;
    while (next && chain.size() < longestChain) {
        const auto entry = m_entries.constFind({kind, *next});
        if (entry == m_entries.constEnd())
            break;
        chain.prepend(&*entry);
        next = entry->basedOn;
    }
    Style style;
    for (const Entry *entry : std::as_const(chain))
        apply(*entry, style);
    return style;
}

void RtfStyleSheet::apply(const Entry &entry, Style &style) const
{
    for (const RtfToken &token : entry.words) {
        if (token.word == RtfWord::Plain) {
            style.characters = RtfCharacterState();
            style.characterSet = 0;
            continue;
        }
        const quint32 characters = style.characters.apply(token);
        style.characterSet |= characters;
        if (characters == 0)
            style.paragraphSet |= style.paragraph.apply(token, m_rows);
    }
}
