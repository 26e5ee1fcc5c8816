#include "WmfHeader.h"

#include <QtEndian>

namespace {

constexpr qsizetype placingSize = 22;
constexpr qsizetype headerSize = 18;
constexpr quint32 placingMark = 0x9AC6CDD7;

int number(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<qint16>(bytes.data() + at);
}

bool isPlaced(QByteArrayView file)
{
    return file.size() >= placingSize && qFromLittleEndian<quint32>(file.data()) == placingMark;
}

/// Kind, size of the header in words, and version.
bool isHeader(QByteArrayView bytes)
{
    if (bytes.size() < headerSize)
        return false;
    const int kind = number(bytes, 0);
    const int version = number(bytes, 4);
    return (kind == 1 || kind == 2) && number(bytes, 2) == headerSize / 2 &&
           (version == 0x0100 || version == 0x0300);
}

} // namespace

std::optional<WmfHeader> WmfHeader::of(QByteArrayView file)
{
    constexpr int usualUnits = 1440;
    WmfHeader header;
    if (isPlaced(file)) {
        const QPoint first(number(file, 6), number(file, 8));
        const QPoint second(number(file, 10), number(file, 12));
        header.bounds = QRect(first, QSize(second.x() - first.x(), second.y() - first.y()));
        const int units = qFromLittleEndian<quint16>(file.data() + 14);
        header.unitsPerInch = units == 0 ? usualUnits : units;
        header.firstRecord = placingSize;
    }
    if (!isHeader(file.sliced(header.firstRecord)))
        return {};
    header.firstRecord += headerSize;
    return header;
}
