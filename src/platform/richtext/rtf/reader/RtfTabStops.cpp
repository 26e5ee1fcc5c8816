#include "RtfTabStops.h"

#include "ParagraphFormat.h"
#include "RtfLexer.h"
#include "Twips.h"

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

/// By place: programs say some stops twice, those of a style and those of the paragraph.
QMap<int, QStringList> RtfTabStops::stops(int row) const
{
    QMap<int, QStringList> stops;
    QStringList kind;
    const QList<RtfWordRows::Entry> all = m_rows.entries(row);
    for (const RtfWordRows::Entry &entry : all) {
        QString word = QLatin1String(spellings[size_t(entry.word)].spelling);
        if (!hasPlace(entry.word)) {
            kind.append(word);
            continue;
        }
        kind.append(word + QString::number(entry.value));
        stops.insert(entry.value, std::exchange(kind, {}));
    }
    return stops;
}

QList<QTextOption::Tab> RtfTabStops::tabs(int row) const
{
    QList<QTextOption::Tab> list;
    const QMap<int, QStringList> stops = this->stops(row);
    for (auto stop = stops.cbegin(); stop != stops.cend(); ++stop) {
        if (stop->constLast().startsWith(QLatin1String("tb")))
            continue; // bars, and what fills the gap, Qt does not draw
        QTextOption::TabType type = QTextOption::LeftTab;
        if (stop->contains(QLatin1String("tqr")))
            type = QTextOption::RightTab;
        else if (stop->contains(QLatin1String("tqc")))
            type = QTextOption::CenterTab;
        else if (stop->contains(QLatin1String("tqdec")))
            type = QTextOption::DelimiterTab;
        list.append(QTextOption::Tab(Twips::toPixels(stop.key(), ParagraphFormat::layoutDpi()), type, u'.'));
    }
    return list;
}

QString RtfTabStops::words(int row) const
{
    QStringList words;
    const QMap<int, QStringList> stops = this->stops(row);
    for (const QStringList &stop : stops)
        words.append(stop);
    return words.join(u' ');
}
