#include "DragByMouse.h"
#include "EventGate.h"
#include "ListBox.h"
#include "RowDrop.h"

#include <QDrag>
#include <QHBoxLayout>
#include <QPointer>
#include <QTest>
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

    bool drag(
        ListBox &from, ListBox &onto, const std::function<void()> &meanwhile = [] {})
    {
        return dragByMouse(from, 1, onto, meanwhile);
    }
};

} // namespace

TEST_F(RowDropTest, ARowIsDroppedOnTheOtherList)
{
    EXPECT_TRUE(drag(*left, *right));
    EXPECT_EQ(drops, 1);
    EXPECT_EQ(left->ListCount(), 3);
    EXPECT_EQ(right->ListCount(), 3);
    EXPECT_EQ(left->Text(), QStringLiteral("two"));
}

TEST_F(RowDropTest, ADisabledListTakesNoRow)
{
    right->setEnabled(false);
    EXPECT_TRUE(drag(*left, *right));
    EXPECT_EQ(drops, 0);
}

TEST_F(RowDropTest, NoRowComesBackOrStaysInItsList)
{
    EXPECT_TRUE(drag(*left, *left));
    EXPECT_FALSE(drag(*right, *left));
    EXPECT_EQ(drops, 0);
    EXPECT_EQ(left->ListCount(), 3);
}

TEST_F(RowDropTest, ThePictureIsASmallOneOfTheRow)
{
    QSize size;
    drag(*left, *right, [&] {
        if (const auto *drag = left->findChild<QDrag *>())
            size = drag->pixmap().deviceIndependentSize().toSize();
    });
    const int name = left->fontMetrics().horizontalAdvance(QStringLiteral("two"));
    EXPECT_GT(size.width(), name + 16); // with an icon
    EXPECT_LT(size.width(), name + 40);
    EXPECT_LT(size.width(), left->viewport()->width());
    EXPECT_LT(size.height(), 40);
}
