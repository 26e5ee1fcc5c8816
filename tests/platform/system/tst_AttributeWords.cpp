#include "AttributeWords.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

TEST(AttributeWordsTest, AreInTheirOrder)
{
    EXPECT_EQ(AttributeWords::of(~0), QStringLiteral("Alias, Archive, Directory, Hidden, Read-Only, System, "
                                                     "Volume, Compressed, Temporary"));
    EXPECT_EQ(AttributeWords::of(33), QStringLiteral("Archive, Read-Only"));
    EXPECT_EQ(AttributeWords::of(128), QString());
    const std::pair<int, const char *> words[] = {
        {64, "Alias"}, {32, "Archive"}, {16, "Directory"},    {2, "Hidden"},      {1, "Read-Only"},
        {4, "System"}, {8, "Volume"},   {2048, "Compressed"}, {256, "Temporary"},
    };
    for (const auto &[bit, word] : words)
        EXPECT_EQ(AttributeWords::of(bit), QString::fromLatin1(word));
}
