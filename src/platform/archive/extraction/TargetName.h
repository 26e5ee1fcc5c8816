#pragma once

#include "ArchiveEntry.h"

/// Where an entry is extracted to: a folder below the target, and the name of a file in it.
struct TargetName
{
    enum Option { UseFolders = 1, SpaceToUnderscore = 2 };

    QByteArray folder; ///< its names separated by "/"; empty for the target itself
    QByteArray name;   ///< empty where the entry is a folder

    /// Root, drive and "." of the entry's name are dropped. Throws BadArchive for a name that contains "..",
    /// or is none. \a options are those of Option.
    static TargetName of(const ArchiveEntry &entry, int options);

    QByteArray path() const
    {
        return folder.isEmpty() || name.isEmpty() ? folder + name : folder + '/' + name;
    }
};
