#include "RuntimeError.h"
#include "WmfReader.h"

#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>

namespace {

/// Metafiles have texts, which need fonts.
void startApplication()
{
    static int count = 1;
    static char name[] = "fuzz_WmfReader";
    static char *names[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(count, names);
}

} // namespace

/// Draws any bytes: a picture of at most so much memory, or error 481.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool isStarted = (startApplication(), true);
    constexpr qint64 mostBytes = 1 << 24;
    try {
        const QImage image = WmfReader::read(QByteArrayView(data, qsizetype(size)), mostBytes);
        if (!isStarted || image.isNull() || image.sizeInBytes() > mostBytes) {
            std::fprintf(stderr, "no picture, or too large a one\n");
            std::abort();
        }
    } catch (const RuntimeError &error) {
        if (error.number() != ErrorNumber::InvalidPicture)
            std::abort();
    }
    return 0;
}
