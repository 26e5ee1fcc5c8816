#include "ErrorNumberOf.h"
#include "SizeSteps.h"

#include <gtest/gtest.h>

TEST(SizeStepsTest, TheListHas20Percentages)
{
    EXPECT_EQ(SizeSteps::percent(0), 25);
    EXPECT_EQ(SizeSteps::percent(1), 50);
    EXPECT_EQ(SizeSteps::percent(SizeSteps::wholeRow), 100);
    EXPECT_EQ(SizeSteps::percent(3), 200);
    EXPECT_EQ(SizeSteps::percent(SizeSteps::percentRows - 1), 1800);
}

TEST(SizeStepsTest, ARowOfTheListIsItsPercentage)
{
    const ImageSize own{300, 100};
    for (int row = 0; row < SizeSteps::percentRows; ++row) {
        const float factor = float(SizeSteps::percent(row)) / 100;
        EXPECT_EQ(SizeSteps::atPercent(own, row), (ImageSize{300 * factor, 100 * factor})) << row;
    }
}

TEST(SizeStepsTest, AQuarterHasNoMinimum)
{
    EXPECT_EQ(SizeSteps::atPercent({100, 100}, 0), (ImageSize{25, 25}));
    EXPECT_EQ(SizeSteps::atPercent({15, 0}, 0), (ImageSize{3.75F, 0}));
}

TEST(SizeStepsTest, ARatioKeepsTheWidth)
{
    EXPECT_EQ(SizeSteps::fromRatio({6000, 100}, 4, 3), (ImageSize{6000, 4500}));
    EXPECT_EQ(SizeSteps::fromRatio({6000, 100}, 1, 1), (ImageSize{6000, 6000}));
    EXPECT_EQ(SizeSteps::fromRatio({6000, 100}, 16, 10), (ImageSize{6000, 3750}));
}

TEST(SizeStepsTest, ARatiosHeightIsRoundedToTheEvenNeighbour)
{
    EXPECT_EQ(SizeSteps::fromRatio({6, 0}, 4, 3).height, 4);      // 4.5
    EXPECT_EQ(SizeSteps::fromRatio({10, 0}, 4, 3).height, 8);     // 7.5
    EXPECT_EQ(SizeSteps::fromRatio({300, 0}, 14, 9).height, 193); // 192.86
}

TEST(SizeStepsTest, ARatiosHeightHas16Bits)
{
    EXPECT_EQ(SizeSteps::fromRatio({32767, 0}, 1, 1).height, 32767);
    EXPECT_EQ(SizeSteps::fromRatio({32767.25F, 0}, 1, 1).height, 32767);
    EXPECT_EQ(errorNumberOf([] { SizeSteps::fromRatio({32767.5F, 0}, 1, 1); }), ErrorNumber::Overflow);
    EXPECT_EQ(errorNumberOf([] { SizeSteps::fromRatio({1e30F, 0}, 4, 3); }), ErrorNumber::Overflow);
}

TEST(SizeStepsTest, ASquareHasTheMeanOfBothSides)
{
    EXPECT_EQ(SizeSteps::squared({6000, 4000}), (ImageSize{5000, 5000}));
    EXPECT_EQ(SizeSteps::squared({4000, 6000}), (ImageSize{5000, 5000}));
}

TEST(SizeStepsTest, HalfTheDifferenceIsRoundedToTheEvenNeighbour)
{
    EXPECT_EQ(SizeSteps::squared({105, 100}), (ImageSize{103, 102}));       // 2.5
    EXPECT_EQ(SizeSteps::squared({107, 100}), (ImageSize{103, 104}));       // 3.5
    EXPECT_EQ(SizeSteps::squared({100, 102.5F}), (ImageSize{101, 101.5F})); // 2.5 is 2
}

TEST(SizeStepsTest, ADifferenceHas16Bits)
{
    EXPECT_EQ(SizeSteps::squared({32767, 0}), (ImageSize{16383, 16384})); // 16383.5 is 16384
    EXPECT_EQ(errorNumberOf([] { SizeSteps::squared({32768, 0}); }), ErrorNumber::Overflow);
    EXPECT_EQ(errorNumberOf([] { SizeSteps::squared({0, 32768}); }), ErrorNumber::Overflow);
}
