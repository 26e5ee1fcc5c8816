#pragma once

#include <QString>

/// The texts of the commands that the window sends. Names are as FileNames has them and are taken as they
/// are, a folder's with its "/".
namespace FtpCommand {

inline const QString list = QStringLiteral("DIR");
inline const QString folderUp = QStringLiteral("CDUP");
inline const QString close = QStringLiteral("CLOSE");

QString openFolder(const QString &name);
QString makeFolder(const QString &name);
QString removeFolder(const QString &name);
QString removeFile(const QString &name);
QString rename(const QString &name, const QString &newName);
QString size(const QString &name);
/// \a folder is the local folder.
QString receive(const QString &name, const QString &folder);
QString send(const QString &name, const QString &folder);

} // namespace FtpCommand
