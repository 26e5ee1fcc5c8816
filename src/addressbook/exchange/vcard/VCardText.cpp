#include "VCardText.h"

#include "PlainText.h"

namespace {

constexpr qsizetype longestLine = 75; // bytes

bool isWithinCharacter(char byte)
{
    return (byte & 0xC0) == 0x80;
}

/// With "\n" for all line ends.
QByteArray plainBytes(const QByteArray &bytes)
{
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
        return PlainText::decode(bytes).toUtf8();
    QByteArray plain = bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
    return plain.replace("\r\n", "\n").replace('\r', '\n');
}

/// True for the first line of a value that goes on in the next line where it ends in "=".
bool isQuotedPrintable(const QByteArray &line)
{
    return line.left(qMax(line.indexOf(':'), 0)).toUpper().contains("QUOTED-PRINTABLE");
}

} // namespace

QString VCardText::escaped(const QString &text)
{
    QString value;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'\\' || c == u',' || c == u';')
            value.append(u'\\').append(c);
        else if (c == u'\n' || (c == u'\r' && !QStringView(text).sliced(i + 1).startsWith(u'\n')))
            value.append(QLatin1String("\\n"));
        else if (c >= u' ' || c == u'\t')
            value.append(c);
    }
    return value;
}

QString VCardText::unescaped(const QString &value)
{
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == u'\\' && i + 1 < value.size();
        const QChar c = value[isEscape ? ++i : i];
        text.append(isEscape && (c == u'n' || c == u'N') ? u'\n' : c);
    }
    return text;
}

QStringList VCardText::split(const QString &value, QChar separator)
{
    QStringList parts;
    qsizetype start = 0;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] == u'\\') {
            ++i;
        } else if (value[i] == separator) {
            parts.append(value.mid(start, i - start));
            start = i + 1;
        }
    }
    parts.append(value.mid(start));
    return parts;
}

QByteArray VCardText::folded(const QString &line)
{
    const QByteArray bytes = line.toUtf8();
    QByteArray lines;
    qsizetype room = longestLine;
    for (qsizetype start = 0; start < bytes.size();) {
        qsizetype end = qMin(start + room, bytes.size());
        while (end < bytes.size() && isWithinCharacter(bytes[end]))
            --end;
        lines += bytes.mid(start, end - start) + "\r\n";
        if (end < bytes.size())
            lines += ' ';
        room = longestLine - 1; // behind the blank
        start = end;
    }
    return lines;
}

QByteArrayList VCardText::unfolded(const QByteArray &bytes)
{
    QByteArrayList lines;
    bool hasSoftBreaks = false;
    for (const QByteArray &line : plainBytes(bytes).split('\n')) {
        const bool isFolded = line.startsWith(' ') || line.startsWith('\t');
        if (hasSoftBreaks && lines.constLast().endsWith('=')) {
            lines.last().chop(1);
            lines.last() += line;
        } else if (isFolded && !lines.isEmpty()) {
            lines.last() += line.mid(1);
        } else {
            lines.append(line);
            hasSoftBreaks = isQuotedPrintable(line);
        }
    }
    return lines;
}
