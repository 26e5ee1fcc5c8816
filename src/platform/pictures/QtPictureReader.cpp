#include "QtPictureReader.h"

#include "PictureLimit.h"
#include "RuntimeError.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>
#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// Reserving memory and filling it takes long where a small file only says that its picture is huge. No
/// kind's compression is as strong as this allows.
bool isPlausible(const QSize &size, qint64 fileBytes)
{
    constexpr qint64 mostPixelsToTheByte = 4096;
    constexpr qint64 harmless = 16 * 1024 * 1024; // pixels
    const qint64 pixels = qint64(size.width()) * size.height();
    return pixels <= harmless || pixels / mostPixelsToTheByte <= fileBytes;
}

/// The reader of GIF tells the size of the first picture, but makes room for the whole screen of the
/// animation.
QSize sizeOf(const QImageReader &reader, const QByteArray &head)
{
    constexpr qsizetype screen = 6;
    if (reader.format() != "gif" || head.size() < screen + 4)
        return reader.size();
    return {qFromLittleEndian<quint16>(head.data() + screen),
            qFromLittleEndian<quint16>(head.data() + screen + 2)};
}

bool isTooLarge(const QSize &size, qint64 mostBytes)
{
    constexpr qint64 mostOfQt = 16384 * 16384; // pixels that its reader of bitmaps takes
    return qint64(size.width()) * size.height() > qMin(mostBytes / qint64(sizeof(QRgb)), mostOfQt);
}

/// Asks for pages of two megabytes where the memory has room for them: filling a large picture by pages of
/// four kilobytes takes as long as decoding it.
void useLargePages(void *memory, size_t bytes)
{
    const auto page = size_t(::sysconf(_SC_PAGESIZE));
    const size_t before = (page - reinterpret_cast<uintptr_t>(memory) % page) % page;
    if (bytes > before)
        ::madvise(static_cast<char *>(memory) + before, bytes - before, MADV_HUGEPAGE);
}

/// The reader of bitmaps leaves out rows and pixels that the file does not have; they are black.
QImage blank(const QSize &size, int formatNumber, qint64 mostBytes)
{
    if (formatNumber <= QImage::Format_Invalid || formatNumber >= QImage::NImageFormats || size.isEmpty())
        return {};
    const auto format = QImage::Format(formatNumber);
    if (isTooLarge(size, mostBytes))
        throw PictureLimit::exceeded();
    const qsizetype row =
        (qsizetype(size.width()) * QImage::toPixelFormat(format).bitsPerPixel() + 31) / 32 * 4;
    void *const zeros =
        std::calloc(size_t(size.height()), size_t(row)); // a large one costs nothing, unlike fill()
    if (!zeros)
        throw RuntimeError(ErrorNumber::OutOfMemory);
    useLargePages(zeros, size_t(size.height()) * size_t(row));
    return QImage(static_cast<uchar *>(zeros), size.width(), size.height(), row, format, &std::free, zeros);
}

} // namespace

QtPictureReader::Result QtPictureReader::read(const QByteArray &file, const char *format, qint64 mostBytes)
{
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    return read(buffer, format, mostBytes);
}

QtPictureReader::Result QtPictureReader::read(QIODevice &file, const char *format, qint64 mostBytes)
{
    constexpr qint64 headSize = 10;
    const PictureLimit limit(mostBytes);
    const QByteArray head = file.peek(headSize);
    QImageReader reader(&file, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = sizeOf(reader, head);
    if (!isPlausible(size, file.size()))
        throw RuntimeError(ErrorNumber::InvalidPicture);

    Result result;
    result.turning = reader.transformation();
    // A number: of a damaged file the reader tells any, and loading one that is no format is undefined.
    result.pixels = blank(size, int(reader.imageFormat()), mostBytes);
    if (reader.read(&result.pixels))
        return result;
    if (isTooLarge(size, mostBytes))
        throw PictureLimit::exceeded();
    throw RuntimeError(ErrorNumber::InvalidPicture);
}
