#include "RtfBorders.h"

#include "RtfColorTable.h"
#include "RtfLexer.h"

#include <QStringList>
#include <array>

namespace {

constexpr int widest = 32767; // twips

enum Side { Top, Left, Bottom, Right, Between, Bar, SideCount };
constexpr std::array<const char *, SideCount> sides = {"brdrt", "brdrl",   "brdrb",
                                                       "brdrr", "brdrbtw", "brdrbar"};

struct Line
{
    RtfWord style = RtfWord::BorderNone;
    bool hasShadow = false;
    int width = -1;
    int space = -1;
    int color = 0;
};

/// What \a word opens; the lines of characters and of pages are none of a paragraph.
QList<int> sidesOf(RtfWord word)
{
    switch (word) {
    case RtfWord::BorderTop:
        return {Top};
    case RtfWord::BorderLeft:
        return {Left};
    case RtfWord::BorderBottom:
        return {Bottom};
    case RtfWord::BorderRight:
        return {Right};
    case RtfWord::BorderBetween:
        return {Between};
    case RtfWord::BorderBar:
        return {Bar};
    case RtfWord::BorderBox:
        return {Top, Left, Bottom, Right};
    default:
        return {};
    }
}

void apply(RtfWord word, int value, Line &line)
{
    switch (word) {
    case RtfWord::BorderWidth:
        line.width = value;
        break;
    case RtfWord::BorderSpace:
        line.space = value;
        break;
    case RtfWord::BorderColor:
        line.color = value;
        break;
    case RtfWord::BorderShadow:
        line.hasShadow = true;
        break;
    case RtfWord::BorderNil:
        line.style = RtfWord::BorderNone;
        break;
    default:
        line.style = word;
        break;
    }
}

void append(QStringList &words, int side, const Line &line, const QColor &color)
{
    words.append(QLatin1String(sides[size_t(side)]));
    words.append(QString::fromLatin1(RtfKeywords::spelling(line.style)));
    if (line.hasShadow)
        words.append(QStringLiteral("brdrsh"));
    if (line.width >= 0)
        words.append(QStringLiteral("brdrw%1").arg(line.width));
    if (line.space >= 0)
        words.append(QStringLiteral("brsp%1").arg(line.space));
    if (color.isValid())
        words.append(QStringLiteral("brdrcf") + color.name());
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
    std::array<Line, SideCount> lines;
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
                lines[size_t(side)] = Line();
            else
                ::apply(token.word, entry.value, lines[size_t(side)]);
        }
    }
    QStringList words;
    for (int side = 0; side < SideCount; ++side) {
        const Line &line = lines[size_t(side)];
        if (line.style != RtfWord::BorderNone)
            append(words, side, line, colors.color(line.color));
    }
    return words.join(u' ');
}
