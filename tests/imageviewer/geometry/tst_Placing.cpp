#include "Placing.h"

#include <gtest/gtest.h>

namespace {

/// A window of 6000 by 5000 twips on a screen of 800 by 600 pixels.
const Surroundings around{{6000, 5000}, {12000, 9000}};

} // namespace

TEST(PlacingTest, ASmallPictureIsInTheMiddle)
{
    const ImagePlace place = Placing::centered({1000, 800}, around, 0);
    EXPECT_EQ(place, (ImagePlace{2444, 1730}));
    EXPECT_EQ(Placing::centered({1001, 801}, around, 0), (ImagePlace{2443.5F, 1729.5F}));
}

TEST(PlacingTest, BarsTakeHeightFromTheTop)
{
    EXPECT_EQ(Placing::centered({1000, 800}, around, 300), (ImagePlace{2444, 1880}));
    EXPECT_EQ(Placing::centered({1000, 800}, around, 600), (ImagePlace{2444, 2030}));
    EXPECT_EQ(Placing::centered({1000, 800}, around, -300), (ImagePlace{2444, 1580}));
}

TEST(PlacingTest, APictureLargerThanTheWindowStandsOutOnBothSides)
{
    EXPECT_EQ(Placing::centered({11999, 8999}, around, 0), (ImagePlace{-3055.5F, -2369.5F}));
}

TEST(PlacingTest, APictureAsLargeAsTheScreenHasAPlaceOfTheOppositeSign)
{
    EXPECT_EQ(Placing::centered({12000, 800}, around, 0), (ImagePlace{3056, 1730}));
    EXPECT_EQ(Placing::centered({1000, 9000}, around, 300), (ImagePlace{2444, 2820}));
}

TEST(PlacingTest, TheScreenIsFilledByASideAsLong)
{
    EXPECT_TRUE(Placing::fillsScreen({12000, 1}, around));
    EXPECT_TRUE(Placing::fillsScreen({1, 9000}, around));
    EXPECT_FALSE(Placing::fillsScreen({11999, 8999}, around));
}

TEST(PlacingTest, TheWindowFitsThePicture)
{
    EXPECT_EQ(Placing::windowFor({2550, 3000}), (ImageSize{2666, 4000}));
    EXPECT_EQ(Placing::windowFor({2550.5F, 3000}), (ImageSize{2666.5F, 4000}));
    EXPECT_EQ(Placing::windowFor({2551, 3000}), (ImageSize{2667, 3736}));
}

TEST(PlacingTest, APictureHoldsTheWindowOpen)
{
    EXPECT_EQ(Placing::heldBy({6100, 5100}, around), (ImageSize{6100, 5100}));
    EXPECT_EQ(Placing::heldBy({5900, 5100}, around), (ImageSize{6000, 5100}));
    EXPECT_EQ(Placing::heldBy({6100, 4900}, around), (ImageSize{6100, 5000}));
    // Sizes are compared in whole pixels; half a pixel goes to the even one.
    EXPECT_EQ(Placing::heldBy({6007.5F, 5002}, around), (ImageSize{6000, 5000}));
    EXPECT_EQ(Placing::heldBy({6007.6F, 5008}, around), (ImageSize{6007.6F, 5008}));
}

TEST(PlacingTest, TheWindowIsNoSmallerThan290By270Pixels)
{
    EXPECT_EQ(Placing::noSmaller({4349, 4049}, around), (ImageSize{4350, 4050}));
    EXPECT_EQ(Placing::noSmaller({4350, 4050}, around), (ImageSize{4350, 4050}));
    Surroundings uneven = around;
    uneven.twipsPerPixelX = 12;
    EXPECT_EQ(Placing::noSmaller({3479, 5000}, uneven), (ImageSize{4350, 5000}));
    EXPECT_EQ(Placing::noSmaller({3480, 5000}, uneven), (ImageSize{3480, 5000}));
}

TEST(PlacingTest, ARectangleThatFollowsTheWindowIsLower)
{
    EXPECT_EQ(Placing::filling({6000, 5000}), (ImageSize{6000, 4900}));
}

TEST(PlacingTest, ADragIsDamped)
{
    const ImageSize image{9000, 8000};
    EXPECT_EQ(Placing::dragged({-100, -200}, image, around, {-144, 288}), (ImagePlace{-200, 0}));
    EXPECT_EQ(Placing::dragged({-100, -200}, image, around, {0, 0}), (ImagePlace{-100, -200}));
    EXPECT_FLOAT_EQ(Placing::dragged({-100, -200}, image, around, {1, 0}).left, -99.305556F);
}

TEST(PlacingTest, ADragMovesOnlySidesThatAreLongerThanTheWindows)
{
    EXPECT_EQ(Placing::dragged({5, 5}, {6000, 5001}, around, {144, 144}), (ImagePlace{5, 105}));
    EXPECT_EQ(Placing::dragged({5, 5}, {6001, 5000}, around, {144, 144}), (ImagePlace{105, 5}));
    EXPECT_EQ(Placing::dragged({5, 5}, {600, 500}, around, {144, 144}), (ImagePlace{5, 5}));
}

TEST(PlacingTest, TheUpperAndTheLeftEdgeStayOutside)
{
    EXPECT_EQ(Placing::clamped({10, 10}, {600, 500}, around), (ImagePlace{0, 0}));
    EXPECT_EQ(Placing::clamped({10, 10}, {9000, 8000}, around), (ImagePlace{0, 0}));
    EXPECT_EQ(Placing::clamped({-10, -20}, {600, 500}, around), (ImagePlace{-10, -20}));
}

TEST(PlacingTest, TheLowerEdgeStaysOutside)
{
    EXPECT_EQ(Placing::clamped({0, -3000}, {100, 8000}, around).top, -3000);
    EXPECT_EQ(Placing::clamped({0, -3001}, {100, 8000}, around).top, -3000);
    EXPECT_EQ(Placing::clamped({0, -3001}, {100, 5000}, around).top, -3001);
}

TEST(PlacingTest, OnTheRight128PixelsStay)
{
    // 128 pixels are 1920 twips, so the limit is -7080. It is reached two pixels before.
    const ImageSize image{9000, 100};
    EXPECT_EQ(Placing::clamped({-7050, 0}, image, around).left, -7050);
    EXPECT_EQ(Placing::clamped({-7050.6F, 0}, image, around).left, -7080);
    EXPECT_EQ(Placing::clamped({-8000, 0}, image, around).left, -7080);
    EXPECT_EQ(Placing::clamped({-8000, 0}, {6000, 100}, around).left, -8000);
}
