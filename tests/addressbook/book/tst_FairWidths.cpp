#include "FairWidths.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

TEST(FairWidths, WithRoomAllAreAsWideAsTheyWant)
{
    EXPECT_EQ(FairWidths::of({30, 10, 20}, 60), (QList<int>{30, 10, 20}));
    EXPECT_EQ(FairWidths::of({30, 10, 20}, 100), (QList<int>{30, 10, 20}));
    EXPECT_EQ(FairWidths::of({}, 100), QList<int>());
}

TEST(FairWidths, TheWidestGiveWayFirst)
{
    EXPECT_EQ(FairWidths::of({30, 10, 20}, 55), (QList<int>{25, 10, 20}));
    EXPECT_EQ(FairWidths::of({30, 10, 20}, 40), (QList<int>{15, 10, 15}));
    EXPECT_EQ(FairWidths::of({30, 10, 20}, 21), (QList<int>{7, 7, 7}));
    EXPECT_EQ(FairWidths::of({30, 10, 20}, -5), (QList<int>{0, 0, 0}));
}
