#include "PrintQt.h"
#include "ProofingLanguage.h"

#include <gtest/gtest.h>

TEST(ProofingLanguageTest, NumbersAreLanguages)
{
    EXPECT_EQ(ProofingLanguage::name(1033), QStringLiteral("en_US"));
    EXPECT_EQ(ProofingLanguage::name(2057), QStringLiteral("en_GB"));
    EXPECT_EQ(ProofingLanguage::name(1031), QStringLiteral("de_DE"));
    EXPECT_EQ(ProofingLanguage::name(9), QStringLiteral("en"));
}

TEST(ProofingLanguageTest, OtherNumbersAreNone)
{
    for (const int number : {0, -1, 1024, 0xFFFF, 100000000})
        EXPECT_EQ(ProofingLanguage::name(number), QString()) << number;
}
