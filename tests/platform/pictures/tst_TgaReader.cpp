#include "TgaReader.h"

#include <gtest/gtest.h>

TEST(TgaReader, AnEmptyFileIsNone)
{
    EXPECT_FALSE(TgaReader::recognises({}));
}
