#include "IconReader.h"

#include "BitmapReader.h"
#include "DeviceIndependentBitmap.h"
#include "IconDirectory.h"
#include "QtPictureReader.h"
#include "RuntimeError.h"

#include <QtEndian>

namespace {

/// The bytes of a row of so many \a bits, which is filled up to whole words of four bytes.
qint64 rowBytes(qint64 bits)
{
    return (bits + 31) / 32 * 4;
}

/// A picture's parts, all of them in the file.
struct IconBitmap
{
    static IconBitmap of(QByteArrayView picture);

    int width;
    int height;
    int depth;
    QByteArrayView rows; ///< from below
    QByteArrayView mask; ///< the same; empty where the file ends before it
};

IconBitmap IconBitmap::of(QByteArrayView picture)
{
    constexpr qint64 infoHeaderSize = 40;
    const auto number = [&](qsizetype at) { return qFromLittleEndian<qint32>(picture.data() + at); };
    if (!DeviceIndependentBitmap::recognises(picture) || number(0) != infoHeaderSize || number(16) != 0)
        throw RuntimeError(ErrorNumber::InvalidPicture);
    // The height is that of both.
    IconBitmap bitmap{number(4), number(8) / 2, qFromLittleEndian<quint16>(picture.data() + 14), {}, {}};
    const qint64 offset = DeviceIndependentBitmap::pixelOffset(picture);
    const qint64 row = rowBytes(qint64(bitmap.width) * bitmap.depth);
    const qint64 left = picture.size() - offset;
    if (bitmap.width <= 0 || bitmap.height <= 0 || left < row || left / row < bitmap.height)
        throw RuntimeError(ErrorNumber::InvalidPicture);
    bitmap.rows = picture.sliced(offset, row * bitmap.height);
    const qint64 maskSize = rowBytes(bitmap.width) * bitmap.height;
    const QByteArrayView rest = picture.sliced(offset + bitmap.rows.size());
    if (rest.size() >= maskSize)
        bitmap.mask = rest.first(maskSize);
    return bitmap;
}

/// Qt gives a bitmap's fourth byte no meaning.
QImage withFourthByte(const IconBitmap &bitmap)
{
    QImage image(bitmap.width, bitmap.height, QImage::Format_ARGB32);
    if (image.isNull())
        throw RuntimeError(ErrorNumber::OutOfMemory);
    const qsizetype row = bitmap.rows.size() / bitmap.height;
    QRgb any = 0;
    for (int y = 0; y < bitmap.height; ++y) {
        QRgb *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        qFromLittleEndian<quint32>(bitmap.rows.data() + row * (bitmap.height - 1 - y), bitmap.width, line);
        for (const QRgb *pixel = line; pixel < line + bitmap.width; ++pixel)
            any |= *pixel;
    }
    if (qAlpha(any) == 0)
        image.reinterpretAsFormat(QImage::Format_RGB32); // not used: the mask counts
    return image;
}

QImage colorsOf(QByteArrayView picture, const IconBitmap &bitmap, qint64 mostBytes)
{
    constexpr int withAlpha = 32;
    if (bitmap.depth == withAlpha)
        return withFourthByte(bitmap);
    QByteArray alone = picture.toByteArray();
    qToLittleEndian<qint32>(bitmap.height, alone.data() + 8);
    return BitmapReader::read(DeviceIndependentBitmap::file(alone), mostBytes);
}

QImage masked(const QImage &colors, const IconBitmap &bitmap)
{
    QImage image = colors.convertToFormat(QImage::Format_RGB32).convertToFormat(QImage::Format_ARGB32);
    const qsizetype row = rowBytes(bitmap.width);
    for (int y = 0; y < bitmap.height; ++y) {
        const char *const bits = bitmap.mask.data() + row * (bitmap.height - 1 - y);
        QRgb *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < bitmap.width; ++x)
            line[x] = bits[x / 8] & (0x80 >> x % 8) ? 0 : line[x] | 0xFF000000;
    }
    return image;
}

} // namespace

QImage IconReader::read(QByteArrayView file, qint64 mostBytes)
{
    const QByteArrayView picture = IconDirectory::largest(file);
    if (picture.startsWith("\x89PNG\r\n"))
        return QtPictureReader::read(picture.toByteArray(), "png", mostBytes).pixels;
    const IconBitmap bitmap = IconBitmap::of(picture);
    const QImage colors = colorsOf(picture, bitmap, mostBytes);
    return colors.hasAlphaChannel() || bitmap.mask.isEmpty() ? colors : masked(colors, bitmap);
}
