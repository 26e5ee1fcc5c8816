#include "RuntimeError.h"
#include "TgaReader.h"

#include <cstdio>
#include <cstdlib>

/// Reads any bytes: what is recognised is a picture of at most so much memory, or error 481, and what is not
/// recognised is that error.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    constexpr qint64 mostBytes = 1 << 24;
    const QByteArrayView file(data, qsizetype(size));
    try {
        const QImage image = TgaReader::read(file, mostBytes);
        if (image.isNull() || image.sizeInBytes() > mostBytes || !TgaReader::recognises(file)) {
            std::fprintf(stderr, "no picture, or too large a one\n");
            std::abort();
        }
    } catch (const RuntimeError &error) {
        if (error.number() != ErrorNumber::InvalidPicture)
            std::abort();
    }
    return 0;
}
