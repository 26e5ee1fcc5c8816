#pragma once

#include <QStringList>

/// What a folder holds, in the order that a user expects: by the rules of the locale, without regard
/// to case, "page 9" before "page 10". Names are as FileNames has them.
///
/// The functions throw RuntimeError: 76 when \a path is no folder or is not absolute, 70 when it may not be
/// read, 57 or 75 when reading fails.
namespace Folder {

enum class Hidden { Skip, Include }; ///< what happens to names that begin with a dot

/// The folders in \a path, and the links to folders; neither "." nor "..".
QStringList subfolders(const QString &path, Hidden hidden);

/// Everything else in \a path, broken links too.
QStringList files(const QString &path, Hidden hidden);

/// True when the folder \a path can be listed and entered.
bool canOpen(const QString &path);

/// \a path followed by \a name.
QString join(const QString &path, const QString &name);

} // namespace Folder
