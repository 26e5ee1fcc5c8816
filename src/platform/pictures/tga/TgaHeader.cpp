#include "TgaHeader.h"

#include <QtEndian>

namespace {

constexpr qsizetype targaHeaderSize = 18;
constexpr int runLengthBit = 8;
constexpr int longestRun = 128; // pixels

quint16 headerWord(QByteArrayView file, qsizetype at)
{
    return qFromLittleEndian<quint16>(file.data() + at);
}

bool isColorDepth(int depth)
{
    return depth == 15 || depth == 16 || depth == 24 || depth == 32;
}

bool isDepthOf(TgaHeader::Pixels pixels, int depth)
{
    return pixels == TgaHeader::Pixels::Color ? isColorDepth(depth) : depth == 8 || depth == 16;
}

/// Where a file of the later version says at its end what its transparency is; empty where there is no such
/// place.
std::optional<int> statedTransparency(QByteArrayView file)
{
    constexpr qsizetype footerSize = 26;
    constexpr QByteArrayView mark("TRUEVISION-XFILE.\0", 18);
    constexpr qint64 place = 494; // in the extension
    if (file.size() < targaHeaderSize + footerSize || !file.endsWith(mark))
        return {};
    const qint64 extension = qFromLittleEndian<quint32>(file.last(footerSize).data());
    if (extension < targaHeaderSize || extension + place >= file.size())
        return {};
    return uchar(file[qsizetype(extension + place)]);
}

/// A file whose header keeps no bits for it has none, whatever is in them.
TgaHeader::Transparency transparencyOf(QByteArrayView file, int bits)
{
    constexpr int useful = 3;
    constexpr int premultiplied = 4;
    const int stated = statedTransparency(file).value_or(useful);
    if (bits == 0 || stated < useful)
        return TgaHeader::Transparency::None;
    return stated == premultiplied ? TgaHeader::Transparency::Premultiplied : TgaHeader::Transparency::Plain;
}

/// The fewest bytes that the pixels of \a header can be stored in.
qint64 leastBytes(const TgaHeader &header)
{
    if (!header.isRunLengthEncoded)
        return header.pixelCount() * header.pixelBytes();
    return (header.pixelCount() + longestRun - 1) / longestRun * (1 + header.pixelBytes());
}

bool readKind(QByteArrayView file, TgaHeader &header)
{
    const int kind = uchar(file[2]);
    switch (kind & ~runLengthBit) {
    case 1:
        header.pixels = TgaHeader::Pixels::Mapped;
        break;
    case 2:
        header.pixels = TgaHeader::Pixels::Color;
        break;
    case 3:
        header.pixels = TgaHeader::Pixels::Grey;
        break;
    default:
        return false;
    }
    header.isRunLengthEncoded = kind & runLengthBit;
    return true;
}

/// A colour table may be in a file whose pixels need none.
bool readMap(QByteArrayView file, TgaHeader &header)
{
    const int hasMap = uchar(file[1]);
    header.mapOffset = targaHeaderSize + uchar(file[0]);
    if (hasMap > 1 || (hasMap == 0 && header.pixels == TgaHeader::Pixels::Mapped))
        return false;
    if (hasMap == 0)
        return true;
    header.firstMapIndex = headerWord(file, 3);
    header.mapLength = headerWord(file, 5);
    header.mapDepth = uchar(file[7]);
    return header.mapLength > 0 && isColorDepth(header.mapDepth);
}

bool readPixels(QByteArrayView file, TgaHeader &header)
{
    constexpr int transparencyMask = 0x0F;
    constexpr int rightBit = 0x10;
    constexpr int topBit = 0x20;
    constexpr int interleaving = 0xC0; // of no file that anyone has seen
    const int descriptor = uchar(file[17]);
    header.width = headerWord(file, 12);
    header.height = headerWord(file, 14);
    header.depth = uchar(file[16]);
    const int transparencyBits = descriptor & transparencyMask;
    header.transparency = transparencyOf(file, transparencyBits);
    header.beginsRight = descriptor & rightBit;
    header.beginsTop = descriptor & topBit;
    header.pixelOffset = header.mapOffset + header.mapLength * header.mapEntryBytes();
    return header.width > 0 && header.height > 0 && (descriptor & interleaving) == 0 &&
           transparencyBits <= 8 && isDepthOf(header.pixels, header.depth);
}

} // namespace

std::optional<TgaHeader> TgaHeader::of(QByteArrayView file)
{
    TgaHeader header;
    if (file.size() < targaHeaderSize || !readKind(file, header) || !readMap(file, header) ||
        !readPixels(file, header))
        return {};
    if (file.size() - header.pixelOffset < leastBytes(header))
        return {};
    return header;
}
