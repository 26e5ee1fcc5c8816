#include "OverwriteReply.h"
#include "Prompts.h"

#include <gtest/gtest.h>

TEST(OverwriteReplyTest, IsWhatTheLibraryKnows)
{
    EXPECT_EQ(OverwriteReply::of(MsgBoxReply::Yes, false), 102);
    EXPECT_EQ(OverwriteReply::of(MsgBoxReply::Yes, true), 103);
    EXPECT_EQ(OverwriteReply::of(MsgBoxReply::No, false), 100);
    EXPECT_EQ(OverwriteReply::of(MsgBoxReply::No, true), 104);
    for (const int other : {0, 1, MsgBoxReply::Cancel, 8, -1}) {
        EXPECT_EQ(OverwriteReply::of(other, false), 104) << other;
        EXPECT_EQ(OverwriteReply::of(other, true), 104) << other;
    }
}
