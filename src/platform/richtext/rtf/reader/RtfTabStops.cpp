#include "RtfTabStops.h"

#include "ParagraphFormat.h"
#include "RtfLexer.h"
#include "Twips.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace {

constexpr int farthest = 32767; // twips

struct Spelling
{
    RtfWord word;
    const char *spelling;
};
constexpr auto spellings = std::to_array<Spelling>({{RtfWord::TabStop, "tx"},
                                                    {RtfWord::BarTab, "tb"},
                                                    {RtfWord::TabRight, "tqr"},
                                                    {RtfWord::TabCenter, "tqc"},
                                                    {RtfWord::TabDecimal, "tqdec"},
                                                    {RtfWord::TabDots, "tldot"},
                                                    {RtfWord::TabMiddleDots, "tlmdot"},
                                                    {RtfWord::TabHyphens, "tlhyph"},
                                                    {RtfWord::TabUnderline, "tlul"},
                                                    {RtfWord::TabThickLine, "tlth"},
                                                    {RtfWord::TabEquals, "tleq"}});

bool hasPlace(int row)
{
    const RtfWord word = spellings[size_t(row)].word;
    return word == RtfWord::TabStop || word == RtfWord::BarTab;
}

} // namespace

bool RtfTabStops::apply(const RtfToken &token, int &row)
{
    const auto *known =
        std::find_if(spellings.begin(), spellings.end(), [&](Spelling r) { return r.word == token.word; });
    if (known == spellings.end())
        return false;
    const int word = int(known - spellings.begin());
    row = m_rows.add(row, word, hasPlace(word) ? qBound(-farthest, token.parameter, farthest) : 0);
    return true;
}

QList<QTextOption::Tab> RtfTabStops::tabs(int row) const
{
    QList<QTextOption::Tab> list;
    QTextOption::TabType type = QTextOption::LeftTab;
    const QList<RtfWordRows::Entry> all = m_rows.entries(row);
    for (const RtfWordRows::Entry &entry : all) {
        switch (spellings[size_t(entry.word)].word) {
        case RtfWord::TabRight:
            type = QTextOption::RightTab;
            break;
        case RtfWord::TabCenter:
            type = QTextOption::CenterTab;
            break;
        case RtfWord::TabDecimal:
            type = QTextOption::DelimiterTab;
            break;
        case RtfWord::TabStop:
            list.append(
                QTextOption::Tab(Twips::toPixels(entry.value, ParagraphFormat::layoutDpi()), type, u'.'));
            type = QTextOption::LeftTab;
            break;
        default: // what fills the gap, and bars, Qt does not draw
            break;
        }
    }
    return list;
}

QString RtfTabStops::words(int row) const
{
    QStringList words;
    const QList<RtfWordRows::Entry> all = m_rows.entries(row);
    for (const RtfWordRows::Entry &entry : all) {
        QString word = QLatin1String(spellings[size_t(entry.word)].spelling);
        if (hasPlace(entry.word))
            word += QString::number(entry.value);
        words.append(word);
    }
    return words.join(u' ');
}
