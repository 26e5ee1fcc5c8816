#include "DosTime.h"

#include <ctime>

qint64 DosTime::toSeconds(quint16 date, quint16 time)
{
    std::tm local = {};
    local.tm_year = year(date) - 1900;
    local.tm_mon = month(date) - 1;
    local.tm_mday = day(date);
    local.tm_hour = hour(time);
    local.tm_min = minute(time);
    local.tm_sec = second(time);
    local.tm_isdst = -1;
    return std::mktime(&local);
}
