#include "WmfHeader.h"

#include <QtEndian>

namespace {

constexpr qsizetype placingSize = 22;
constexpr qsizetype standardSize = 18;
constexpr quint32 placingMark = 0x9AC6CDD7;

int numberAt(QByteArrayView bytes, qsizetype at)
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
    if (bytes.size() < standardSize)
        return false;
    const int kind = numberAt(bytes, 0);
    const int version = numberAt(bytes, 4);
    return (kind == 1 || kind == 2) && numberAt(bytes, 2) == standardSize / 2 &&
           (version == 0x0100 || version == 0x0300);
}

} // namespace

std::optional<WmfHeader> WmfHeader::of(QByteArrayView file)
{
    constexpr int usualUnits = 1440;
    WmfHeader header;
    if (isPlaced(file)) {
        const QPoint first(numberAt(file, 6), numberAt(file, 8));
        const QPoint second(numberAt(file, 10), numberAt(file, 12));
        header.bounds = QRect(first, QSize(second.x() - first.x(), second.y() - first.y()));
        const int units = qFromLittleEndian<quint16>(file.data() + 14);
        header.unitsPerInch = units == 0 ? usualUnits : units;
        header.firstRecord = placingSize;
    }
    if (!isHeader(file.sliced(header.firstRecord)))
        return {};
    header.firstRecord += standardSize;
    return header;
}
