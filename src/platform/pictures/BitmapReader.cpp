#include "BitmapReader.h"

#include "QtPictureReader.h"
#include "RuntimeError.h"

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
std::array<int, 3> channelBits(const QByteArray &file)
{
    constexpr qsizetype compression = 30;
    constexpr qsizetype masks = 54;
    constexpr quint32 byMasks = 3;
    if (file.size() < masks + 12 || qFromLittleEndian<quint32>(file.data() + compression) != byMasks)
        return {5, 5, 5};
    const auto bits = [&](qsizetype index) {
        return std::popcount(qFromLittleEndian<quint32>(file.data() + masks + 4 * index));
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

/// The depth that \a file says; its older kind of header has it elsewhere and knows no 16 bits.
int depthOf(const QByteArray &file)
{
    constexpr qsizetype headerSize = 14;
    constexpr quint32 infoHeaderSize = 40;
    if (file.size() < headerSize + qsizetype(infoHeaderSize) ||
        qFromLittleEndian<quint32>(file.data() + headerSize) < infoHeaderSize)
        return 0;
    return qFromLittleEndian<quint16>(file.data() + headerSize + 14);
}

/// Qt's reader takes pixels that begin beyond the file for black ones.
bool hasPixels(const QByteArray &file)
{
    constexpr qsizetype offset = 10;
    return file.size() > offset + 4 &&
           qFromLittleEndian<quint32>(file.data() + offset) < quint64(file.size());
}

} // namespace

QImage BitmapReader::read(const QByteArray &file, qint64 mostBytes)
{
    if (!hasPixels(file))
        throw RuntimeError(ErrorNumber::InvalidPicture);
    QImage image = QtPictureReader::read(file, "bmp", mostBytes).pixels;
    if (depthOf(file) == 16 && image.depth() == 32)
        spreadChannels(image, channelBits(file));
    return image;
}
