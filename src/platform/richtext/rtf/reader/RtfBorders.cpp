#include "RtfBorders.h"

#include "ParagraphBorders.h"
#include "RtfColorTable.h"
#include "RtfLexer.h"

namespace {

constexpr int widest = 32767; // twips

using Lines = ParagraphBorders;

/// What \a word opens; the lines of characters and of pages are none of a paragraph.
QList<int> sidesOf(RtfWord word)
{
    switch (word) {
    case RtfWord::BorderTop:
        return {Lines::Top};
    case RtfWord::BorderLeft:
        return {Lines::Left};
    case RtfWord::BorderBottom:
        return {Lines::Bottom};
    case RtfWord::BorderRight:
        return {Lines::Right};
    case RtfWord::BorderBetween:
        return {Lines::Between};
    case RtfWord::BorderBar:
        return {Lines::Bar};
    case RtfWord::BorderBox:
        return {Lines::Top, Lines::Left, Lines::Bottom, Lines::Right};
    default:
        return {};
    }
}

/// \a color is that of the number \a value.
void apply(RtfWord word, int value, const QColor &color, ParagraphBorder &line)
{
    switch (word) {
    case RtfWord::BorderWidth:
        line.width = value;
        break;
    case RtfWord::BorderSpace:
        line.space = value;
        break;
    case RtfWord::BorderColor:
        line.color = color;
        break;
    case RtfWord::BorderShadow:
        line.hasShadow = true;
        break;
    case RtfWord::BorderNil:
    case RtfWord::BorderNone:
        line.style.clear();
        break;
    default:
        line.style = QString::fromLatin1(RtfKeywords::spelling(word));
        break;
    }
}

} // namespace

bool RtfBorders::apply(const RtfToken &token, int &row)
{
    if (RtfKeywords::subject(token.word) != RtfSubject::Border)
        return false;
    row = m_rows.add(row, int(token.word), qBound(0, token.parameter, widest));
    return true;
}

bool RtfBorders::isSide(const RtfToken &token)
{
    switch (token.word) {
    case RtfWord::BorderCharacters:
    case RtfWord::BorderPageTop:
    case RtfWord::BorderPageLeft:
    case RtfWord::BorderPageBottom:
    case RtfWord::BorderPageRight:
        return true;
    default:
        return !sidesOf(token.word).isEmpty();
    }
}

QString RtfBorders::words(int row, const RtfColorTable &colors) const
{
    ParagraphBorders lines;
    QList<int> open;
    const QList<RtfWordRows::Entry> all = m_rows.entries(row);
    for (const RtfWordRows::Entry &entry : all) {
        RtfToken token;
        token.word = RtfWord(entry.word);
        const bool opens = isSide(token);
        if (opens)
            open = sidesOf(token.word);
        for (const int side : std::as_const(open)) {
            if (opens)
                lines[side] = ParagraphBorder();
            else
                ::apply(token.word, entry.value, colors.color(entry.value), lines[side]);
        }
    }
    return lines.words();
}
