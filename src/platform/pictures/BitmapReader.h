#pragma once

#include <QByteArray>
#include <QImage>

class QIODevice;

/// Bitmap files, by Qt's reader; of those with 16 bits to the pixel it leaves white at 248 instead of 255.
namespace BitmapReader {

/// Throws RuntimeError 481 when \a file is damaged, or has a picture of more than \a mostBytes.
QImage read(const QByteArray &file, qint64 mostBytes);

/// As above, from a device of random access at its begin. Pixels that it fails to read are black.
QImage read(QIODevice &file, qint64 mostBytes);

} // namespace BitmapReader
