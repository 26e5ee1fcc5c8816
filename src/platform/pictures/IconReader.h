#pragma once

#include <QByteArrayView>
#include <QImage>

/// Icons and cursors. Each of their pictures is a PNG file, or a bitmap and behind it a mask that says where
/// it is clear. Qt's own reader of them does not use the mask of a bitmap of 24 bits.
namespace IconReader {

/// The largest picture of \a file, which is an icon or a cursor.
/// Throws RuntimeError 481 when it is damaged, or takes more than \a mostBytes.
QImage read(QByteArrayView file, qint64 mostBytes);

} // namespace IconReader
