#include "RtfStyleSheet.h"

#include "RtfColorTable.h"
#include "RtfFontTable.h"
#include "RtfKeywords.h"
#include "RtfParagraphRows.h"

namespace {

constexpr int longestChain = 64; // of styles based on each other, which may go round in a circle
constexpr int noStyle = 222;     // what the format says where a style is based on none

/// A style's lists are those of the paragraphs that have it: their numbers are others in each file.
bool isKept(const RtfToken &token)
{
    switch (token.word) {
    case RtfWord::LeftToRightRun:
    case RtfWord::RightToLeftRun:
    case RtfWord::LowAnsiRun:
    case RtfWord::HighAnsiRun:
    case RtfWord::DoubleByteRun:
    case RtfWord::NextStyle:
    case RtfWord::LinkedStyle:
    case RtfWord::AdditiveStyle:
    case RtfWord::SelfUpdatingStyle:
    case RtfWord::HiddenStyle:
    case RtfWord::LockedStyle:
    case RtfWord::StylePriority:
    case RtfWord::QuickStyle:
    case RtfWord::HalfHiddenStyle:
    case RtfWord::UsedStyleIsShown:
        return true;
    case RtfWord::ListNumber:
    case RtfWord::ListLevel:
        return false;
    default: {
        const RtfSubject subject = RtfKeywords::subject(token.word);
        return subject == RtfSubject::Character || subject == RtfSubject::Paragraph ||
               subject == RtfSubject::Border;
    }
    }
}

/// What a style has anyway without a word, and what some readers take for black.
bool isAutomaticColour(const RtfToken &token, const RtfColorTable &colors)
{
    return token.word == RtfWord::Foreground && !colors.color(token.parameter).isValid();
}

TextStyle::Word kept(const RtfToken &token, const RtfFontTable &fonts, const RtfColorTable &colors)
{
    TextStyle::Word word;
    word.spelling = token.text.toByteArray();
    switch (token.word) {
    case RtfWord::Font:
    case RtfWord::AssociatedFont:
        word.family = fonts.font(token.parameter).family;
        break;
    case RtfWord::Foreground:
    case RtfWord::AssociatedForeground:
    case RtfWord::Background:
    case RtfWord::CharacterShading:
    case RtfWord::Highlight:
    case RtfWord::ParagraphShading:
    case RtfWord::BorderColor:
        word.colour = colors.color(token.parameter);
        break;
    default:
        if (token.hasParameter)
            word.number = token.parameter;
        break;
    }
    return word;
}

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

QString RtfStyleSheet::name(int number) const
{
    return number == 0 ? QString() : m_entries.value({Kind::Paragraph, number}).name;
}

TextStyles::Sheet RtfStyleSheet::sheet(const RtfFontTable &fonts, const RtfColorTable &colors) const
{
    QList<TextStyle> styles;
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        const auto [kind, number] = it.key();
        TextStyle style = {kind, number, it->name, {}};
        if (it->basedOn)
            style.words.append({"sbasedon", it->basedOn, {}, {}});
        const bool inheritsColour = it->basedOn && resolve(kind, *it->basedOn).characters.foreground != 0;
        for (const RtfToken &token : it->words) {
            if (isKept(token) && (inheritsColour || !isAutomaticColour(token, colors)))
                style.words.append(kept(token, fonts, colors));
        }
        styles.append(style);
    }
    return std::make_shared<const QList<TextStyle>>(std::move(styles));
}

void RtfStyleSheet::begin(const RtfCodePage &page)
{
    m_page = &page;
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
    m_name.begin(*m_page);
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

void RtfStyleSheet::bytes(QByteArrayView bytes)
{
    if (m_depth == 1)
        m_name.bytes(bytes);
}

void RtfStyleSheet::character(char16_t c)
{
    if (m_depth == 1)
        m_name.character(c);
}

void RtfStyleSheet::finishEntry()
{
    if (m_isStyle) {
        m_entry.name = m_name.end().section(u';', 0, 0).simplified();
        m_entries.insert({m_kind, m_number}, m_entry);
    }
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
