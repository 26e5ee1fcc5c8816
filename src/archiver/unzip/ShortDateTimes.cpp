#include "ShortDateTimes.h"

ShortDateTimes::ShortDateTimes(const QLocale &locale)
    : m_locale(locale)
{}

QString ShortDateTimes::text(const QDateTime &moment)
{
    constexpr int minutesOfHour = 60;
    const QDate date = moment.date();
    const QTime time = moment.time();
    QString &day = m_days[date.toJulianDay()];
    if (day.isNull())
        day = m_locale.toString(date, QLocale::ShortFormat);
    QString &minute = m_minutes[time.hour() * minutesOfHour + time.minute()];
    if (minute.isNull())
        minute = m_locale.toString(time, QLocale::ShortFormat);
    return day + u' ' + minute;
}
