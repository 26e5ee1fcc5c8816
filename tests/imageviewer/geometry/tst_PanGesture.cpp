#include "PanGesture.h"

#include <gtest/gtest.h>

namespace {

/// Moves to \a x, \a y as often as it takes for one that counts.
std::optional<QPoint> fifthMove(PanGesture &gesture, float x, float y)
{
    for (int i = 0; i < 4; ++i)
        EXPECT_FALSE(gesture.move(x, y));
    return gesture.move(x, y);
}

} // namespace

TEST(PanGestureTest, EveryFifthMoveCounts)
{
    PanGesture gesture;
    gesture.press(100, 50, true);
    EXPECT_EQ(fifthMove(gesture, 130, 40), QPoint(30, -10));
    EXPECT_EQ(fifthMove(gesture, 90, 50), QPoint(-10, 0));
}

TEST(PanGestureTest, MovesBeforeThePressCountToo)
{
    PanGesture gesture;
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(gesture.move(0, 0));
    gesture.press(0, 0, true);
    EXPECT_FALSE(gesture.move(15, 15));
    EXPECT_EQ(gesture.move(15, 15), QPoint(15, 15));
}

TEST(PanGestureTest, WithoutPanModeNothingIsDragged)
{
    PanGesture gesture;
    gesture.press(0, 0, false);
    EXPECT_FALSE(gesture.isDragging());
    EXPECT_FALSE(fifthMove(gesture, 15, 15));
    EXPECT_FALSE(fifthMove(gesture, 15, 15)); // the count has begun again
}

TEST(PanGestureTest, AReleaseEndsTheDrag)
{
    PanGesture gesture;
    gesture.press(0, 0, true);
    EXPECT_TRUE(gesture.isDragging());
    gesture.release();
    EXPECT_FALSE(fifthMove(gesture, 15, 15));
}

TEST(PanGestureTest, PositionsAreRoundedToTheEvenNeighbour)
{
    PanGesture gesture;
    gesture.press(0.5F, 1.5F, true);
    EXPECT_EQ(fifthMove(gesture, 2.5F, 3.5F), QPoint(2, 2));
}
