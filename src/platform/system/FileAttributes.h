#pragma once

#include <QString>

/// A file's attributes as bits. On Linux they are kept so that a file server for other desktops gives them to
/// its clients: Read-Only is the lack of all permissions to write, Hidden, System, Archive and Temporary are
/// in an extended attribute, which not all file systems have. NTFS has them itself.
namespace FileAttributes {

enum Bit {
    ReadOnly = 1,
    Hidden = 2, ///< also a name that begins with a dot, or is in the folder's list ".hidden"
    System = 4,
    Volume = 8, ///< no file here is one
    Directory = 16,
    Archive = 32,
    Alias = 64, ///< a symbolic link; the other bits are its target's
    Temporary = 256,
    Compressed = 2048, ///< by the file system
};

/// The attributes of \a path. Throws RuntimeError 53 or 76 when it is missing, 70 when its folder may not be
/// searched.
int of(const QString &path);

/// Sets Read-Only, Hidden, System, Archive and Temporary of \a path to those that \a bits has; what makes it
/// hidden by its name stays. Permissions to write that Read-Only takes away come back with it.
/// Throws RuntimeError 70 for a file of another user, and others; Read-Only may be set by then, the file
/// itself is unchanged.
void set(const QString &path, int bits);

/// Gives the open file \a to what set() keeps of the open file \a from beside its permissions, as far as its
/// file system can.
void copyKept(int from, int to);

} // namespace FileAttributes
