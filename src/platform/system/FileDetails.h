#pragma once

#include <QDateTime>

/// What the system knows of a file.
struct FileDetails
{
    qint64 length = 0;  ///< bytes
    QDateTime modified; ///< local time

    /// Of \a path, or of what it links to. Throws RuntimeError 53 or 76 when it is missing, 70 when its
    /// folder may not be searched.
    static FileDetails of(const QString &path);
};
