#include "FtpListingLine.h"

#include "AsciiDigit.h"

#include <QList>
#include <algorithm>
#include <cstring>

namespace {

bool beginsWithDigit(QByteArrayView word)
{
    return !word.isEmpty() && isAsciiDigit(word.front());
}

QByteArray rowOf(QByteArrayView name, bool isFolder)
{
    QByteArray row = name.toByteArray();
    if (isFolder && !row.isEmpty() && !row.endsWith('/'))
        row += '/';
    return row;
}

/// A word of a line, separated by blanks.
struct Word
{
    QByteArrayView text;
    qsizetype end; ///< in the line
};

/// The first \a most words of \a line.
QList<Word> wordsOf(QByteArrayView line, qsizetype most)
{
    QList<Word> words;
    qsizetype at = 0;
    while (words.size() < most) {
        while (at < line.size() && line[at] == ' ')
            ++at;
        const qsizetype begin = at;
        while (at < line.size() && line[at] != ' ')
            ++at;
        if (at == begin)
            break;
        words.append({line.sliced(begin, at - begin), at});
    }
    return words;
}

/// What is behind \a end and one blank.
QByteArrayView behind(QByteArrayView line, qsizetype end)
{
    return end < line.size() ? line.sliced(end + 1) : QByteArrayView();
}

bool isMonth(QByteArrayView word)
{
    static const QByteArrayList months = {"jan", "feb", "mar", "apr", "may", "jun",
                                          "jul", "aug", "sep", "oct", "nov", "dec"};
    return word.size() == 3 && months.contains(word.toByteArray().toLower());
}

/// "1" to "31"
bool isDay(QByteArrayView word)
{
    const int day = word.size() <= 2 ? word.toByteArray().toInt() : 0;
    return day >= 1 && day <= 31;
}

/// "12:00" or "2026"
bool isTimeOrYear(QByteArrayView word)
{
    return beginsWithDigit(word) && (word.size() == 4 || word.contains(':'));
}

/// "2026-01-31"
bool isIsoDate(QByteArrayView word)
{
    return word.size() == 10 && word[4] == '-' && word[7] == '-' && isAsciiDigit(word[0]) &&
           isAsciiDigit(word[9]);
}

bool isUnix(QByteArrayView line)
{
    return line.size() > 10 && std::strchr("-dlbcpsDP", line[0]) && line[0] != '\0' &&
           std::all_of(line.begin() + 1, line.begin() + 10,
                       [](char mark) { return mark != '\0' && std::strchr("rwxsStTlL-", mark); });
}

/// The name is behind the date, "Jan 31 12:00" or "2026-01-31 12:00", since owner or group may be missing
/// before it. Without a date that is understood it is the ninth word.
QByteArrayView unixName(QByteArrayView line)
{
    const QList<Word> words = wordsOf(line, 10);
    for (qsizetype i = 2; i + 1 < words.size(); ++i) {
        if (isIsoDate(words[i].text) && beginsWithDigit(words[i + 1].text))
            return behind(line, words[i + 1].end);
        if (i + 2 < words.size() && beginsWithDigit(words[i - 1].text) && isMonth(words[i].text) &&
            isDay(words[i + 1].text) && isTimeOrYear(words[i + 2].text))
            return behind(line, words[i + 2].end);
    }
    return words.size() >= 9 ? behind(line, words[7].end) : QByteArrayView();
}

QByteArray unixRow(QByteArrayView line)
{
    QByteArrayView name = unixName(line);
    bool isFolder = line[0] == 'd';
    const qsizetype arrow = line[0] == 'l' ? name.indexOf(" -> ") : -1;
    if (arrow >= 0) {
        isFolder = name.endsWith('/');
        name = name.first(arrow);
    }
    return rowOf(name, isFolder);
}

/// "01-31-26  12:00PM       <DIR>          name" or with a size in place of "<DIR>".
QByteArray dosRow(QByteArrayView line)
{
    const QList<Word> words = wordsOf(line, 4);
    if (words.size() < 4 || (words[2].text != "<DIR>" && !beginsWithDigit(words[2].text)))
        return {};
    const bool isFolder = words[2].text == "<DIR>";
    return rowOf(isFolder ? line.sliced(words[3].end - words[3].text.size()) : behind(line, words[2].end),
                 isFolder);
}

bool isDos(QByteArrayView line)
{
    return line.size() > 8 && isAsciiDigit(line[0]) && isAsciiDigit(line[1]) && line[2] == '-' &&
           isAsciiDigit(line[3]);
}

QByteArray easyRow(QByteArrayView line)
{
    const qsizetype tab = line.indexOf('\t');
    if (tab < 0)
        return {};
    const QByteArrayView facts = line.sliced(1, tab - 1);
    return rowOf(line.sliced(tab + 1), facts.startsWith("/,") || facts.indexOf(",/,") >= 0);
}

} // namespace

QByteArray FtpListingLine::machineRow(QByteArrayView line)
{
    const qsizetype blank = line.indexOf(' ');
    if (blank < 0)
        return {};
    const QByteArray facts = line.first(blank).toByteArray().toLower();
    if (!facts.isEmpty() && !facts.contains('='))
        return {};
    const qsizetype begin = facts.startsWith("type=") ? 0 : facts.indexOf(";type=") + 1;
    QByteArrayView type = QByteArrayView(facts).sliced(begin);
    type = type.first(std::max<qsizetype>(type.indexOf(';'), 0));
    return rowOf(line.sliced(blank + 1), type == "type=dir" || type == "type=cdir" || type == "type=pdir");
}

QByteArray FtpListingLine::row(QByteArrayView line)
{
    if (line.startsWith('+'))
        return easyRow(line);
    if (isDos(line))
        return dosRow(line);
    return isUnix(line) ? unixRow(line) : QByteArray();
}
