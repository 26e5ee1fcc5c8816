#include "HelpTable.h"
#include "HelpTopics.h"

#include <gtest/gtest.h>
#include <iterator>

TEST(HelpTopics, AreThoseOfTheTable)
{
    ASSERT_EQ(HelpTopics::all().size(), std::size(HelpTable::rows));
    for (std::size_t i = 0; i < std::size(HelpTable::rows); ++i) {
        const HelpTopics::Topic &topic = HelpTopics::all()[i];
        const HelpTable::Row &row = HelpTable::rows[i];
        EXPECT_STREQ(topic.tab, row.tab) << i;
        EXPECT_EQ(topic.index, row.index) << i;
        EXPECT_STREQ(topic.caption, row.caption);
        EXPECT_STREQ(topic.file, row.file);
    }
}

TEST(HelpTopics, HaveTheIndexes0To38)
{
    for (int index = 0; index <= 38; ++index) {
        ASSERT_NE(HelpTopics::withIndex(index), nullptr) << index;
        EXPECT_EQ(HelpTopics::withIndex(index)->index, index);
    }
    for (const int index : {-1, 39, 1000})
        EXPECT_EQ(HelpTopics::withIndex(index), nullptr) << index;
}
