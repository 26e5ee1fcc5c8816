#pragma once

#include <QByteArray>
#include <QImage>

/// Bitmaps as they are in metafiles and on the clipboard: a bitmap file without the header of a file.
namespace DeviceIndependentBitmap {

/// Whether \a bytes begin with a bitmap's own header that is in order.
bool recognises(QByteArrayView bytes);

/// The file that \a bitmap is without its header. Empty where recognises() is false.
QByteArray file(QByteArrayView bitmap);

} // namespace DeviceIndependentBitmap
