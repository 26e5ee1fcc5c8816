#include "ErrorNumberOf.h"
#include "PrintQt.h"
#include "StatusBar.h"
#include "StatusBarPanel.h"

#include <QDateTime>
#include <QLocale>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

constexpr StatusBarRow panelRows[] = {
    {StatusBarRow::Kind::Text, 17410, "Ready..", "<Ready..>"},
    {StatusBarRow::Kind::Date, 2540, "", "", Qt::AlignHCenter},
    {StatusBarRow::Kind::Time, 2540, "", "", Qt::AlignRight},
};

struct StatusBarTest : testing::Test
{
    StatusBar bar{panelRows};
    StatusBarPanel &panel(int position) const { return bar.Panels(position); }
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

TEST_F(StatusBarTest, PanelsAreAsTheirRowsSay)
{
    EXPECT_EQ(panel(1).objectName(), QStringLiteral("panel_1"));
    EXPECT_EQ(panel(1).Text(), QStringLiteral("Ready.."));
    EXPECT_EQ(panel(1).toolTip(), QStringLiteral("<qt>&lt;Ready..&gt;</qt>"));
    EXPECT_EQ(panel(1).alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    EXPECT_EQ(panel(2).alignment(), Qt::AlignCenter);
    EXPECT_EQ(panel(3).alignment(), Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(panel(3).toolTip(), QString());
    EXPECT_EQ(errorNumberOf([&] { panel(0); }), 35601);
    EXPECT_EQ(errorNumberOf([&] { panel(4); }), 35601);
}

TEST_F(StatusBarTest, ATextWithoutAWidthTakesTheBar)
{
    constexpr StatusBarRow one[] = {{StatusBarRow::Kind::Text, 0, "Ready.."}};
    StatusBar wide{one};
    wide.resize(1600, 24);
    wide.show();
    EXPECT_GT(wide.Panels(1).width(), 1500);
}

TEST_F(StatusBarTest, ATextIsShownPlainOnOneLine)
{
    const QString message = QStringLiteral("adding: <b>a</b>\n\u202Eb & %1");
    panel(1).setText(message);
    EXPECT_EQ(panel(1).Text(), message);
    EXPECT_EQ(panel(1).text(), QStringLiteral("adding: <b>a</b>\uFFFD\uFFFDb & %1"));
    EXPECT_EQ(panel(1).textFormat(), Qt::PlainText);
}

TEST_F(StatusBarTest, TheTextYieldsToTheClock)
{
    panel(1).setText(QString(1000, u'x'));
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

TEST_F(StatusBarTest, ANoticeLeavesThePanelsAndGoesAfterItsTime)
{
    bar.resize(900, 24);
    bar.show();
    bar.showNotice(QStringLiteral("2 <b>documents</b>"), 20);
    const auto &notice = *bar.findChild<QLabel *>(QStringLiteral("lblNotice"));
    EXPECT_TRUE(notice.isVisible());
    EXPECT_EQ(notice.text(), QStringLiteral("2 <b>documents</b>"));
    EXPECT_EQ(notice.textFormat(), Qt::PlainText);
    for (int position = 1; position <= 3; ++position)
        EXPECT_TRUE(panel(position).isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !notice.isVisible(); }));
}

TEST_F(StatusBarTest, ALongNoticeIsCutAndIsWholeInItsToolTip)
{
    const int narrowest = bar.minimumSizeHint().width();
    bar.resize(900, 24);
    bar.show();
    const QString text = QStringLiteral("a long notice ").repeated(50).trimmed();
    bar.showNotice(text, 10000);
    const auto &notice = *bar.findChild<QLabel *>(QStringLiteral("lblNotice"));
    EXPECT_LT(bar.minimumSizeHint().width(), narrowest + 50);
    EXPECT_GT(notice.width(), 400);
    EXPECT_EQ(notice.toolTip(), text);
}
