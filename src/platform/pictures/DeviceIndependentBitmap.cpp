#include "DeviceIndependentBitmap.h"

#include <QtEndian>
#include <limits>

namespace {

constexpr quint32 fileHeaderSize = 14;
constexpr quint32 coreHeaderSize = 12;
constexpr quint32 commonHeaderSize = 40;
constexpr quint32 largestHeaderSize = 124;
constexpr quint32 compressionByMasks = 3;
constexpr quint32 mostColors = 256;

template<class Number>
Number number(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<Number>(bytes.data() + at);
}

bool isDepth(quint16 depth)
{
    return depth == 1 || depth == 4 || depth == 8 || depth == 16 || depth == 24 || depth == 32;
}

/// The bytes between the header and the pixels.
quint32 tableSize(QByteArrayView bitmap, quint32 header)
{
    if (header == coreHeaderSize) {
        const quint16 depth = number<quint16>(bitmap, 10);
        return depth <= 8 ? (1U << depth) * 3 : 0;
    }
    const quint16 depth = number<quint16>(bitmap, 14);
    const quint32 masks =
        header == commonHeaderSize && number<quint32>(bitmap, 16) == compressionByMasks ? 12 : 0;
    quint32 colors = number<quint32>(bitmap, 32);
    if (colors == 0 && depth <= 8)
        colors = 1U << depth;
    return masks + qMin(colors, mostColors) * 4;
}

} // namespace

bool DeviceIndependentBitmap::recognises(QByteArrayView bytes)
{
    if (bytes.size() < qsizetype(coreHeaderSize))
        return false;
    const quint32 header = number<quint32>(bytes, 0);
    if (header == coreHeaderSize)
        return number<quint16>(bytes, 8) == 1 && isDepth(number<quint16>(bytes, 10));
    return header >= commonHeaderSize && header <= largestHeaderSize && bytes.size() >= qsizetype(header) &&
           number<quint16>(bytes, 12) == 1 && isDepth(number<quint16>(bytes, 14));
}

QSize DeviceIndependentBitmap::size(QByteArrayView bitmap)
{
    if (number<quint32>(bitmap, 0) == coreHeaderSize)
        return {number<quint16>(bitmap, 4), number<quint16>(bitmap, 6)};
    const qint32 height = number<qint32>(bitmap, 8); // below zero where the first row is the top one
    return {qMax(0, number<qint32>(bitmap, 4)),
            height == std::numeric_limits<qint32>::min() ? 0 : qAbs(height)};
}

qint64 DeviceIndependentBitmap::pixelOffset(QByteArrayView bitmap)
{
    const quint32 header = number<quint32>(bitmap, 0);
    return header + tableSize(bitmap, header);
}

QByteArray DeviceIndependentBitmap::file(QByteArrayView bitmap)
{
    constexpr qsizetype mostBytes = std::numeric_limits<qint32>::max() - qsizetype(fileHeaderSize);
    if (!recognises(bitmap) || bitmap.size() > mostBytes)
        return {};
    QByteArray file(fileHeaderSize, '\0');
    file[0] = 'B';
    file[1] = 'M';
    qToLittleEndian<quint32>(fileHeaderSize + quint32(bitmap.size()), file.data() + 2);
    qToLittleEndian<quint32>(fileHeaderSize + quint32(pixelOffset(bitmap)), file.data() + 10);
    return file.append(bitmap.data(), bitmap.size());
}
