#include "PictureFile.h"

#include "BitmapReader.h"
#include "DeviceIndependentBitmap.h"
#include "Files.h"
#include "IconReader.h"
#include "JpegScans.h"
#include "PictureKind.h"
#include "QtPictureReader.h"
#include "RuntimeError.h"
#include "TgaReader.h"
#include "WmfReader.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <limits>

namespace {

LoadedPicture jpeg(const QByteArray &bytes, qint64 mostBytes)
{
    constexpr int mostScans = 100;
    if (JpegScans::count(bytes) > mostScans)
        throw RuntimeError(ErrorNumber::InvalidPicture);
    const QtPictureReader::Result result = QtPictureReader::read(bytes, "jpeg", mostBytes);
    return LoadedPicture(result.pixels, result.turning);
}

/// A bitmap's file may be as large as the picture, so that it is not held in memory.
LoadedPicture bitmap(QFile &file, qint64 mostBytes)
{
    const QImage pixels = BitmapReader::read(file, mostBytes);
    if (file.error() != QFileDevice::NoError)
        throw RuntimeError(ErrorNumber::DeviceIoError);
    return LoadedPicture(pixels);
}

/// A bitmap file has no transparency. Blended by hand: a painter ends at 32,767 pixels.
QImage onWhite(const QImage &image)
{
    if (!image.hasAlphaChannel())
        return image;
    QImage blended = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (blended.isNull())
        throw RuntimeError(ErrorNumber::OutOfMemory);
    for (int y = 0; y < blended.height(); ++y) {
        QRgb *const line = reinterpret_cast<QRgb *>(blended.scanLine(y));
        for (QRgb *pixel = line; pixel < line + blended.width(); ++pixel) {
            const int white = 255 - qAlpha(*pixel);
            *pixel = qRgb(qRed(*pixel) + white, qGreen(*pixel) + white, qBlue(*pixel) + white);
        }
    }
    blended.reinterpretAsFormat(QImage::Format_RGB32);
    return blended;
}

QByteArray bitmapFile(const QImage &image)
{
    constexpr qint64 mostBytes = std::numeric_limits<qint32>::max();
    constexpr qint64 headers = 2048; // with a table of 256 colours
    const qint64 row = (qint64(image.width()) * qMin(image.depth(), 24) + 31) / 32 * 4;
    if (row * image.height() > mostBytes - headers)
        throw RuntimeError(ErrorNumber::Overflow);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!QImageWriter(&buffer, "bmp").write(onWhite(image)))
        throw RuntimeError(ErrorNumber::InvalidPicture);
    return bytes;
}

} // namespace

LoadedPicture PictureFile::read(const QString &path, qint64 mostBytes)
{
    const Descriptor descriptor = Files::open(path);
    QFile file;
    file.open(descriptor.get(), QIODevice::ReadOnly);
    if (file.size() > mostBytes)
        throw PictureLimit::exceeded();
    constexpr qint64 mark = 2; // bytes by which a bitmap is known
    return pictureKindOf(file.peek(mark)) == PictureKind::Bitmap ? bitmap(file, mostBytes)
                                                                 : decode(Files::read(path), mostBytes);
}

LoadedPicture PictureFile::decode(const QByteArray &bytes, qint64 mostBytes)
{
    switch (pictureKindOf(bytes)) {
    case PictureKind::Gif:
        return LoadedPicture(QtPictureReader::read(bytes, "gif", mostBytes).pixels);
    case PictureKind::Jpeg:
        return jpeg(bytes, mostBytes);
    case PictureKind::Bitmap:
        return LoadedPicture(BitmapReader::read(bytes, mostBytes));
    case PictureKind::HeaderlessBitmap:
        return LoadedPicture(BitmapReader::read(DeviceIndependentBitmap::file(bytes), mostBytes));
    case PictureKind::Icon:
    case PictureKind::Cursor:
        return LoadedPicture(IconReader::read(bytes, mostBytes));
    case PictureKind::Metafile:
        return LoadedPicture(WmfReader::read(bytes, mostBytes));
    case PictureKind::Targa:
        return LoadedPicture(TgaReader::read(bytes, mostBytes));
    case PictureKind::None:
        break;
    }
    throw RuntimeError(ErrorNumber::InvalidPicture);
}

void PictureFile::saveBitmap(const QImage &image, const QString &path)
{
    if (image.isNull())
        throw RuntimeError(ErrorNumber::InvalidPicture);
    Files::write(path, bitmapFile(image));
}
