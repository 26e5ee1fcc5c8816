#include "RtfFontTable.h"

#include "RtfCodePage.h"
#include "RtfWords.h"

#include <QVariant>
#include <algorithm>

namespace {

const QString usualFamily = QStringLiteral("Times New Roman");

QString usualOf(RtfWord kind)
{
    switch (kind) {
    case RtfWord::FontSwiss:
        return QStringLiteral("Arial");
    case RtfWord::FontModern:
        return QStringLiteral("Courier New");
    default:
        return usualFamily;
    }
}

bool isName(const QString &name)
{
    return std::any_of(name.begin(), name.end(), [](QChar c) { return !c.isDigit(); });
}

} // namespace

RtfFontTable::RtfFontTable()
    : m_standard{usualFamily, nullptr, RtfSymbolFont::Kind::None}
{
    setStandardPage(RtfCodePage::standard);
}

void RtfFontTable::setStandardPage(int page)
{
    m_standardPage = page;
    m_standard.page = &RtfCodePage::page(page);
}

const RtfFontTable::Font &RtfFontTable::font(int number) const
{
    auto font = m_fonts.constFind(number);
    if (font == m_fonts.constEnd())
        font = m_fonts.constFind(m_standardFont);
    return font == m_fonts.constEnd() ? m_standard : *font;
}

void RtfFontTable::begin()
{
    m_depth = 0;
    m_number = -1;
}

void RtfFontTable::end()
{
    finishEntry();
}

void RtfFontTable::open()
{
    m_inner = RtfWord::Unknown;
    if (++m_depth == 1)
        finishEntry();
}

void RtfFontTable::close()
{
    if (m_depth-- == 1)
        finishEntry();
}

void RtfFontTable::word(const RtfToken &token)
{
    if (!isInEntry()) {
        m_inner = token.word;
        return;
    }
    switch (token.word) {
    case RtfWord::Font:
        finishEntry();
        m_number = token.parameter;
        m_page = m_standardPage;
        break;
    case RtfWord::FontCharset: {
        constexpr int ansi = 0;
        constexpr int macintosh = 10000;
        constexpr int firstWindows = 874;
        const bool isWindows = m_standardPage >= firstWindows && m_standardPage < macintosh;
        m_isSymbol = token.parameter == 2;
        m_page = token.parameter == ansi && isWindows
                     ? RtfCodePage::standard
                     : RtfCodePage::numberOfCharset(token.parameter, m_standardPage);
        break;
    }
    case RtfWord::FontOfNoKind:
    case RtfWord::FontRoman:
    case RtfWord::FontSwiss:
    case RtfWord::FontModern:
    case RtfWord::FontScript:
    case RtfWord::FontDecorative:
    case RtfWord::FontTechnical:
    case RtfWord::FontBidirectional:
        m_kind = token.word;
        break;
    case RtfWord::FontPitch:
        m_pitch = qBound(0, token.parameter, 2);
        break;
    case RtfWord::FontCodePage:
        if (token.parameter > 0)
            m_page = token.parameter;
        break;
    default:
        break;
    }
}

/// A name ends in ";", which in entries without groups of their own parts them too.
void RtfFontTable::bytes(QByteArrayView bytes)
{
    if (isInEntry())
        m_nameBytes.append(bytes);
    else if (m_inner == RtfWord::FontPanose)
        m_panose.append(bytes);
    else if (m_inner == RtfWord::FontAlternate)
        RtfCodePage::page(m_isSymbol ? m_standardPage : m_page).append(m_alternate, bytes);
}

void RtfFontTable::character(char16_t c)
{
    if (!isInEntry()) {
        if (m_inner == RtfWord::FontAlternate)
            m_alternate.append(QChar(c));
        return;
    }
    flushName();
    m_name.append(QChar(c));
}

void RtfFontTable::flushName()
{
    const int page = m_isSymbol ? m_standardPage : m_page;
    RtfCodePage::page(page).append(m_name, m_nameBytes);
    m_nameBytes.clear();
}

void RtfFontTable::finishEntry()
{
    if (m_number >= 0) {
        flushName();
        Font font;
        font.family = family();
        keepWords(font.family);
        font.signs = RtfSymbolFont::kind(font.family, m_isSymbol);
        const bool hasSigns = font.signs != RtfSymbolFont::Kind::None;
        font.page = &RtfCodePage::page(hasSigns ? RtfCodePage::symbol : m_page);
        m_fonts.insert(m_number, font);
    }
    m_number = -1;
    m_isSymbol = false;
    m_name.clear();
    m_nameBytes.clear();
    m_kind = RtfWord::FontOfNoKind;
    m_pitch = 0;
    m_panose.clear();
    m_alternate.clear();
}

/// A number is no name; some programs write one where they have none.
QString RtfFontTable::family() const
{
    for (const QString &names : {m_name, m_alternate}) {
        const QString name = names.section(u';', 0, 0).trimmed();
        if (isName(name))
            return name;
    }
    return usualOf(m_kind);
}

void RtfFontTable::keepWords(const QString &family)
{
    QByteArray before;
    QByteArray behind;
    before.append('\\').append(RtfKeywords::spelling(m_kind));
    if (m_pitch > 0)
        RtfWords::append(before, "fprq", m_pitch);
    constexpr qsizetype panoseLength = 20;
    const QByteArray panose = m_panose.trimmed().toLower();
    if (panose.size() == panoseLength && QByteArray::fromHex(panose).toHex() == panose)
        before.append("{\\*\\panose " + panose + '}');
    const QString alternate = m_alternate.section(u';', 0, 0).trimmed();
    if (isName(alternate) && alternate != family) {
        behind = "{\\*\\falt ";
        RtfWords::appendText(behind, alternate);
        behind.append('}');
    }
    m_words.insert(family, QVariantList{before, behind});
}
