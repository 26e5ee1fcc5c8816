#include "QtPictureReader.h"

#include "IconDirectory.h"
#include "JpegScans.h"
#include "PictureLimit.h"
#include "RuntimeError.h"

#include <QBuffer>
#include <QImageReader>

namespace {

constexpr int mostScans = 100;

QByteArray formatOf(PictureKind kind)
{
    switch (kind) {
    case PictureKind::Gif:
        return "gif";
    case PictureKind::Jpeg:
        return "jpeg";
    case PictureKind::Icon:
        return "ico";
    case PictureKind::Cursor:
        return "cur";
    default:
        return "bmp";
    }
}

/// Reserving memory and filling it takes long where a small file only says that its picture is huge. No
/// kind's compression is as strong as this allows.
bool isPlausible(const QSize &size, qsizetype fileBytes)
{
    constexpr qint64 mostPixelsToTheByte = 4096;
    constexpr qint64 harmless = 64 * 1024 * 1024; // pixels
    const qint64 pixels = qint64(size.width()) * size.height();
    return pixels <= harmless || pixels / mostPixelsToTheByte <= fileBytes;
}

} // namespace

QtPictureReader::Result QtPictureReader::read(const QByteArray &file, PictureKind kind, qint64 mostBytes)
{
    if (kind == PictureKind::Jpeg && JpegScans::count(file) > mostScans)
        throw RuntimeError(ErrorNumber::InvalidPicture);

    const PictureLimit limit(mostBytes);
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, formatOf(kind));
    reader.setAutoDetectImageFormat(false);
    if (kind == PictureKind::Icon || kind == PictureKind::Cursor)
        reader.jumpToImage(IconDirectory::largest(file));
    if (!isPlausible(reader.size(), file.size()))
        throw RuntimeError(ErrorNumber::InvalidPicture);

    Result result;
    result.turning = reader.transformation();
    result.pixels = reader.read();
    if (!result.pixels.isNull())
        return result;
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() > mostBytes / 4)
        throw PictureLimit::exceeded();
    throw RuntimeError(ErrorNumber::InvalidPicture);
}
