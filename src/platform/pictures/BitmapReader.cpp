#include "BitmapReader.h"

#include "QtPictureReader.h"
#include "RuntimeError.h"

#include <QBuffer>
#include <QtEndian>
#include <array>
#include <bit>
#include <limits>
#include <utility>

namespace {

constexpr qsizetype pictureHeader = 14; // where it begins, with its own size
constexpr quint32 leastInfoHeader = 40; // an older kind is smaller, and its numbers have 16 bits

using Channel = std::array<uchar, 256>;

/// The values of a channel that has its \a bits at the top of a byte, spread over the whole of the byte.
Channel spread(int bits)
{
    Channel channel;
    for (int value = 0; value < int(channel.size()); ++value) {
        int wide = value;
        for (int shift = bits; shift > 0 && shift < 8; shift *= 2)
            wide |= wide >> shift;
        channel[size_t(value)] = uchar(wide);
    }
    return channel;
}

/// How many bits red, green and blue have in a bitmap of 16 bits.
std::array<int, 3> channelBits(const QByteArray &head)
{
    constexpr qsizetype compression = 30;
    constexpr qsizetype masks = 54;
    constexpr quint32 byMasks = 3;
    if (head.size() < masks + 12 || qFromLittleEndian<quint32>(head.data() + compression) != byMasks)
        return {5, 5, 5};
    const auto bits = [&](qsizetype index) {
        return std::popcount(qFromLittleEndian<quint32>(head.data() + masks + 4 * index));
    };
    return {bits(0), bits(1), bits(2)};
}

void spreadChannels(QImage &image, const std::array<int, 3> &bits)
{
    const Channel red = spread(bits[0]);
    const Channel green = spread(bits[1]);
    const Channel blue = spread(bits[2]);
    for (int y = 0; y < image.height(); ++y) {
        QRgb *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (QRgb *pixel = line; pixel < line + image.width(); ++pixel)
            *pixel = qRgba(red[qRed(*pixel)], green[qGreen(*pixel)], blue[qBlue(*pixel)], qAlpha(*pixel));
    }
}

bool hasInfoHeader(const QByteArray &head)
{
    return head.size() >= pictureHeader + qsizetype(leastInfoHeader) &&
           qFromLittleEndian<quint32>(head.data() + pictureHeader) >= leastInfoHeader;
}

int depthOf(const QByteArray &head)
{
    return hasInfoHeader(head) ? qFromLittleEndian<quint16>(head.data() + pictureHeader + 14) : 0;
}

/// Makes the height at \a at positive. Returns whether it was negative.
template<class Height>
bool makePositive(QByteArray &head, qsizetype at)
{
    const auto height = qFromLittleEndian<Height>(head.data() + at);
    if (height == std::numeric_limits<Height>::min())
        throw RuntimeError(ErrorNumber::InvalidPicture);
    if (height < 0)
        qToLittleEndian<Height>(Height(-height), head.data() + at);
    return height < 0;
}

/// A negative height says that the upper row is the first one. Returns whether \a head had one, and makes it
/// positive.
bool turnOver(QByteArray &head)
{
    constexpr qsizetype oldHeaderSize = 12;
    if (hasInfoHeader(head))
        return makePositive<qint32>(head, pictureHeader + 8);
    return head.size() >= pictureHeader + oldHeaderSize && makePositive<qint16>(head, pictureHeader + 6);
}

/// Qt's reader reads pictures whose upper row is the first one into memory of its own, and leaves what the
/// file does not have of them as that memory was.
QImage readFromTop(QIODevice &file, qint64 mostBytes)
{
    QByteArray bytes = file.readAll();
    turnOver(bytes);
    QImage image = QtPictureReader::read(bytes, "bmp", mostBytes).pixels;
    return std::move(image).mirrored();
}

/// Qt's reader takes pixels that begin beyond the file for black ones.
bool hasPixels(const QByteArray &head, qint64 fileSize)
{
    constexpr qsizetype offset = 10;
    return head.size() > offset + 4 && qFromLittleEndian<quint32>(head.data() + offset) < quint64(fileSize);
}

} // namespace

QImage BitmapReader::read(const QByteArray &file, qint64 mostBytes)
{
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    return read(buffer, mostBytes);
}

QImage BitmapReader::read(QIODevice &file, qint64 mostBytes)
{
    constexpr qint64 readAhead = 66; // with the masks of a bitmap of 16 bits
    QByteArray head = file.peek(readAhead);
    if (!hasPixels(head, file.size()))
        throw RuntimeError(ErrorNumber::InvalidPicture);
    QImage image =
        turnOver(head) ? readFromTop(file, mostBytes) : QtPictureReader::read(file, "bmp", mostBytes).pixels;
    if (depthOf(head) == 16 && image.depth() == 32)
        spreadChannels(image, channelBits(head));
    return image;
}
