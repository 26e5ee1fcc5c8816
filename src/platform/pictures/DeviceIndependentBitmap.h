#pragma once

#include <QByteArray>
#include <QSize>

/// Bitmaps as they are in metafiles and on the clipboard: a bitmap file without the header of a file.
namespace DeviceIndependentBitmap {

/// Whether \a bytes begin with a bitmap's own header that is in order.
bool recognises(QByteArrayView bytes);

/// In pixels, as \a bitmap says; recognises() has to be true.
QSize size(QByteArrayView bitmap);
/// Where the pixels of \a bitmap begin, if it is as long as its header says. recognises() has to be true.
qint64 pixelOffset(QByteArrayView bitmap);

/// The file that \a bitmap is without its header. Empty where recognises() is false.
QByteArray file(QByteArrayView bitmap);

} // namespace DeviceIndependentBitmap
