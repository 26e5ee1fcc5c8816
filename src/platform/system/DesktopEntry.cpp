#include "DesktopEntry.h"

namespace {

constexpr QLatin1String reserved(" \t\n\r\"'\\><~|&;$*?#()`");
constexpr QLatin1String escapedInQuotes("\"`$\\");

QString unescaped(QStringView text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            plain += text[i];
            continue;
        }
        switch (text[++i].unicode()) {
        case u's':
            plain += u' ';
            break;
        case u'n':
            plain += u'\n';
            break;
        case u't':
            plain += u'\t';
            break;
        case u'r':
            plain += u'\r';
            break;
        case u'\\':
            plain += u'\\';
            break;
        default:
            plain += u'\\';
            plain += text[i];
        }
    }
    return plain;
}

/// The words of an Exec key; empty when a quotation does not end.
QStringList wordsOf(const QString &exec)
{
    QStringList words;
    QString word;
    bool inWord = false;
    bool inQuotes = false;
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar sign = exec[i];
        if (sign == u'"') {
            inQuotes = !inQuotes;
            inWord = true;
        } else if (sign == u'\\' && inQuotes && i + 1 < exec.size()) {
            word += exec[++i];
        } else if (sign.isSpace() && !inQuotes) {
            if (inWord)
                words << word;
            word.clear();
            inWord = false;
        } else {
            word += sign;
            inWord = true;
        }
    }
    if (inWord)
        words << word;
    return inQuotes ? QStringList() : words;
}

} // namespace

DesktopEntry DesktopEntry::parse(const QByteArray &bytes)
{
    DesktopEntry entry;
    bool inGroup = false;
    for (const QByteArray &line : bytes.split('\n')) {
        const QString text = QString::fromUtf8(line).trimmed();
        const qsizetype equals = text.indexOf(u'=');
        if (text.startsWith(u'['))
            inGroup = text == QLatin1String("[Desktop Entry]");
        else if (inGroup && equals > 0 && !text.startsWith(u'#'))
            entry.m_texts.insert(text.left(equals).trimmed(),
                                 unescaped(QStringView(text).mid(equals + 1).trimmed()));
    }
    return entry;
}

QStringList DesktopEntry::command() const
{
    QStringList command;
    for (const QString &word : wordsOf(text(QStringLiteral("Exec")))) {
        const bool isPlace = word.size() == 2 && word[0] == u'%' && word[1] != u'%' && word[1] != u'c';
        if (!isPlace)
            command << withoutFieldCodes(word);
    }
    return command;
}

QString DesktopEntry::withoutFieldCodes(const QString &word) const
{
    QString plain;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word[i] != u'%' || i + 1 == word.size())
            plain += word[i];
        else if (word[++i] == u'%')
            plain += u'%';
        else if (word[i] == u'c')
            plain += text(QStringLiteral("Name"));
    }
    return plain;
}

QString DesktopEntry::escaped(const QString &text)
{
    QString line = text;
    return line.replace(u'\\', QLatin1String("\\\\"))
        .replace(u'\n', QLatin1String("\\n"))
        .replace(u'\r', QLatin1String("\\r"))
        .replace(u'\t', QLatin1String("\\t"));
}

QString DesktopEntry::execWord(const QString &argument)
{
    QString word;
    bool quoted = argument.isEmpty();
    for (const QChar sign : argument) {
        quoted |= reserved.contains(sign);
        if (escapedInQuotes.contains(sign))
            word += u'\\';
        word += sign;
        if (sign == u'%')
            word += u'%';
    }
    return quoted ? u'"' + word + u'"' : word;
}
