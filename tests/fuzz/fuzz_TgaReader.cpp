#include "TgaReader.h"
#include "expectPictureOrRefusal.h"

/// Reads any bytes: only what is recognised is a picture.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    constexpr qint64 mostBytes = 1 << 24;
    const QByteArrayView file(data, qsizetype(size));
    expectPictureOrRefusal(mostBytes, [&] {
        const QImage image = TgaReader::read(file, mostBytes);
        return TgaReader::recognises(file) ? image : QImage();
    });
    return 0;
}
