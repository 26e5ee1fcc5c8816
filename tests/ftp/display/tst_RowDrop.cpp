#include "EventGate.h"
#include "ListBox.h"
#include "RowDrop.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <gtest/gtest.h>

namespace {

/// Two lists in a window, of which the left one's rows can be dropped on the right one.
struct RowDropTest : testing::Test
{
    QWidget window;
    ListBox *left = new ListBox(&window);
    ListBox *right = new ListBox(&window);
    int drops = 0;

    RowDropTest()
    {
        auto *row = new QHBoxLayout(&window);
        for (ListBox *list : {left, right}) {
            row->addWidget(list);
            list->addItems({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        }
        on(new RowDrop(*left, *right), &RowDrop::Dropped, &window, [this] { ++drops; });
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void drag(ListBox &from, ListBox &onto)
    {
        QWindow *screen = window.windowHandle();
        const QPoint start =
            from.viewport()->mapTo(&window, from.visualRect(from.model()->index(1, 0)).center());
        const QPoint end = onto.viewport()->mapTo(&window, onto.viewport()->rect().center());
        QTest::mousePress(screen, Qt::LeftButton, {}, start);
        QTest::mouseMove(screen, start + QPoint(0, 30));
        QTimer::singleShot(0, &window, [screen, end] { // in the drag, which takes what the window gets
            QTest::mouseMove(screen, end);
            QTest::mouseMove(screen, end + QPoint(1, 1));
            QTest::mouseRelease(screen, Qt::LeftButton, {}, end);
        });
        QTest::mouseMove(screen, start + QPoint(0, 31));
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(RowDropTest, ARowIsDroppedOnTheOtherList)
{
    drag(*left, *right);
    EXPECT_TRUE(QTest::qWaitFor([this] { return drops == 1; }));
    EXPECT_EQ(left->ListCount(), 3);
    EXPECT_EQ(right->ListCount(), 3);
    EXPECT_EQ(left->Text(), QStringLiteral("two"));
}

TEST_F(RowDropTest, ADisabledListTakesNoRow)
{
    right->setEnabled(false);
    drag(*left, *right);
    QTest::qWait(0);
    EXPECT_EQ(drops, 0);
}

TEST_F(RowDropTest, NoRowComesBackOrStaysInItsList)
{
    drag(*left, *left);
    drag(*right, *left);
    QTest::qWait(0);
    EXPECT_EQ(drops, 0);
    EXPECT_EQ(left->ListCount(), 3);
}
