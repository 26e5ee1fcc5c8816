#pragma once

#include <QDateTime>
#include <QString>

/// One file of a listed archive.
struct ArchiveRecord
{
    QString Name;
    QString Folder; ///< separated by "\"; empty for a file without one
    qint32 Size = 0;
    qint32 Factor = 0; ///< the percentage saved
    QString Method;
    QDate Day;
    QTime Time;
    quint32 CRC = 0;
    bool Encrypted = false;
    bool Selected = true;

    /// Made when it is asked for: the system looks up the time zone of each.
    QDateTime Date() const { return QDateTime(Day, Time); }
};
