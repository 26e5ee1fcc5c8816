#include "FontsForFuzzing.h"
#include "PictureFile.h"
#include "RuntimeError.h"

#include <cstdio>
#include <cstdlib>

/// Reads any bytes as every kind of picture: a picture of at most so much memory, or error 481.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const FontsForFuzzing fonts;
    constexpr qint64 mostBytes = 1 << 24;
    try {
        const LoadedPicture picture = PictureFile::decode(
            QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)), mostBytes);
        if (picture.pixels.isNull() || picture.shown.isNull() || picture.pixels.sizeInBytes() > mostBytes) {
            std::fprintf(stderr, "no picture, or too large a one\n");
            std::abort();
        }
    } catch (const RuntimeError &error) {
        if (error.number() != ErrorNumber::InvalidPicture)
            std::abort();
    }
    return 0;
}
