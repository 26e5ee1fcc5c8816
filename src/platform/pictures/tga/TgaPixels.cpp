#include "TgaPixels.h"

#include "RuntimeError.h"

#include <QtEndian>

namespace {

constexpr int fullAlpha = 255;

/// Five bits as eight.
int widened(int bits)
{
    return bits << 3 | bits >> 2;
}

QRgb colorOfFiveBits(quint16 bits)
{
    constexpr int mask = 0x1F;
    return qRgba(widened(bits >> 10 & mask), widened(bits >> 5 & mask), widened(bits & mask),
                 bits & 0x8000 ? fullAlpha : 0);
}

} // namespace

TgaPixels::TgaPixels(QByteArrayView file, const TgaHeader &header)
    : m_left(file.sliced(header.mapOffset))
    , m_header(header)
{
    m_map.reserve(size_t(header.mapLength));
    for (int entry = 0; entry < header.mapLength; ++entry)
        m_map.push_back(color(take(header.mapEntryBytes()), header.mapDepth));
}

QRgb TgaPixels::next()
{
    if (!m_header.isRunLengthEncoded)
        return stored();
    if (m_packet == 0)
        beginPacket();
    --m_packet;
    return m_isRun ? m_run : stored();
}

void TgaPixels::beginPacket()
{
    constexpr int runBit = 0x80;
    const int packet = uchar(take(1)[0]);
    m_packet = (packet & ~runBit) + 1;
    m_isRun = packet & runBit;
    if (m_isRun)
        m_run = stored();
}

QRgb TgaPixels::stored()
{
    const QByteArrayView bytes = take(m_header.pixelBytes());
    switch (m_header.pixels) {
    case TgaHeader::Pixels::Mapped:
        return mapped(bytes.size() == 1 ? uchar(bytes[0]) : qFromLittleEndian<quint16>(bytes.data()));
    case TgaHeader::Pixels::Grey:
        return qRgba(uchar(bytes[0]), uchar(bytes[0]), uchar(bytes[0]),
                     bytes.size() == 1 ? fullAlpha : uchar(bytes[1]));
    case TgaHeader::Pixels::Color:
        break;
    }
    return color(bytes, m_header.depth);
}

QRgb TgaPixels::color(QByteArrayView bytes, int depth) const
{
    if (depth <= 16)
        return colorOfFiveBits(qFromLittleEndian<quint16>(bytes.data()));
    return qRgba(uchar(bytes[2]), uchar(bytes[1]), uchar(bytes[0]),
                 depth == 32 ? uchar(bytes[3]) : fullAlpha);
}

/// An index without an entry is black, as no better is known.
QRgb TgaPixels::mapped(int index) const
{
    const int entry = index - m_header.firstMapIndex;
    return entry >= 0 && size_t(entry) < m_map.size() ? m_map[size_t(entry)] : qRgb(0, 0, 0);
}

QByteArrayView TgaPixels::take(qsizetype count)
{
    if (m_left.size() < count)
        throw RuntimeError(ErrorNumber::InvalidPicture);
    const QByteArrayView bytes = m_left.first(count);
    m_left = m_left.sliced(count);
    return bytes;
}
