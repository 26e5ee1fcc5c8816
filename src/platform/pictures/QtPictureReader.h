#pragma once

#include <QByteArray>
#include <QImage>
#include <QImageIOHandler>

class QIODevice;

/// Pictures that one of Qt's readers reads.
namespace QtPictureReader {

struct Result
{
    QImage pixels;
    QImageIOHandler::Transformations turning; ///< that makes the pixels upright
};

/// The first picture of \a file, a device of random access at its begin, by the reader of Qt's \a format; no
/// other reader sees the bytes. Throws RuntimeError 481 when it cannot be read or takes more than
/// \a mostBytes.
Result read(QIODevice &file, const char *format, qint64 mostBytes);
Result read(const QByteArray &file, const char *format, qint64 mostBytes);

} // namespace QtPictureReader
