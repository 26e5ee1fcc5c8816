#include "FontsForFuzzing.h"
#include "WmfReader.h"
#include "expectPictureOrRefusal.h"

/// Draws any bytes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const FontsForFuzzing fonts;
    constexpr qint64 mostBytes = 1 << 24;
    expectPictureOrRefusal(mostBytes,
                           [&] { return WmfReader::read(QByteArrayView(data, qsizetype(size)), mostBytes); });
    return 0;
}
