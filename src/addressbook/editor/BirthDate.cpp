#include "BirthDate.h"

#include "DateText.h"

QString BirthDate::tidied(const QString &text)
{
    return shown(DateText::parse(text));
}

QString BirthDate::shown(const std::optional<QDate> &date)
{
    return date ? DateText::show(*date) : QString();
}
