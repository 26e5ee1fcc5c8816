#include "FontsForFuzzing.h"
#include "PictureFile.h"
#include "expectPictureOrRefusal.h"

/// Reads any bytes as every kind of picture.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const FontsForFuzzing fonts;
    constexpr qint64 mostBytes = 1 << 24;
    const QByteArray file = QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    expectPictureOrRefusal(mostBytes, [&] { return PictureFile::decode(file, mostBytes).pixels; });
    return 0;
}
