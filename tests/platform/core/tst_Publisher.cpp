#include "Publisher.h"

#include <gtest/gtest.h>

TEST(Publisher, AddressesHaveTheHostOfTheFile)
{
    EXPECT_EQ(Publisher::webAddress(QStringLiteral("/quilloffice/")),
              QStringLiteral("http://www.tallowick.example/quilloffice/"));
}
