#include "BookSizes.h"

#include <gtest/gtest.h>

TEST(BookSizes, FollowTheWindow)
{
    const BookSizes sizes = BookSizes::of(12000, 8000, 900);
    EXPECT_EQ(sizes.listWidth, 9250);
    EXPECT_EQ(sizes.listHeight, 6400);
    EXPECT_EQ(sizes.treeHeight, 5900);
    EXPECT_EQ(sizes.lineEnd, 11850);
    EXPECT_EQ(sizes.imageTop, 6800);
}

TEST(BookSizes, ALowWindowHasNoRoomForTreeAndList)
{
    const BookSizes sizes = BookSizes::of(BookSizes::leastLength, BookSizes::leastLength, 900);
    EXPECT_EQ(sizes.listWidth, 0);
    EXPECT_EQ(sizes.listHeight, 0);
    EXPECT_EQ(sizes.treeHeight, 0);
    EXPECT_EQ(sizes.imageTop, -800);
}
