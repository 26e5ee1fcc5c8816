#include "ErrorNumberOf.h"
#include "PictureFile.h"
#include "PictureFixture.h"
#include "QtMessages.h"
#include "RuntimeError.h"

#include <QBuffer>
#include <QtEndian>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

struct PictureDamage : testing::Test
{
    PictureDamage() { QtMessages::expect({}); } // Qt's readers complain of all that they find
};

struct PictureDamageTest : PictureDamage, testing::WithParamInterface<PictureFixture>
{};

/// Zero for a file that is shown, in whole or in part.
int errorOf(const QByteArray &bytes)
{
    return errorNumberOf([&] {
        const LoadedPicture picture = PictureFile::decode(bytes);
        EXPECT_FALSE(picture.pixels.isNull());
        EXPECT_FALSE(picture.shown.isNull());
    });
}

void expectShownOrRefused(const QByteArray &bytes, const std::string &what)
{
    const int error = errorOf(bytes);
    EXPECT_TRUE(error == 0 || error == ErrorNumber::InvalidPicture) << what << ": " << error;
}

void writeWord(QByteArray &bytes, qsizetype at, quint16 value)
{
    qToLittleEndian<quint16>(value, bytes.data() + at);
}

void writeLongWord(QByteArray &bytes, qsizetype at, quint32 value)
{
    qToLittleEndian<quint32>(value, bytes.data() + at);
}

} // namespace

TEST_P(PictureDamageTest, IsShownOrRefusedWhereverItEnds)
{
    const QByteArray bytes = GetParam().bytes();
    for (qsizetype size = 0; size < bytes.size(); ++size)
        expectShownOrRefused(bytes.first(size), "the first " + std::to_string(size));
}

TEST_P(PictureDamageTest, IsShownOrRefusedWhateverItsBytesAre)
{
    const QByteArray bytes = GetParam().bytes();
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        QByteArray damaged = bytes;
        for (int hit = 0; hit < 1 + round % 3; ++hit)
            damaged[qsizetype(random() % size_t(qMin(bytes.size(), qsizetype(600))))] = char(random());
        expectShownOrRefused(damaged, "round " + std::to_string(round));
    }
}

INSTANTIATE_TEST_SUITE_P(All, PictureDamageTest, testing::ValuesIn(PictureFixture::all()),
                         testNameOf<testing::TestParamInfo<PictureFixture>>);

TEST_F(PictureDamage, AGiantHeaderInASmallFileIsRefused)
{
    QByteArray gif = PictureFixture::named("gif/plain.gif").bytes();
    writeWord(gif, 6, 60000);
    writeWord(gif, 8, 60000);
    EXPECT_EQ(errorOf(gif), ErrorNumber::InvalidPicture);

    QByteArray bitmap = PictureFixture::named("bmp/24.bmp").bytes();
    writeLongWord(bitmap, 18, 60000);
    writeLongWord(bitmap, 22, 60000);
    EXPECT_EQ(errorOf(bitmap), ErrorNumber::InvalidPicture);

    QByteArray jpeg = PictureFixture::named("jpeg/plain.jpg").bytes();
    const qsizetype frame = jpeg.indexOf("\xFF\xC0");
    ASSERT_GT(frame, 0);
    for (const int side : {5, 7}) {
        jpeg[frame + side] = '\xEA';
        jpeg[frame + side + 1] = '\x60';
    }
    EXPECT_EQ(errorOf(jpeg), ErrorNumber::InvalidPicture);

    QByteArray icon = PictureFixture::named("ico/single.ico").bytes();
    writeLongWord(icon, 22 + 4, 60000);
    writeLongWord(icon, 22 + 8, 120000);
    EXPECT_EQ(errorOf(icon), ErrorNumber::InvalidPicture);
}

/// Memory for it would be there, but filling it takes long.
TEST_F(PictureDamage, ALargeHeaderInASmallFileIsRefused)
{
    QByteArray gif = PictureFixture::named("gif/plain.gif").bytes();
    writeWord(gif, 6, 16000);
    writeWord(gif, 8, 16000);
    EXPECT_EQ(errorNumberOf([&] { PictureFile::decode(gif, qint64(1) << 40); }), ErrorNumber::InvalidPicture);
    writeWord(gif, 6, 1600);
    writeWord(gif, 8, 1600);
    EXPECT_EQ(errorNumberOf([&] { PictureFile::decode(gif, qint64(1) << 40); }), 0);
}

TEST_F(PictureDamage, SidesOfZeroAreRefused)
{
    for (const qsizetype side : {18, 22}) {
        QByteArray bitmap = PictureFixture::named("bmp/24.bmp").bytes();
        writeLongWord(bitmap, side, 0);
        EXPECT_EQ(errorOf(bitmap), ErrorNumber::InvalidPicture) << side;
        QByteArray icon = PictureFixture::named("ico/single.ico").bytes();
        writeLongWord(icon, side - 18 + 26, 0);
        EXPECT_EQ(errorOf(icon), ErrorNumber::InvalidPicture) << side;
    }
}

