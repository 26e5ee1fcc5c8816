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

TEST_F(MdiAreaTest, MinimisedChildrenThatFillARowBeginASecondOneAboveIt)
{
    frame.resize(900, 600);
    frame.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
    QList<QMdiSubWindow *> icons;
    for (int i = 0; i < 3; ++i) {
        icons << &placed(QSizePolicy::Preferred);
        icons.last()->showMinimized();
    }
    QMdiSubWindow &open = placed(QSizePolicy::Preferred);
    const QSize icon = icons[0]->size();
    const int width = 2 * icon.width() + icon.width() / 2; // two beside each other
    const int height = 6 * icon.height();
    frame.resize(frame.size() + QSize(width, height) - area->viewport()->size());
    ASSERT_EQ(area->viewport()->size(), QSize(width, height));
    for (QMdiSubWindow *child : icons)
        child->move(7, 7);

    area->arrange(MdiArea::Arrangement::ArrangeIcons);
    EXPECT_EQ(icons[0]->pos(), QPoint(0, height - icon.height()));
    EXPECT_EQ(icons[1]->pos(), QPoint(icon.width(), height - icon.height()));
    EXPECT_EQ(icons[2]->pos(), QPoint(0, height - 2 * icon.height()));

    area->arrange(MdiArea::Arrangement::TileHorizontal);
    EXPECT_EQ(open.geometry(), QRect(0, 0, width, height - 2 * icon.height()));
}
