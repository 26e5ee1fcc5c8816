#include "WmfImage.h"

#include "BitmapReader.h"
#include "DeviceIndependentBitmap.h"
#include "RuntimeError.h"

QImage WmfImage::of(WmfCanvas &canvas, QByteArrayView bitmap)
{
    constexpr qint64 mostPixels = 16 * 1024 * 1024;
    constexpr qint64 stepsToTheBitmap = 5000;
    constexpr qint64 stepsToThePixel = 2;
    if (!DeviceIndependentBitmap::recognises(bitmap))
        return {};
    const QSize size = DeviceIndependentBitmap::size(bitmap);
    const qint64 pixels = qint64(size.width()) * size.height();
    if (pixels > mostPixels || !canvas.work().take(stepsToTheBitmap + stepsToThePixel * pixels))
        return {};
    try {
        return BitmapReader::read(DeviceIndependentBitmap::file(bitmap), mostPixels * qint64(sizeof(QRgb)));
    } catch (const RuntimeError &) {
        return {};
    }
}
