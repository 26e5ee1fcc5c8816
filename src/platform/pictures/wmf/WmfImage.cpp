#include "WmfImage.h"

#include "DeviceIndependentBitmap.h"

#include <QBuffer>
#include <QImageReader>

QImage WmfImage::of(WmfCanvas &canvas, QByteArrayView bitmap)
{
    constexpr qint64 mostPixels = 16 * 1024 * 1024;
    constexpr qint64 stepsToTheBitmap = 5000;
    constexpr qint64 stepsToThePixel = 2;
    QByteArray file = DeviceIndependentBitmap::file(bitmap);
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "bmp");
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    const qint64 pixels = qint64(size.width()) * size.height();
    if (!size.isValid() || pixels > mostPixels ||
        !canvas.work().take(stepsToTheBitmap + stepsToThePixel * pixels))
        return {};
    return reader.read();
}
