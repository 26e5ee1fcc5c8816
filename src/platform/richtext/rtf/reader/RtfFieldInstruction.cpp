#include "RtfFieldInstruction.h"

#include <QStringList>

namespace {

/// Words parted by blanks; quotes hold a word together, "\\" in them is one backslash.
QStringList wordsOf(const QString &text)
{
    QStringList words;
    QString word;
    bool isQuoted = false;
    bool hasWord = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (isQuoted && c == u'\\' && i + 1 < text.size() &&
            (text.at(i + 1) == u'\\' || text.at(i + 1) == u'"')) {
            word.append(text.at(++i));
        } else if (c == u'"') {
            isQuoted = !isQuoted;
            hasWord = true;
        } else if (c.isSpace() && !isQuoted) {
            if (hasWord)
                words.append(word);
            word.clear();
            hasWord = false;
        } else {
            word.append(c);
            hasWord = true;
        }
    }
    if (hasWord)
        words.append(word);
    return words;
}

void parseLink(const QStringList &words, RtfFieldInstruction &field)
{
    QString bookmark;
    for (qsizetype i = 1; i < words.size(); ++i) {
        const QString &word = words.at(i);
        const bool hasValue =
            word == QLatin1String("\\l") || word == QLatin1String("\\o") || word == QLatin1String("\\t");
        if (word == QLatin1String("\\l"))
            bookmark = u'#' + words.value(i + 1);
        if (hasValue)
            ++i;
        else if (field.address.isEmpty() && !word.startsWith(u'\\'))
            field.address = word;
    }
    field.address += bookmark;
}

void parseSign(const QStringList &words, RtfFieldInstruction &field)
{
    constexpr int largest = 0xFFFF;
    bool isNumber = false;
    const int sign = words.value(1).toInt(&isNumber, 0);
    if (isNumber && sign > 0 && sign <= largest)
        field.sign = sign;
    const qsizetype font = words.indexOf(QLatin1String("\\f"));
    if (font > 0)
        field.font = words.value(font + 1);
}

} // namespace

RtfFieldInstruction RtfFieldInstruction::parse(const QString &text)
{
    RtfFieldInstruction field;
    const QStringList words = wordsOf(text);
    const QString name = words.value(0).toUpper();
    if (name == QLatin1String("HYPERLINK"))
        parseLink(words, field);
    else if (name == QLatin1String("SYMBOL"))
        parseSign(words, field);
    field.isPageNumber = name == QLatin1String("PAGE") || name == QLatin1String("NUMPAGES") ||
                         name == QLatin1String("SECTIONPAGES");
    return field;
}
