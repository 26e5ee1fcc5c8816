#include "FtpWindow.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

struct FtpWindowTest : testing::Test
{
    FtpWindow window;
};

} // namespace

TEST_F(FtpWindowTest, TakesTheFirstProfile)
{
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-FTP"));
}
