#include "ErrorNumberOf.h"
#include "TargaFile.h"
#include "TgaReader.h"

#include <gtest/gtest.h>

namespace {

constexpr qint64 mostTargaBytes = 1 << 20;
constexpr int alphaBits = 8;
const QByteArray clearAndSolid("\x10\x20\x30\x40\x50\x60\x70\x80", 8);

QImage readTarga(const TargaFile &file)
{
    return TgaReader::read(file.bytes(), mostTargaBytes);
}

int errorOfTarga(const TargaFile &file)
{
    return errorNumberOf([&] { readTarga(file); });
}

/// \a file in the later version, which says at its end what its transparency is.
QByteArray withStatement(const TargaFile &file, int transparency)
{
    const QByteArray bytes = file.bytes();
    QByteArray extension(495, '\0');
    extension[494] = char(transparency);
    QByteArray footer(8, '\0');
    qToLittleEndian<quint32>(quint32(bytes.size()), footer.data());
    return bytes + extension + footer + QByteArray("TRUEVISION-XFILE.\0", 18);
}

} // namespace

TEST(TgaReader, TheTransparencyIsWhatTheHeaderKeepsBitsFor)
{
    const TargaFile with{.descriptor = alphaBits, .pixels = clearAndSolid};
    EXPECT_EQ(readTarga(with).pixel(0, 0), qRgba(0x30, 0x20, 0x10, 0x40));
    EXPECT_EQ(readTarga(with).pixel(1, 0), qRgba(0x70, 0x60, 0x50, 0x80));
    const TargaFile without{.pixels = clearAndSolid};
    EXPECT_EQ(readTarga(without).pixel(0, 0), qRgb(0x30, 0x20, 0x10));
    EXPECT_FALSE(readTarga(without).hasAlphaChannel());
}

TEST(TgaReader, ATransparencyOfZeroEverywhereIsNone)
{
    const TargaFile file{.descriptor = alphaBits, .pixels = QByteArray("\x10\x20\x30\0\x50\x60\x70\0", 8)};
    EXPECT_EQ(readTarga(file).pixel(0, 0), qRgb(0x30, 0x20, 0x10));
    EXPECT_FALSE(readTarga(file).hasAlphaChannel());
}

