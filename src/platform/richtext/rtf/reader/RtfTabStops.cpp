#include "RtfTabStops.h"

#include "ParagraphFormat.h"
#include "RtfLexer.h"
#include "Twips.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace {

constexpr int mostWords = 256;  // a row that is longer is no one's
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
    Entry entry;
    entry.before = row;
    entry.count = m_entries.at(row).count + 1;
    entry.word = int(known - spellings.begin());
    entry.twips = hasPlace(entry.word) ? qBound(-farthest, token.parameter, farthest) : 0;
    if (entry.count > mostWords)
        return true;
    constexpr qint64 span = 1 << 20;
    int &number = m_rows[{row, entry.word * span + entry.twips}];
    if (number == 0) {
        number = int(m_entries.size());
        m_entries.append(entry);
    }
    row = number;
    return true;
}

QList<RtfTabStops::Entry> RtfTabStops::entries(int row) const
{
    QList<Entry> list;
    for (; row != 0; row = m_entries.at(row).before)
        list.append(m_entries.at(row));
    std::reverse(list.begin(), list.end());
    return list;
}

QList<QTextOption::Tab> RtfTabStops::tabs(int row) const
{
    QList<QTextOption::Tab> list;
    QTextOption::TabType type = QTextOption::LeftTab;
    const QList<Entry> all = entries(row);
    for (const Entry &entry : all) {
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
                QTextOption::Tab(Twips::toPixels(entry.twips, ParagraphFormat::layoutDpi()), type, u'.'));
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
    const QList<Entry> all = entries(row);
    for (const Entry &entry : all) {
        QString word = QLatin1String(spellings[size_t(entry.word)].spelling);
        if (hasPlace(entry.word))
            word += QString::number(entry.twips);
        words.append(word);
    }
    return words.join(u' ');
}
