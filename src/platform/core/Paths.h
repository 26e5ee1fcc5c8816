#pragma once

#include <QString>

/// The program's folder and its file names.
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

} // namespace Paths
