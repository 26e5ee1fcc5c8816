#include "ErrorNumberOf.h"
#include "TabStrip.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

struct TabStripTest : testing::Test
{
    TabStrip tabs;
    QWidget *name = tabs.addPage(QStringLiteral("&Name"));
    QWidget *home = tabs.addPage(QStringLiteral("Home Details"));
    QWidget *business = tabs.addPage(QStringLiteral(" Business Details"));
};

} // namespace

TEST_F(TabStripTest, ShowsOnePageAtATime)
{
    EXPECT_EQ(tabs.Tabs(), 3);
    EXPECT_EQ(tabs.Tab(), 0);
    tabs.show();
    tabs.setTab(2);
    EXPECT_EQ(tabs.Tab(), 2);
    EXPECT_TRUE(business->isVisible());
    EXPECT_FALSE(name->isVisible());
}

TEST_F(TabStripTest, KeepsCaptionsAndNamesItsPages)
{
    EXPECT_EQ(tabs.TabCaption(2), QStringLiteral(" Business Details"));
    EXPECT_EQ(business->accessibleName(), QStringLiteral("Business Details"));
    EXPECT_EQ(name->accessibleName(), QStringLiteral("Name"));
    tabs.setTabCaption(1, QStringLiteral("At &Home"));
    EXPECT_EQ(tabs.TabCaption(1), QStringLiteral("At &Home"));
    EXPECT_EQ(home->accessibleName(), QStringLiteral("At Home"));
}

TEST_F(TabStripTest, DisablesAndHidesTabs)
{
    tabs.setTabEnabled(1, false);
    EXPECT_FALSE(tabs.TabEnabled(1));
    tabs.setTabVisible(2, false);
    EXPECT_FALSE(tabs.TabVisible(2));
    tabs.setTabVisible(2, true);
    EXPECT_TRUE(tabs.TabVisible(2));
}

TEST_F(TabStripTest, RefusesTabsThatAreNotThere)
{
    for (const int tab : {-1, 3}) {
        EXPECT_EQ(errorNumberOf([&] { tabs.setTab(tab); }), 380);
        EXPECT_EQ(errorNumberOf([&] { (void)tabs.TabCaption(tab); }), 380);
        EXPECT_EQ(errorNumberOf([&] { tabs.setTabCaption(tab, {}); }), 380);
        EXPECT_EQ(errorNumberOf([&] { (void)tabs.TabEnabled(tab); }), 380);
        EXPECT_EQ(errorNumberOf([&] { tabs.setTabEnabled(tab, true); }), 380);
        EXPECT_EQ(errorNumberOf([&] { (void)tabs.TabVisible(tab); }), 380);
        EXPECT_EQ(errorNumberOf([&] { tabs.setTabVisible(tab, true); }), 380);
    }
    EXPECT_EQ(tabs.Tab(), 0);
}

TEST_F(TabStripTest, KeysGoToTheNextPage)
{
    QLineEdit field(name);
    tabs.show();
    field.setFocus();
    (void)QTest::qWaitForWindowActive(&tabs);
    QTest::keyClick(&field, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs.Tab(), 1);
    QTest::keyClick(&tabs, Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(tabs.Tab(), 0);
}
