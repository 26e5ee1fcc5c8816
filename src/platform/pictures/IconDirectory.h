#pragma once

#include <QByteArrayView>

/// The list of pictures at the beginning of an icon or a cursor file.
namespace IconDirectory {

bool isIcon(QByteArrayView file);
bool isCursor(QByteArrayView file);

/// The bytes of the largest picture, of equally large icons the one of most colours. \a file is an icon or a
/// cursor. Empty where they are not in the file.
QByteArrayView largest(QByteArrayView file);

} // namespace IconDirectory
