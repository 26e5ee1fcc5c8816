#pragma once

#include "PictureKind.h"

#include <QByteArray>
#include <QImage>
#include <QImageIOHandler>

/// Pictures that Qt's readers read: all kinds but metafiles and Targa files.
namespace QtPictureReader {

struct Result
{
    QImage pixels;
    QImageIOHandler::Transformations turning; ///< that makes the pixels upright
};

/// The first picture of \a file, of icons and cursors the largest. No reader but that of \a kind sees the
/// bytes. Throws RuntimeError 481 when it cannot be read or takes more than \a mostBytes.
Result read(const QByteArray &file, PictureKind kind, qint64 mostBytes);

} // namespace QtPictureReader
