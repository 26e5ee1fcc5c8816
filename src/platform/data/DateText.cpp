#include "DateText.h"

#include <QLocale>
#include <QRegularExpression>

namespace {

constexpr qsizetype storedLength = 10;

/// The C locale's names: those of others end in a point or have four letters here and there.
int monthNumber(const QString &name)
{
    for (int month = 1; month <= 12; ++month) {
        if (name.compare(QLocale::c().monthName(month, QLocale::ShortFormat), Qt::CaseInsensitive) == 0)
            return month;
    }
    return 0;
}

std::optional<QDate> valid(QDate date)
{
    return date.isValid() ? std::optional(date) : std::nullopt;
}

} // namespace

std::optional<QDate> DateText::parse(const QString &text)
{
    static const QRegularExpression named(QStringLiteral("\\A([0-9]{1,2})-([A-Za-z]{3})-([0-9]{4})\\z"));
    static const QRegularExpression iso(QStringLiteral("\\A([0-9]{4})-([0-9]{2})-([0-9]{2})\\z"));
    const QString date = text.trimmed();
    if (const auto found = named.match(date); found.hasMatch())
        return valid({found.captured(3).toInt(), monthNumber(found.captured(2)), found.captured(1).toInt()});
    if (const auto found = iso.match(date); found.hasMatch())
        return valid({found.captured(1).toInt(), found.captured(2).toInt(), found.captured(3).toInt()});
    return {};
}

std::optional<QDate> DateText::parseStored(const QString &text)
{
    const bool hasTime =
        text.size() > storedLength && (text[storedLength] == u' ' || text[storedLength] == u'T');
    return parse(hasTime ? text.left(storedLength) : text);
}

QString DateText::show(QDate date)
{
    return QLocale::c().toString(date, QStringLiteral("dd-MMM-yyyy"));
}

QString DateText::store(QDate date)
{
    return date.toString(Qt::ISODate);
}
