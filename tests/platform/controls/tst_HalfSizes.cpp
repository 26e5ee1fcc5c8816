#include "HalfSizes.h"

#include <gtest/gtest.h>

namespace {

QImage filled(int width, int height, QImage::Format format, const QColor &color)
{
    QImage image(width, height, format);
    image.fill(color);
    return image;
}

HalfSizes complete(const QImage &picture)
{
    HalfSizes sizes;
    sizes.setPicture(picture);
    sizes.makeAll();
    return sizes;
}

} // namespace

TEST(HalfSizesTest, CopiesGoDownTo64Pixels)
{
    const HalfSizes sizes = complete(filled(1001, 300, QImage::Format_RGB32, Qt::red));
    EXPECT_EQ(sizes.highestLevel(), 4);
    const QSize expected[] = {{1001, 300}, {501, 150}, {251, 75}, {126, 38}, {63, 19}};
    for (int level = 0; level <= 4; ++level) {
        EXPECT_EQ(sizes.at(level).size(), expected[level]);
        const QSize size = expected[level];
        EXPECT_EQ(sizes.at(level).pixelColor(size.width() - 1, size.height() - 1), QColor(Qt::red));
    }
}

TEST(HalfSizesTest, ASmallPictureHasNone)
{
    HalfSizes sizes;
    EXPECT_TRUE(sizes.isComplete());
    sizes.setPicture(filled(64, 64, QImage::Format_RGB32, Qt::red));
    EXPECT_TRUE(sizes.isComplete());
    sizes.setPicture(filled(65, 1, QImage::Format_RGB32, Qt::red));
    EXPECT_FALSE(sizes.isComplete());
    sizes.makeAll();
    EXPECT_EQ(sizes.at(1).size(), QSize(33, 1));
}

TEST(HalfSizesTest, APixelIsTheMeanOfFour)
{
    QImage picture = filled(70, 70, QImage::Format_RGB32, Qt::black);
    picture.setPixelColor(0, 0, QColor(200, 40, 3));
    picture.setPixelColor(1, 0, QColor(100, 40, 3));
    picture.setPixelColor(0, 1, QColor(0, 40, 3));
    picture.setPixelColor(1, 1, QColor(0, 40, 1));
    picture.setPixelColor(2, 0, QColor(255, 255, 255));
    const HalfSizes sizes = complete(picture);
    EXPECT_EQ(sizes.at(1).pixelColor(0, 0), QColor(75, 40, 3)); // 2.5 is rounded up
    EXPECT_EQ(sizes.at(1).pixelColor(1, 0), QColor(64, 64, 64));
    EXPECT_EQ(sizes.at(1).pixelColor(2, 0), QColor(Qt::black));
}

TEST(HalfSizesTest, TheLastOfAnOddNumberIsItsOwnNeighbour)
{
    QImage picture = filled(71, 71, QImage::Format_RGB32, Qt::black);
    picture.setPixelColor(70, 70, Qt::white);
    EXPECT_EQ(complete(picture).at(1).pixelColor(35, 35), QColor(Qt::white));
}

TEST(HalfSizesTest, GreyPicturesStayGrey)
{
    QImage picture = filled(71, 70, QImage::Format_Grayscale8, Qt::black);
    picture.setPixelColor(0, 0, Qt::white);
    picture.setPixelColor(70, 0, Qt::white);
    const HalfSizes sizes = complete(picture);
    EXPECT_EQ(sizes.at(1).format(), QImage::Format_Grayscale8);
    EXPECT_EQ(sizes.at(1).pixelColor(0, 0).red(), 64);
    EXPECT_EQ(sizes.at(1).pixelColor(35, 0).red(), 128);
}

TEST(HalfSizesTest, PicturesOfAllFormatsHaveCopies)
{
    const QImage white = filled(70, 70, QImage::Format_ARGB32, Qt::white);
    for (int format = QImage::Format_Mono; format < QImage::NImageFormats; ++format) {
        if (format == QImage::Format_Alpha8)
            continue; // it has no colour
        const QImage picture = white.convertToFormat(QImage::Format(format));
        const HalfSizes sizes = complete(picture);
        ASSERT_EQ(sizes.highestLevel(), 1) << format;
        EXPECT_EQ(sizes.at(1).pixelColor(20, 20), QColor(Qt::white)) << format;
    }
}

TEST(HalfSizesTest, TransparencyIsMixed)
{
    QImage picture = filled(70, 70, QImage::Format_ARGB32, Qt::transparent);
    picture.setPixelColor(0, 0, QColor(255, 0, 0));
    const QColor mixed = complete(picture).at(1).pixelColor(0, 0);
    EXPECT_EQ(mixed.alpha(), 64);
    EXPECT_EQ(mixed.red(), 255); // what is clear has no colour to mix in
}

TEST(HalfSizesTest, ALargePictureTakesManyPieces)
{
    HalfSizes sizes;
    sizes.setPicture(filled(4000, 3000, QImage::Format_RGB32, Qt::red));
    int pieces = 0;
    for (; !sizes.isComplete(); ++pieces)
        sizes.makePiece();
    EXPECT_GT(pieces, 20);
    EXPECT_LT(pieces, 60);
    sizes.makePiece(); // nothing more
    EXPECT_EQ(sizes.highestLevel(), 6);
}

TEST(HalfSizesTest, CopiesHaveAThirdOfThePicturesBytes)
{
    const HalfSizes sizes = complete(filled(4000, 3000, QImage::Format_RGB32, Qt::red));
    qsizetype bytes = 0;
    for (int level = 1; level <= sizes.highestLevel(); ++level)
        bytes += sizes.at(level).sizeInBytes();
    EXPECT_LT(bytes, sizes.picture().sizeInBytes() / 3 + 4096);
}

TEST(HalfSizesTest, TheLevelIsTheSmallestThatIsNotMagnified)
{
    const HalfSizes sizes = complete(filled(1000, 300, QImage::Format_RGB32, Qt::red));
    const std::pair<double, int> levels[] = {{2, 0},    {1, 0},    {0.51, 0},  {0.5, 1},
                                             {0.26, 1}, {0.25, 2}, {0.125, 3}, {0.001, 4}};
    for (const auto &[scale, level] : levels)
        EXPECT_EQ(sizes.levelFor(scale), level) << scale;
}

TEST(HalfSizesTest, AnotherPictureHasItsOwn)
{
    HalfSizes sizes = complete(filled(1000, 1000, QImage::Format_RGB32, Qt::red));
    sizes.setPicture(filled(100, 100, QImage::Format_RGB32, Qt::blue));
    EXPECT_EQ(sizes.highestLevel(), 0);
    sizes.makeAll();
    EXPECT_EQ(sizes.at(1).pixelColor(0, 0), QColor(Qt::blue));
}
