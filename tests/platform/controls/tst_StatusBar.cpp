#include "StatusBar.h"

#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

struct StatusBarTest : testing::Test
{
    StatusBar bar{QStringLiteral("Ready.."), {17410, 2540, 2540}};
    QLabel &panel(int index) const { return *bar.findChild<QLabel *>(QStringLiteral("panel_%1").arg(index)); }
};

} // namespace

TEST_F(StatusBarTest, PanelsHaveTheirWidths)
{
    bar.resize(1600, 24);
    bar.show();
    EXPECT_EQ(panel(1).width(), 1161);
    EXPECT_EQ(panel(2).width(), 169);
    EXPECT_EQ(panel(3).width(), 169);
}

TEST_F(StatusBarTest, TheTextYieldsToTheClock)
{
    bar.resize(600, 24);
    bar.show();
    EXPECT_EQ(panel(3).width(), 169);
    EXPECT_LE(panel(3).mapTo(&bar, QPoint(panel(3).width(), 0)).x(), 600);
}

TEST_F(StatusBarTest, DateAndTimeFollowTheClock)
{
    panel(2).setText(QStringLiteral("stale"));
    panel(3).setText(QStringLiteral("stale"));
    const QDate before = QDate::currentDate();
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel(3).text() != QStringLiteral("stale"); }));
    const QStringList dates = {QLocale().toString(before, QLocale::ShortFormat),
                               QLocale().toString(QDate::currentDate(), QLocale::ShortFormat)};
    EXPECT_TRUE(dates.contains(panel(2).text()));
    EXPECT_TRUE(panel(3).text().contains(u':'));
}
