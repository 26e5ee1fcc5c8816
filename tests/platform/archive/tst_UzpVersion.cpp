#include "UnzipLibrary.h"
#include "Version.h"

#include <gtest/gtest.h>

TEST(UzpVersionTest, IsThatOfTheSuite)
{
    UZPVER version;
    UzpVersion2(version);
    EXPECT_EQ(version.windll[0], Version::major);
    EXPECT_EQ(version.windll[1], Version::minor);
    EXPECT_EQ(version.windll[2], Version::revision);
}
