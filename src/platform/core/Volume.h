#pragma once

#include <QList>
#include <QString>

/// A place where files are: the whole file system, the home folder, or a drive or network share that is
/// mounted.
struct Volume
{
    enum class Kind { System, Home, Disk, Removable, Network };

    Kind kind;
    QString path; ///< as FileNames has it
    QString name; ///< as it is shown to the user

    /// Those of this moment. Asks no drive, so that one that does not answer holds nothing up.
    static QList<Volume> all();

    /// The volumes of \a mounts, the text of /proc/self/mounts. Mounts that are parts of the system, or on
    /// the way to \a home, are left out.
    static QList<Volume> of(const QByteArray &mounts, const QString &home);
};
