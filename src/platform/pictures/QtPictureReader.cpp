#include "QtPictureReader.h"

#include "PictureLimit.h"
#include "RuntimeError.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

namespace {

/// Reserving memory and filling it takes long where a small file only says that its picture is huge. No
/// kind's compression is as strong as this allows.
bool isPlausible(const QSize &size, qsizetype fileBytes)
{
    constexpr qint64 mostPixelsToTheByte = 4096;
    constexpr qint64 harmless = 16 * 1024 * 1024; // pixels
    const qint64 pixels = qint64(size.width()) * size.height();
    return pixels <= harmless || pixels / mostPixelsToTheByte <= fileBytes;
}

/// The reader of GIF tells the size of the first picture, but makes room for the whole screen of the
/// animation.
QSize sizeOf(const QImageReader &reader, const QByteArray &file)
{
    constexpr qsizetype screen = 6;
    if (reader.format() != "gif" || file.size() < screen + 4)
        return reader.size();
    return {qFromLittleEndian<quint16>(file.data() + screen),
            qFromLittleEndian<quint16>(file.data() + screen + 2)};
}

} // namespace

QtPictureReader::Result QtPictureReader::read(const QByteArray &file, const char *format, qint64 mostBytes)
{
    const PictureLimit limit(mostBytes);
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = sizeOf(reader, file);
    if (!isPlausible(size, file.size()))
        throw RuntimeError(ErrorNumber::InvalidPicture);

    Result result;
    result.turning = reader.transformation();
    result.pixels = reader.read();
    if (!result.pixels.isNull())
        return result;
    if (qint64(size.width()) * size.height() > mostBytes / qint64(sizeof(QRgb)))
        throw PictureLimit::exceeded();
    throw RuntimeError(ErrorNumber::InvalidPicture);
}
