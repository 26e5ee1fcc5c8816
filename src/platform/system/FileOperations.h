#pragma once

#include <QString>

/// Single files copied and deleted. Paths are native.
namespace FileOperations {

/// Copies the regular file \a from to \a to, with its time, its permissions and its attributes. A file that
/// is there is replaced, a link keeps its target. The copy has its name only when it is on the disk: after
/// any failure an old file is unchanged and nothing is left beside it.
///
/// Throws RuntimeError: 53 when \a from is missing; 70 when it may not be read, \a to may not be written, or
/// both are the same file; 61 on a full disk; 76 when the folder is missing; 75 when either is a folder, a
/// device or a pipe.
void copy(const QString &from, const QString &to);

/// Deletes the file \a path; of a link the link alone. Throws RuntimeError: 53 when it is missing, 70 without
/// permission, 75 when it is a folder.
void remove(const QString &path);

} // namespace FileOperations
