#include "BitmapReader.h"

#include "QtPictureReader.h"
#include "RuntimeError.h"

#include <QBuffer>
#include <QtEndian>
#include <array>
#include <bit>

namespace {

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

/// The depth that \a head says; its older kind has it elsewhere and knows no 16 bits.
int depthOf(const QByteArray &head)
{
    constexpr qsizetype headerSize = 14;
    constexpr quint32 infoHeaderSize = 40;
    if (head.size() < headerSize + qsizetype(infoHeaderSize) ||
        qFromLittleEndian<quint32>(head.data() + headerSize) < infoHeaderSize)
        return 0;
    return qFromLittleEndian<quint16>(head.data() + headerSize + 14);
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
    constexpr qint64 headSize = 66; // with the masks of a bitmap of 16 bits
    const QByteArray head = file.peek(headSize);
    if (!hasPixels(head, file.size()))
        throw RuntimeError(ErrorNumber::InvalidPicture);
    QImage image = QtPictureReader::read(file, "bmp", mostBytes).pixels;
    if (depthOf(head) == 16 && image.depth() == 32)
        spreadChannels(image, channelBits(head));
    return image;
}
