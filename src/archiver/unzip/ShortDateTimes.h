#pragma once

#include <QDateTime>
#include <QHash>
#include <QLocale>

/// Dates with times in the locale's short forms. The parts of a text are made once: archives have many files
/// of one day, and a locale takes longer for a text than all else of a row.
class ShortDateTimes
{
public:
    explicit ShortDateTimes(const QLocale &locale = {});

    /// The day, a blank and the time in hours and minutes; of an invalid moment the blank alone.
    QString text(const QDateTime &moment);

private:
    QLocale m_locale;
    QHash<qint64, QString> m_days; ///< by Julian day
    QHash<int, QString> m_minutes; ///< by minute of the day
};
