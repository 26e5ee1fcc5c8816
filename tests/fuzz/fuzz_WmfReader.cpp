#include "FontsForFuzzing.h"
#include "RuntimeError.h"
#include "WmfReader.h"

#include <cstdio>
#include <cstdlib>

/// Draws any bytes: a picture of at most so much memory, or error 481.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const FontsForFuzzing fonts;
    constexpr qint64 mostBytes = 1 << 24;
    try {
        const QImage image = WmfReader::read(QByteArrayView(data, qsizetype(size)), mostBytes);
        if (image.isNull() || image.sizeInBytes() > mostBytes) {
            std::fprintf(stderr, "no picture, or too large a one\n");
            std::abort();
        }
    } catch (const RuntimeError &error) {
        if (error.number() != ErrorNumber::InvalidPicture)
            std::abort();
    }
    return 0;
}
