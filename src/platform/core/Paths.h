#pragma once

#include <QString>

/// The program's folder, its file names, and the suite's folder for what it remembers.
namespace Paths {

/// The application title; it keys the settings store and titles boxes that name no title of their own.
inline const QString applicationTitle = QStringLiteral("QuillOfficeToolsv2");

/// The program's folder without a trailing separator: the folder of the executable where the suite's data
/// is beside it, else the per-user data folder that the launcher of an installed package fills.
QString appPath();
/// Puts another folder in its place, for tests; an empty text puts the real one back.
void setAppPath(const QString &path);

/// \a name, in which "\" may separate, as a path of this system. Used at the moment a file is touched and
/// only on names that the suite made itself: what a dialog returned is native already.
QString native(const QString &name);

/// The suite's folder below the user's state folder, without a trailing separator. It need not exist.
QString stateFolder();
/// Makes it where it is missing, for its user alone. A failure shows when a file in it is made.
void makeStateFolder();

} // namespace Paths
