#include "Twips.h"

#include <gtest/gtest.h>

TEST(TwipsTest, FifteenToThePixelAt96)
{
    EXPECT_EQ(Twips::toPixels(15, 96), 1);
    EXPECT_EQ(Twips::toPixels(13200, 96), 880);
    EXPECT_EQ(Twips::toPixels(-1000, 96), -67);
    EXPECT_EQ(Twips::fromPixels(880, 96), 13200.0);
}

TEST(TwipsTest, FollowTheResolution)
{
    EXPECT_EQ(Twips::toPixels(Twips::perInch, 144), 144);
    EXPECT_EQ(Twips::fromPixels(144, 144), Twips::perInch);
    EXPECT_EQ(Twips::perInch / Twips::perPoint, 72);
}

TEST(TwipsTest, PixelsComeBackWhole)
{
    for (const double dpi : {72.0, 96.0, 110.0, 144.0, 192.0}) {
        for (int pixels = -3000; pixels <= 3000; pixels += 7)
            EXPECT_EQ(Twips::toPixels(Twips::fromPixels(pixels, dpi), dpi), pixels) << dpi;
    }
}
