#include "TextSearch.h"

#include "FindFlag.h"

#include <algorithm>

namespace {

qsizetype findDown(const QString &text, int from, const QString &wanted)
{
    const qsizetype found = text.indexOf(wanted, from);
    return found < 0 && from > 0 ? text.indexOf(wanted) : found;
}

/// The last one that ends at or before \a end.
qsizetype lastBefore(const QString &text, qsizetype end, const QString &wanted)
{
    const qsizetype from = qMin(end, text.size()) - wanted.size();
    return from < 0 ? -1 : text.lastIndexOf(wanted, from);
}

qsizetype findUp(const QString &text, int from, const QString &wanted)
{
    const qsizetype found = lastBefore(text, from, wanted);
    return found < 0 ? lastBefore(text, text.size(), wanted) : found;
}

bool isWholeWord(const QString &text, int start, int end)
{
    return (start == 0 || TextSearch::isSeparator(text.at(start - 1))) &&
           (end == text.size() || TextSearch::isSeparator(text.at(end)));
}

TextSearch::Word wordAround(const QString &text, int caret)
{
    const auto length = int(text.size());
    // The character right of the caret is looked at on the way back only.
    int end = qMin(caret + 1, length);
    while (end < length && !TextSearch::isSeparator(text.at(end)))
        ++end;
    int stop = caret;
    while (stop > 0 && (stop == length || !TextSearch::isSeparator(text.at(stop))))
        --stop;
    const int first = TextSearch::isSeparator(text.at(stop)) ? stop + 1 : stop;
    // At the very start a separator is selected along with the word.
    return {text.mid(first, end - first), stop == 0 ? 0 : first, end};
}

QString withoutOuterBlanks(const QString &text)
{
    const auto isBlank = [](QChar c) { return c == u' '; };
    const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto last = std::find_if_not(text.rbegin(), std::make_reverse_iterator(first), isBlank).base();
    return QString(first, last - first);
}

} // namespace

std::optional<TextSearch::Hit> TextSearch::find(const QString &text, int start, int end,
                                                const QString &wanted, int flags)
{
    if (wanted.isEmpty())
        return {};
    const bool matchCase = flags & FindFlag::MatchCase;
    const QString searched = matchCase ? text : lowered(text);
    const QString pattern = matchCase ? wanted : lowered(wanted);
    const auto found =
        int(flags & FindFlag::Down ? findDown(searched, end, pattern) : findUp(searched, start, pattern));
    if (found < 0)
        return {};
    const auto foundEnd = int(found + wanted.size());
    const bool refused = (flags & FindFlag::WholeWord) && !isWholeWord(text, found, foundEnd);
    return Hit{refused ? 0 : found + 1, foundEnd};
}

TextSearch::Word TextSearch::wordAt(const QString &text, int start, int end)
{
    return start < end ? Word{withoutOuterBlanks(text.mid(start, end - start)), start, end}
                       : wordAround(text, start);
}

bool TextSearch::isSeparator(QChar c)
{
    switch (c.unicode()) {
    case ' ':
    case ',':
    case '.':
    case '\r':
    case '\n':
    case ':':
    case ';':
        return true;
    default:
        return false;
    }
}

QString TextSearch::lowered(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        QChar &c = text[i];
        if (!c.isSurrogate()) {
            c = c.toLower();
        } else if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            const char32_t lower = QChar::toLower(QChar::surrogateToUcs4(c, text.at(i + 1)));
            c = QChar(QChar::highSurrogate(lower));
            text[++i] = QChar(QChar::lowSurrogate(lower));
        }
    }
    return text;
}
