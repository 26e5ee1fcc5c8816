#include "DateText.h"

#include <QRegularExpression>
#include <array>

namespace {

constexpr qsizetype isoLength = 10;

/// Not those of a locale: some end in a point or have four letters.
constexpr std::array months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// 0 where there is none of this name.
int monthNumber(const QString &name)
{
    for (size_t i = 0; i < months.size(); ++i) {
        if (name.compare(QLatin1String(months[i]), Qt::CaseInsensitive) == 0)
            return int(i) + 1;
    }
    return 0;
}

std::optional<QDate> valid(QDate date)
{
    return date.isValid() ? std::optional(date) : std::nullopt;
}

/// "1999-09-05". By hand, since every date of every row passes here.
template<class View>
std::optional<QDate> fromIso(View text)
{
    if (text.size() != isoLength)
        return {};
    int numbers[] = {0, 0, 0};
    int field = 0;
    for (qsizetype i = 0; i < isoLength; ++i) {
        const QChar letter(text[i]);
        const bool isSeparator = i == 4 || i == 7;
        if (isSeparator ? letter != u'-' : letter < u'0' || letter > u'9')
            return {};
        if (isSeparator)
            ++field;
        else
            numbers[field] = numbers[field] * 10 + letter.unicode() - u'0';
    }
    return valid({numbers[0], numbers[1], numbers[2]});
}

/// \a number with leading zeros; by hand for the same reason.
void putDigits(QString &text, qsizetype place, int count, int number)
{
    for (int i = count - 1; i >= 0; --i, number /= 10)
        text[place + i] = QChar(u'0' + number % 10);
}

} // namespace

std::optional<QDate> DateText::parse(const QString &text)
{
    const QString date = text.trimmed();
    if (const auto found = fromIso(QStringView(date)))
        return found;
    static const QRegularExpression named(QStringLiteral("\\A([0-9]{1,2})-([A-Za-z]{3})-([0-9]{4})\\z"));
    const auto found = named.match(date);
    if (!found.hasMatch())
        return {};
    return valid({found.captured(3).toInt(), monthNumber(found.captured(2)), found.captured(1).toInt()});
}

std::optional<QDate> DateText::parseStored(const QString &text)
{
    const bool hasTime = text.size() > isoLength && (text[isoLength] == u' ' || text[isoLength] == u'T');
    return parse(hasTime ? text.left(isoLength) : text);
}

std::optional<QDate> DateText::parseStored(QByteArrayView utf8)
{
    const auto found = fromIso(QLatin1String(utf8.data(), utf8.size()));
    return found ? found : parseStored(QString::fromUtf8(utf8));
}

QString DateText::show(QDate date)
{
    QString text(11, u'-');
    putDigits(text, 0, 2, date.day());
    const char *month = months[size_t(date.month()) - 1];
    for (int i = 0; i < 3; ++i)
        text[3 + i] = QLatin1Char(month[i]);
    putDigits(text, 7, 4, date.year());
    return text;
}

QString DateText::store(QDate date)
{
    return date.toString(Qt::ISODate);
}
