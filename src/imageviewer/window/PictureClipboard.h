#pragma once

#include <QImage>

/// Pictures on the clipboard, as bitmaps that do not depend on a device.
namespace PictureClipboard {

/// Replaces what is there. Throws RuntimeError 481 for a null image.
void put(const QImage &picture);

/// Throws RuntimeError 481 when there is no picture.
QImage get();

} // namespace PictureClipboard