TEST(TgaReader, TheLaterVersionSaysWhatTheTransparencyIs)
{
    const TargaFile file{.descriptor = alphaBits, .pixels = clearAndSolid};
    for (const int none : {0, 1, 2})
        EXPECT_FALSE(TgaReader::read(withStatement(file, none), mostTargaBytes).hasAlphaChannel()) << none;
    EXPECT_EQ(TgaReader::read(withStatement(file, 3), mostTargaBytes).pixel(0, 0),
              qRgba(0x30, 0x20, 0x10, 0x40));
    const QImage premultiplied = TgaReader::read(withStatement(file, 4), mostTargaBytes);
    EXPECT_EQ(premultiplied.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(premultiplied.pixel(0, 0), qRgba(0x30, 0x20, 0x10, 0x40));
}

TEST(TgaReader, AStatementBeyondTheFileIsNone)
{
    const TargaFile file{.descriptor = alphaBits, .pixels = clearAndSolid};
    QByteArray bytes = withStatement(file, 0);
    qToLittleEndian<quint32>(0xFFFFFF00, bytes.data() + bytes.size() - 26);
    EXPECT_TRUE(TgaReader::read(bytes, mostTargaBytes).hasAlphaChannel());
}

/// A colour that is brighter than its pixel is opaque.
TEST(TgaReader, PremultipliedColoursAreBounded)
{
    const TargaFile file{.width = 1, .descriptor = alphaBits, .pixels = QByteArray("\xFF\xFF\xFF\x40", 4)};
    const QImage image = TgaReader::read(withStatement(file, 4), mostTargaBytes);
    EXPECT_EQ(image.pixelColor(0, 0), QColor(255, 255, 255, 0x40));
}

TEST(TgaReader, AnIndexWithoutAColourIsBlack)
{
    const TargaFile file{
        .kind = 1, .depth = 8, .pixels = QByteArray("\x00\x07", 2), .mapKind = 1, .map = "\x01\x02\x03"};
    EXPECT_EQ(readTarga(file).pixel(0, 0), qRgb(3, 2, 1));
    EXPECT_EQ(readTarga(file).pixel(1, 0), qRgb(0, 0, 0));
}

TEST(TgaReader, ATableThatIsNotNeededIsPassedOver)
{
    const TargaFile file{
        .width = 1, .depth = 24, .pixels = "\x0A\x0B\x0C", .mapKind = 1, .map = "\x01\x02\x03"};
    EXPECT_EQ(readTarga(file).pixel(0, 0), qRgb(0x0C, 0x0B, 0x0A));
}

TEST(TgaReader, ARunBeyondTheLastPixelIsCut)
{
    const TargaFile file{.kind = 10, .width = 2, .height = 2, .depth = 24, .pixels = "\xFF\x0A\x0B\x0C"};
    EXPECT_EQ(readTarga(file).pixel(1, 1), qRgb(0x0C, 0x0B, 0x0A));
}

TEST(TgaReader, PacketsThatEndTooEarlyAreAnError)
{
    EXPECT_EQ(
        errorOfTarga(
            {.kind = 10, .width = 2, .height = 2, .depth = 24, .pixels = QByteArray("\x00\x0A\x0B\x0C", 4)}),
        ErrorNumber::InvalidPicture);
    EXPECT_EQ(errorOfTarga({.kind = 10, .width = 2, .height = 2, .depth = 24, .pixels = "\x03\x0A\x0B\x0C"}),
              ErrorNumber::InvalidPicture);
}

TEST(TgaReader, WhatNoHeaderMaySayIsNone)
{
    const auto isKnown = [](const TargaFile &file) { return TgaReader::recognises(file.bytes()); };
    const QByteArray many(64, '\x11');
    ASSERT_TRUE(isKnown({.pixels = many}));
    EXPECT_FALSE(isKnown({.width = 0, .pixels = many}));
    EXPECT_FALSE(isKnown({.height = 0, .pixels = many}));
    EXPECT_FALSE(isKnown({.depth = 12, .pixels = many}));
    EXPECT_FALSE(isKnown({.kind = 0, .pixels = many}));
    EXPECT_FALSE(isKnown({.kind = 4, .pixels = many}));
    EXPECT_FALSE(isKnown({.kind = 1, .depth = 8, .pixels = many}));               // without a table
    EXPECT_FALSE(isKnown({.kind = 1, .depth = 8, .pixels = many, .mapKind = 1})); // with an empty one
    EXPECT_FALSE(isKnown({.kind = 3, .depth = 24, .pixels = many}));
    EXPECT_FALSE(isKnown({.kind = 2, .depth = 8, .pixels = many}));
    EXPECT_FALSE(isKnown({.pixels = many, .mapKind = 2}));
    EXPECT_FALSE(isKnown({.descriptor = 0x40, .pixels = many}));
    EXPECT_FALSE(isKnown({.descriptor = 0x0F, .pixels = many}));
    EXPECT_FALSE(TgaReader::recognises({}));
}

/// Such a file would be cut off far before its end.
TEST(TgaReader, AGiantHeaderInASmallFileIsNone)
{
    for (const int kind : {2, 10}) {
        const TargaFile file{
            .kind = kind, .width = 65535, .height = 65535, .pixels = QByteArray(1000, '\xFF')};
        EXPECT_FALSE(TgaReader::recognises(file.bytes()));
        EXPECT_EQ(errorOfTarga(file), ErrorNumber::InvalidPicture);
    }
}

TEST(TgaReader, APictureOverTheLimitIsAnError)
{
    TargaFile file{.kind = 10, .width = 512, .height = 512, .depth = 24};
    for (int packet = 0; packet < 512 * 512 / 128; ++packet)
        file.pixels += "\xFF\x0A\x0B\x0C";
    EXPECT_EQ(TgaReader::read(file.bytes(), mostTargaBytes).size(), QSize(512, 512));
    EXPECT_EQ(errorNumberOf([&] { TgaReader::read(file.bytes(), mostTargaBytes - 1); }),
              ErrorNumber::InvalidPicture);
}
