#pragma once

#include <QIcon>

/// Icons that are files of the program's folder.
namespace IconFile {

/// The icon in \a name, such as "\\city.ico", with all its sizes. Throws RuntimeError 53 where there is no
/// such file, 481 where it is no icon, and as Files::read does.
QIcon read(const QString &name);

} // namespace IconFile
