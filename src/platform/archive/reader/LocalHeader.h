#pragma once

#include "ArchiveEntry.h"
#include "FileWindow.h"

/// The header before an entry's data. It repeats what the directory says; the directory is what counts.
namespace LocalHeader {

inline constexpr qint64 leastSize = 30;

/// Where the data of \a entry begins. Throws BadArchive where there is no header, or one of another name or
/// method: which of both a program believes must not matter. Throws FileFailure.
qint64 dataOffset(const FileDescriptor &file, const ArchiveEntry &entry);

} // namespace LocalHeader
