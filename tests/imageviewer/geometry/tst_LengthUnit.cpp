#include "LengthUnit.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

constexpr LengthUnit pixels{LengthUnit::ofDisplay};
constexpr LengthUnit inches{1440};
constexpr LengthUnit millimetres{1440 / 25.4};

} // namespace

TEST(LengthUnitTest, APixelIsTheDisplays)
{
    EXPECT_EQ(pixels.of(600, 15), 40);
    EXPECT_EQ(pixels.of(600, 12), 50);
    EXPECT_EQ(pixels.toTwips(40, 12), 480);
}

TEST(LengthUnitTest, OtherUnitsAreTheSameOnEachDisplay)
{
    EXPECT_EQ(inches.of(2160, 12), 1.5F);
    EXPECT_EQ(inches.toTwips(1.5F, 12), 2160);
}

TEST(LengthUnitTest, TheTextIsTheFloatsShortestForm)
{
    EXPECT_EQ(pixels.text(600, 15), QStringLiteral("40"));
    EXPECT_EQ(pixels.text(606, 15), QStringLiteral("40.4"));
    EXPECT_EQ(inches.text(720, 15), QStringLiteral(".5"));
    EXPECT_EQ(inches.text(100, 15), QStringLiteral(".06944445"));
    EXPECT_EQ(millimetres.text(1440, 15), QStringLiteral("25.4"));
    EXPECT_EQ(inches.text(9600, 15), QStringLiteral("6.666667"));
}
