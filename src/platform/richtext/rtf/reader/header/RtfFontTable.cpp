#include "RtfFontTable.h"

#include "RtfCodePage.h"

namespace {

const QString usualFamily = QStringLiteral("Times New Roman");

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
    if (!isInEntry())
        return;
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
}

void RtfFontTable::character(char16_t c)
{
    if (!isInEntry())
        return;
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
        font.family = m_name.section(u';', 0, 0).trimmed();
        if (font.family.isEmpty())
            font.family = usualFamily;
        font.signs = RtfSymbolFont::kind(font.family, m_isSymbol);
        const bool hasSigns = font.signs != RtfSymbolFont::Kind::None;
        font.page = &RtfCodePage::page(hasSigns ? RtfCodePage::symbol : m_page);
        m_fonts.insert(m_number, font);
    }
    m_number = -1;
    m_isSymbol = false;
    m_name.clear();
    m_nameBytes.clear();
}
