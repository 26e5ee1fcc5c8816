#include "RtfFieldInstruction.h"

#include <QDateTime>
#include <QLocale>
#include <QStringList>
#include <array>

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

struct Fact
{
    const char *field;
    RtfWord word;
};

constexpr std::array<Fact, 6> facts = {{{"AUTHOR", RtfWord::InfoAuthor},
                                        {"TITLE", RtfWord::InfoTitle},
                                        {"SUBJECT", RtfWord::InfoSubject},
                                        {"KEYWORDS", RtfWord::InfoKeywords},
                                        {"COMMENTS", RtfWord::InfoComment},
                                        {"NUMPAGES", RtfWord::InfoPages}}};

RtfWord factOf(const QString &name)
{
    for (const Fact &fact : facts) {
        if (name == QLatin1String(fact.field))
            return fact.word;
    }
    return RtfWord::Unknown;
}

/// The picture of a date or time as Qt has it, which differs in capitals and in the halves of a day.
QString pictureOf(QString picture)
{
    const QStringList parts = picture.split(u'\'');
    QStringList shown;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        QString part = parts.at(i);
        if (i % 2 == 0) {
            part.replace(u'D', u'd').replace(u'Y', u'y').replace(u'S', u's');
            part.replace(QLatin1String("am/pm"), QLatin1String("ap"), Qt::CaseInsensitive);
        }
        shown.append(part);
    }
    return shown.join(u'\'');
}

QString now(const QStringList &words, const QString &usual)
{
    const qsizetype at = words.indexOf(QLatin1String("\\@"));
    const QString picture = at < 0 ? usual : pictureOf(words.value(at + 1));
    return QLocale().toString(QDateTime::currentDateTime(), picture);
}

/// Behind the name of the macro, blanks included.
QString buttonText(const QString &instruction)
{
    return instruction.section(u' ', 2, -1, QString::SectionSkipEmpty).trimmed();
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
    if (name == QLatin1String("MACROBUTTON"))
        field.text = buttonText(text);
    else if (name == QLatin1String("DATE"))
        field.text = now(words, QLocale().dateFormat(QLocale::ShortFormat));
    else if (name == QLatin1String("TIME"))
        field.text = now(words, QLocale().timeFormat(QLocale::ShortFormat));
    field.isFileName = name == QLatin1String("FILENAME");
    field.fact = factOf(name);
    return field;
}
