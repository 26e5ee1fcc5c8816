#pragma once

#include "Descriptor.h"

#include <QByteArray>
#include <QString>

/// Whole files, read and written in one piece. Paths are native.
namespace Files {

/// The bytes of the regular file \a path. Throws RuntimeError as open does, and 57 or 7 when reading fails.
QByteArray read(const QString &path);

/// The regular file \a path, open for reading, for one that is too large to be held in memory beside what it
/// becomes. Throws RuntimeError: 53 when it is missing, 70 when it may not be read, 75 when it is a folder, a
/// device or a pipe.
Descriptor open(const QString &path);

/// Replaces \a path by \a bytes: written beside it, synced and renamed over it, so that after any failure
/// the old file is unchanged and nothing is left beside it. Permissions of the old file are kept, and a
/// symbolic link keeps its target.
/// Throws RuntimeError: 61 on a full disk, 70 without permission for the file or for its folder, 76 when the
/// folder is missing, 75 when \a path is a folder or a device.
void write(const QString &path, const QByteArray &bytes);

/// As write, but not synced, for a file that can be made again: after a loss of power it may be empty.
void writeWithoutSync(const QString &path, const QByteArray &bytes);

/// As write, but only the user may read the new file, whatever the old one's permissions were.
void writePrivate(const QString &path, const QByteArray &bytes);

/// As write, for a caller that holds a lock against all other writers of \a path: the new bytes are in
/// "PATH.new" meanwhile, so that what killed processes leave behind is one file, which the next write takes.
/// The name of \a path must be four bytes shorter than the limit.
void writeLocked(const QString &path, const QByteArray &bytes);

/// The name of the file that writing \a path replaces: what a link points to, else \a path itself. Throws
/// RuntimeError 70 or 75 where a link leads nowhere.
QByteArray targetOf(const QString &path);

} // namespace Files
