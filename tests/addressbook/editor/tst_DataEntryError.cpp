#include "DataEntryError.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

TEST(DataEntryError, NumberAndDetailFollowDirectly)
{
    EXPECT_EQ(DataEntryError::text(RuntimeError(-2147467259, QStringLiteral("no %1 <b>city</b>"))),
              QStringLiteral("There is an error in the data you entered,\r\n"
                             "please correct the entry and try again!\r\n"
                             "The most likely error is that you tried\r\n"
                             "to enter a City/Town instead of selecting one\r\n"
                             "from the list.\r\n"
                             "Error Code:-2147467259\r\n"
                             "Detail:no %1 <b>city</b>"));
}
