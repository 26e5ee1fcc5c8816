#include "MdiArea.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct Child : QWidget
{
    explicit Child(QSizePolicy::Policy policy) { setSizePolicy(policy, policy); }
    QSize sizeHint() const override { return {600, 400}; }
    QSize minimumSizeHint() const override { return {450, 250}; }
};

struct MdiAreaTest : testing::Test
{
    QMainWindow frame;
    MdiArea *area = new MdiArea(&frame);

    MdiAreaTest() { frame.setCentralWidget(area); }
    QMdiSubWindow &placed(QSizePolicy::Policy policy)
    {
        auto *child = new Child(policy);
        area->adopt(*child);
        area->bringForward(*child);
        return static_cast<QMdiSubWindow &>(*child->parentWidget());
    }
};

} // namespace

TEST_F(MdiAreaTest, AChildThatExpandsFollowsALargeFrame)
{
    frame.resize(1800, 1200);
    const QMdiSubWindow &first = placed(QSizePolicy::Expanding); // before the frame is shown
    EXPECT_EQ(first.size(), QSize(1200, 800));
    frame.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
    EXPECT_EQ(first.size(), QSize(1200, 800));
    EXPECT_EQ(placed(QSizePolicy::Expanding).size(), QSize(1200, 800));
}

TEST_F(MdiAreaTest, AChildWithASizeOfItsOwnKeepsIt)
{
    frame.resize(1800, 1200);
    EXPECT_EQ(placed(QSizePolicy::Preferred).size(), QSize(600, 400));
}

TEST_F(MdiAreaTest, InASmallFrameTheChildsOwnSizeIsBoundedByTheArea)
{
    frame.resize(880, 500);
    EXPECT_EQ(placed(QSizePolicy::Expanding).size(), QSize(600, 400));
    frame.resize(500, 300);
    EXPECT_EQ(placed(QSizePolicy::Expanding).size(), QSize(500, 300));
}

TEST_F(MdiAreaTest, InATinyFrameTheChildStillHasRoomForItsControls)
{
    frame.resize(300, 200);
    const QMdiSubWindow &window = placed(QSizePolicy::Expanding);
    EXPECT_EQ(window.size(), window.minimumSizeHint());
    EXPECT_GE(window.widget()->width(), 450);
    EXPECT_GE(window.widget()->height(), 250);
}

TEST_F(MdiAreaTest, MaximisedAndRestoredAChildKeepsItsFocus)
{
    frame.resize(1800, 1200);
    frame.show();
    QMdiSubWindow &window = placed(QSizePolicy::Preferred);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    QLineEdit fields[3];
    for (QLineEdit &field : fields) {
        field.setParent(window.widget());
        field.show();
    }
    fields[1].setFocus();
    ASSERT_TRUE(fields[1].hasFocus());
    window.showMaximized();
    QCoreApplication::processEvents();
    EXPECT_TRUE(fields[1].hasFocus());
    window.showNormal();
    QCoreApplication::processEvents();
    EXPECT_TRUE(fields[1].hasFocus());
}
