#include "VCardProperty.h"

#include "PlainText.h"

namespace {

/// The parts of \a text between separators that are not in double quotes.
QStringList splitOutsideQuotes(const QString &text, QChar separator)
{
    QStringList parts(QString{});
    bool isQuoted = false;
    for (const QChar c : text) {
        if (c == u'"')
            isQuoted = !isQuoted;
        else if (c == separator && !isQuoted)
            parts.append(QString());
        else
            parts.last().append(c);
    }
    return parts;
}

/// The colon that ends the name and the parameters; -1 where there is none.
qsizetype endOfHead(const QByteArray &line)
{
    bool isQuoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            isQuoted = !isQuoted;
        else if (line[i] == ':' && !isQuoted)
            return i;
    }
    return -1;
}

int hexDigit(char c)
{
    return QByteArrayView("0123456789ABCDEF").indexOf(QChar::fromLatin1(c).toUpper().toLatin1());
}

QByteArray fromQuotedPrintable(const QByteArray &value)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == '=' && i + 2 < value.size() && hexDigit(value[i + 1]) >= 0 &&
                              hexDigit(value[i + 2]) >= 0;
        bytes += isEscape ? char(hexDigit(value[i + 1]) * 16 + hexDigit(value[i + 2])) : value[i];
        i += isEscape ? 2 : 0;
    }
    return bytes;
}

/// A line end in quoted-printable is part of the text, so it is written as other values have it.
QString decoded(const QByteArray &value, bool isQuotedPrintable)
{
    if (!isQuotedPrintable)
        return PlainText::decode(value);
    return PlainText::decode(fromQuotedPrintable(value)).replace(u'\n', QLatin1String("\\n"));
}

void addParameter(VCardProperty &property, const QString &parameter)
{
    const qsizetype equals = parameter.indexOf(u'=');
    const QString name = equals < 0 ? QStringLiteral("TYPE") : parameter.left(equals).trimmed().toUpper();
    const QString value = parameter.mid(equals + 1);
    if (name == u"TYPE")
        property.types += value.toLower().split(u',', Qt::SkipEmptyParts);
    property.parameters[name] = value;
}

} // namespace

VCardProperty VCardProperty::parse(const QByteArray &line)
{
    VCardProperty property;
    const qsizetype end = endOfHead(line);
    if (end < 0)
        return property;
    const QStringList head = splitOutsideQuotes(PlainText::decode(line.left(end)), u';');
    property.name = head.constFirst().section(u'.', -1).trimmed().toUpper();
    for (const QString &parameter : head.mid(1))
        addParameter(property, parameter);
    const bool isQuotedPrintable = property.parameters.value(QStringLiteral("ENCODING"))
                                           .compare(u"QUOTED-PRINTABLE", Qt::CaseInsensitive) == 0 ||
                                   property.types.contains(QLatin1String("quoted-printable"));
    property.value = decoded(line.mid(end + 1), isQuotedPrintable);
    return property;
}
