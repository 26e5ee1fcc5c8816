#include "JpegScans.h"

#include <cstring>

int JpegScans::count(QByteArrayView file)
{
    constexpr int startOfScan = 0xDA;
    int scans = 0;
    const char *next = file.data();
    const char *const end = next + file.size();
    while ((next = static_cast<const char *>(std::memchr(next, 0xFF, size_t(end - next)))) && ++next < end) {
        if (uchar(*next) == startOfScan)
            ++scans;
    }
    return scans;
}