TEST_F(PictureDamage, AnIconThatPointsIntoItselfOrBeyondTheFileIsRefused)
{
    for (const quint32 offset : {0U, 6U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        QByteArray icon = PictureFixture::named("ico/single.ico").bytes();
        writeLongWord(icon, 18, offset);
        EXPECT_EQ(errorOf(icon), ErrorNumber::InvalidPicture) << offset;
    }
    QByteArray list = PictureFixture::named("ico/single.ico").bytes();
    writeWord(list, 4, 65535);
    EXPECT_EQ(errorOf(list), ErrorNumber::InvalidPicture);
    QByteArray size = PictureFixture::named("ico/single.ico").bytes();
    writeLongWord(size, 14, 0xFFFFFFFF);
    EXPECT_EQ(errorOf(size), ErrorNumber::InvalidPicture);
}

TEST_F(PictureDamage, OfAMillionPicturesTheFirstIsShown)
{
    const QByteArray gif = PictureFixture::named("gif/plain.gif").bytes();
    const QByteArray picture("\x2C\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0", 15);
    const QByteArray film = gif.chopped(1) + picture.repeated(1'000'000) + ';';
    const QImage shown = PictureFile::decode(film).shown;
    EXPECT_EQ(largestDifference(shown, PictureFixture::named("gif/plain.gif").shown()), 0);
}

TEST_F(PictureDamage, AJpegOfAThousandScansIsRefused)
{
    const QByteArray jpeg = PictureFixture::named("jpeg/progressive.jpg").bytes();
    const qsizetype last = jpeg.lastIndexOf("\xFF\xDA");
    const QByteArray scan = jpeg.sliced(last, jpeg.size() - last - 2);
    EXPECT_EQ(errorOf(jpeg.first(last) + scan.repeated(20) + jpeg.last(2)), 0);
    EXPECT_EQ(errorOf(jpeg.first(last) + scan.repeated(1000) + jpeg.last(2)), ErrorNumber::InvalidPicture);
}

TEST_F(PictureDamage, AnIconWhoseLargestPictureIsBeyondTheFileShowsAnother)
{
    QByteArray icon = PictureFixture::named("ico/several.ico").bytes();
    const QImage whole = PictureFile::decode(icon).pixels;
    const int count = uchar(icon[4]);
    for (int index = 0; index < count; ++index) {
        const qsizetype entry = 6 + 16 * index;
        const int width = uchar(icon[entry]) == 0 ? 256 : uchar(icon[entry]);
        if (width == whole.width())
            writeLongWord(icon, entry + 12, quint32(icon.size()) - (index == 0 ? 1 : 0));
    }
    const QImage other = PictureFile::decode(icon).pixels;
    EXPECT_LT(other.width(), whole.width());
}

TEST_F(PictureDamage, AJpegWithOtherDataBehindItIsShown)
{
    const QByteArray jpeg = PictureFixture::named("jpeg/plain.jpg").bytes();
    EXPECT_EQ(errorOf(jpeg + QByteArray("\xFF\xDA").repeated(1000)), 0);
    EXPECT_EQ(errorOf(jpeg + QByteArray("\xFF\xDA\0\x02", 4).repeated(100'000)), 0);
}

TEST_F(PictureDamage, APreviewWithinAJpegIsNotScanned)
{
    QByteArray jpeg = PictureFixture::named("jpeg/plain.jpg").bytes();
    const QByteArray preview = QByteArray("\xFF\xDA").repeated(1000);
    QByteArray segment("\xFF\xE5\0\0", 4);
    qToBigEndian<quint16>(quint16(preview.size() + 2), segment.data() + 2);
    jpeg.insert(2, segment + preview);
    EXPECT_EQ(errorOf(jpeg), 0);
}

TEST_F(PictureDamage, WhatABitmapLacksIsBlack)
{
    constexpr int side = 300; // pixels
    constexpr qsizetype headers = 54;
    QImage white(side, side, QImage::Format_RGB888);
    white.fill(Qt::white);
    QByteArray bitmap;
    QBuffer buffer(&bitmap);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(white.save(&buffer, "bmp"));
    QByteArray fromTop = bitmap;
    qToLittleEndian<qint32>(-side, fromTop.data() + 22);
    for (int round = 0; round < 5; ++round) { // memory of the whole ones is used again
        for (const QByteArray &whole : {bitmap, fromTop}) {
            const int last = whole == bitmap ? 0 : side - 1; // the row at the end of the file
            EXPECT_EQ(PictureFile::decode(whole).pixels.pixel(0, last), qRgb(255, 255, 255));
            const QImage cut = PictureFile::decode(whole.first(headers + 30'000)).pixels;
            EXPECT_EQ(cut.pixel(0, last), qRgb(0, 0, 0));
            EXPECT_EQ(cut.pixel(0, side - 1 - last), qRgb(255, 255, 255));
        }
    }
    qToLittleEndian<qint32>(std::numeric_limits<qint32>::min(), fromTop.data() + 22);
    EXPECT_EQ(errorOf(fromTop), ErrorNumber::InvalidPicture);
}

TEST_F(PictureDamage, BitmapsWithRunsBeyondTheirRowsAreShownOrRefused)
{
    QByteArray bitmap = PictureFixture::named("bmp/rle8.bmp").bytes();
    const qsizetype pixels = qFromLittleEndian<quint32>(bitmap.constData() + 10);
    bitmap.truncate(pixels);
    for (const QByteArray &run :
         {QByteArray("\xFF\x01", 2), QByteArray("\0\x02\xFF\xFF", 4), QByteArray("\0\xFF", 2)})
        expectShownOrRefused(bitmap + run.repeated(1000), run.toHex().toStdString());
}
