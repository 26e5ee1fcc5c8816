#pragma once

#include "ArchiveEntry.h"

#include <vector>

/// What an archive holds.
struct ArchiveDirectory
{
    std::vector<ArchiveEntry> entries; ///< in the order of the central directory
    QByteArray comment;
    qint64 prefix = 0; ///< the number of bytes before the archive, as a program that unpacks itself has them
    qint64 start = 0;  ///< of the central directory, from the start of the file
};
