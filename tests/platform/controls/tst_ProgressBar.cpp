#include "ErrorNumberOf.h"
#include "ProgressBar.h"

#include <gtest/gtest.h>

namespace {

struct ProgressBarTest : testing::Test
{
    ProgressBar bar;
};

} // namespace

TEST_F(ProgressBarTest, StartsEmpty)
{
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_EQ(bar.Value(), 0);
}

TEST_F(ProgressBarTest, TakesValuesOfItsRange)
{
    bar.setMax(7);
    for (const int value : {0, 3, 7}) {
        bar.setValue(value);
        EXPECT_EQ(bar.Value(), value);
    }
}

TEST_F(ProgressBarTest, RefusesValuesOutsideItsRange)
{
    bar.setValue(40);
    EXPECT_EQ(errorNumberOf([&] { bar.setValue(-1); }), 380);
    EXPECT_EQ(errorNumberOf([&] { bar.setValue(101); }), 380);
    EXPECT_EQ(bar.Value(), 40);
}

TEST_F(ProgressBarTest, RefusesAnEmptyRange)
{
    EXPECT_EQ(errorNumberOf([&] { bar.setMin(100); }), 380);
    EXPECT_EQ(errorNumberOf([&] { bar.setMax(0); }), 380);
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Max(), 100);
}

TEST_F(ProgressBarTest, TheValueFollowsItsRange)
{
    bar.setValue(90);
    bar.setMax(50);
    EXPECT_EQ(bar.Value(), 50);
    bar.setValue(5);
    bar.setMin(20);
    EXPECT_EQ(bar.Value(), 20);
}
