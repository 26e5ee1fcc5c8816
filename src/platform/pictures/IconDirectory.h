#pragma once

#include <QByteArrayView>

/// The list of pictures at the beginning of an icon or a cursor file.
namespace IconDirectory {

bool isIcon(QByteArrayView file);
bool isCursor(QByteArrayView file);

/// The number of the largest picture, of equally large icons the one of most colours. \a file is an icon or a
/// cursor.
int largest(QByteArrayView file);

} // namespace IconDirectory
