#pragma once

#include <QtGlobal>

/// Dates and times as archives have them: two 16-bit numbers, in local time, two seconds fine.
namespace DosTime {

inline int year(quint16 date)
{
    return 1980 + (date >> 9);
}
inline int month(quint16 date)
{
    return (date >> 5) & 15;
}
inline int day(quint16 date)
{
    return date & 31;
}
inline int hour(quint16 time)
{
    return time >> 11;
}
inline int minute(quint16 time)
{
    return (time >> 5) & 63;
}
inline int second(quint16 time)
{
    return (time & 31) * 2;
}

/// Seconds since 1970; months and days that no calendar has are counted on.
qint64 toSeconds(quint16 date, quint16 time);

} // namespace DosTime
