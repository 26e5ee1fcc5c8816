#include "BrowserWindow.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

struct PagesTest : testing::Test
{
    BrowserWindow browser;
};

} // namespace

TEST_F(PagesTest, StartsAtItsAddress)
{
    browser.server.titled("/", "First");
    browser.open(QStringLiteral("/"));
    browser.waitForTitle(QStringLiteral("First"));
    EXPECT_EQ(browser.list(), QStringList(browser.server.address(QStringLiteral("/"))));
}
