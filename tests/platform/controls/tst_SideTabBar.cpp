#include "SideTabBar.h"
#include "TabStrip.h"

#include <QImage>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct SideTabBarTest : testing::Test
{
    SideTabBarTest()
    {
        for (const char *caption : {"Short", "A much longer caption", "Third"})
            tabs.addPage(QString::fromLatin1(caption));
        tabs.resize(600, 400);
        tabs.show();
    }
    QTabBar &bar() { return *tabs.tabBar(); }

    TabStrip tabs{nullptr, TabStrip::TabPlace::Beside};
};

} // namespace

TEST_F(SideTabBarTest, TheTabsAreInAColumnWithRoomForTheirCaptions)
{
    for (int i = 0; i < bar().count(); ++i) {
        EXPECT_GT(bar().tabRect(i).width(), bar().fontMetrics().horizontalAdvance(bar().tabText(i))) << i;
        EXPECT_EQ(bar().tabRect(i).left(), bar().tabRect(0).left());
        EXPECT_LT(bar().tabRect(i).height(), 3 * bar().fontMetrics().height());
        EXPECT_TRUE(i == 0 || bar().tabRect(i).top() > bar().tabRect(i - 1).top());
    }
    EXPECT_GE(tabs.widget(0)->mapTo(&tabs, QPoint()).x(), bar().geometry().right());
}

TEST_F(SideTabBarTest, TheirCaptionsReadFromLeftToRight)
{
    const auto inkOf = [this](int tab) {
        const QImage picture = bar().grab(bar().tabRect(tab).adjusted(6, 3, -6, -3)).toImage();
        const QRgb paper = picture.pixel(picture.width() - 1, picture.height() / 2);
        int left = picture.width();
        int right = 0;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (qAbs(qGray(picture.pixel(x, y)) - qGray(paper)) > 60) {
                    left = qMin(left, x);
                    right = qMax(right, x);
                }
            }
        }
        return right - left;
    };
    EXPECT_NEAR(inkOf(1), bar().fontMetrics().horizontalAdvance(bar().tabText(1)), 6);
    EXPECT_LT(inkOf(0), inkOf(1));
}

TEST_F(SideTabBarTest, TheArrowKeysWalkUpAndDown)
{
    for (const bool isMirrored : {false, true}) {
        tabs.setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
        tabs.setTab(0);
        QTest::keyClick(&bar(), Qt::Key_Down);
        EXPECT_EQ(tabs.Tab(), 1) << isMirrored;
        tabs.setTabEnabled(2, false);
        QTest::keyClick(&bar(), Qt::Key_Down);
        EXPECT_EQ(tabs.Tab(), 1) << isMirrored; // the last that is enabled
        QTest::keyClick(&bar(), Qt::Key_Up);
        EXPECT_EQ(tabs.Tab(), 0) << isMirrored;
    }
}

TEST_F(SideTabBarTest, AClickBringsItsPageToTheFront)
{
    QTest::mouseClick(&bar(), Qt::LeftButton, {}, bar().tabRect(2).center());
    EXPECT_EQ(tabs.Tab(), 2);
}
