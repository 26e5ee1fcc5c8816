#include "JpegScans.h"

#include <QtEndian>

namespace {

constexpr uchar endOfImage = 0xD9;
constexpr uchar startOfScan = 0xDA;
constexpr uchar firstSegment = 0xC0;

/// Within a scan, 0xFF is followed by 0 or by a restart mark, which have no length.
bool hasLength(uchar mark)
{
    const bool isRestart = mark >= 0xD0 && mark <= 0xD7;
    constexpr uchar startOfImage = 0xD8;
    return mark >= firstSegment && !isRestart && mark != startOfImage && mark != 0xFF;
}

} // namespace

int JpegScans::count(QByteArrayView file)
{
    int scans = 0;
    qsizetype at = 0;
    while ((at = file.indexOf('\xFF', at)) >= 0 && at + 1 < file.size()) {
        const uchar mark = uchar(file[++at]);
        if (mark == endOfImage)
            break;
        if (mark == startOfScan)
            ++scans;
        if (hasLength(mark) && at + 3 <= file.size())
            at += 1 + qFromBigEndian<quint16>(file.data() + at + 1);
    }
    return scans;
}
