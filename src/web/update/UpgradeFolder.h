#pragma once

#include <QByteArray>
#include <QString>

/// The folder beside the program that takes what the update server sends. It has to exist: nothing here makes
/// it. The functions throw RuntimeError as Files does where nothing else is said; names that do not name a
/// file of the folder itself are error 52.
namespace UpgradeFolder {

/// Its native path without a trailing separator.
QString path();

/// Removes its files, but for hidden ones. Folders stay, and so does what cannot be removed.
void clear() noexcept;

/// Writes \a bytes to the file \a name; a link of this name is replaced.
void write(const QString &name, const QByteArray &bytes);

/// The length of the file \a name in bytes.
qint64 length(const QString &name);

/// Unpacks the file \a name, a zip archive, into the folder, the files of its folders too. Returns a
/// UnzipResult.
int unpack(const QString &name);

} // namespace UpgradeFolder
