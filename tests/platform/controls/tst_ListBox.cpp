#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "ListBox.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct ListBoxTest : testing::Test
{
    ListBox list;
    QSignalSpy clicks{&list, &ListBox::Click};
    QSignalSpy doubleClicks{&list, &ListBox::DblClick};

    ListBoxTest()
    {
        list.resize(200, 200);
        list.addItems({QStringLiteral("alpha"), QStringLiteral("beta"), QStringLiteral("gamma")});
        list.show();
        list.setFocus();
        (void)QTest::qWaitForWindowActive(&list);
    }

    QPoint middleOf(int row) const { return list.visualRect(list.model()->index(row, 0)).center(); }
    QPoint below() const { return middleOf(list.ListCount() - 1) + QPoint(0, 60); }
    void click(const QPoint &point, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, point);
    }
    QStringList rows() const
    {
        QStringList all;
        for (int i = 0; i < list.ListCount(); ++i)
            all.append(list.List(i));
        return all;
    }
};

} // namespace

TEST_F(ListBoxTest, KeepsRowsInTheirOrder)
{
    list.AddItem(QStringLiteral("Alpha"));
    EXPECT_EQ(rows(), QStringList({QStringLiteral("alpha"), QStringLiteral("beta"), QStringLiteral("gamma"),
                                   QStringLiteral("Alpha")}));
    EXPECT_EQ(list.List(4), QString());
    EXPECT_EQ(list.List(-1), QString());
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(ListBoxTest, SortsWithoutRegardToCase)
{
    list.Clear();
    list.setSorted(true);
    list.addItems({QStringLiteral("PEAR"), QStringLiteral("apple"), QStringLiteral("Quince")});
    list.AddItem(QStringLiteral("pear"));
    EXPECT_EQ(rows(), QStringList({QStringLiteral("apple"), QStringLiteral("PEAR"), QStringLiteral("pear"),
                                   QStringLiteral("Quince")}));
}

TEST_F(ListBoxTest, StartsWithoutASelection)
{
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Text(), QString());
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(ListBoxTest, AClickSelects)
{
    click(middleOf(1));
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.Text(), QStringLiteral("beta"));
    EXPECT_EQ(clicks.count(), 1);
    click(middleOf(1));
    EXPECT_EQ(clicks.count(), 2);
}

TEST_F(ListBoxTest, NoClickTakesTheSelectionBack)
{
    click(middleOf(1));
    click(middleOf(1), Qt::ControlModifier);
    EXPECT_EQ(list.ListIndex(), 1);
    clicks.clear();
    click(below());
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(ListBoxTest, ADragIsAClickAtItsEnd)
{
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, middleOf(0));
    QTest::mouseMove(list.viewport(), middleOf(2));
    EXPECT_EQ(clicks.count(), 0);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(ListBoxTest, ADoubleClickBesideTheRowsIsEmittedToo)
{
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(doubleClicks.count(), 1);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, below());
    EXPECT_EQ(doubleClicks.count(), 2);
}

TEST_F(ListBoxTest, TheFirstArrowSelectsTheFirstRow)
{
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(clicks.count(), 1);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.ListIndex(), 1);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(clicks.count(), 3);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(ListBoxTest, EndGoesToTheLastRowFromNone)
{
    for (const QStringList &rows :
         {QStringList{QStringLiteral("a"), QStringLiteral("b")}, QStringList{QStringLiteral("c")}}) {
        list.Clear(); // its focus is in no row then
        list.addItems(rows);
        QTest::keyClick(&list, Qt::Key_End);
        EXPECT_EQ(list.Text(), rows.last());
    }
}

TEST_F(ListBoxTest, ATypedLetterIsLookedForFromTheFirstRowOnWhereNoneIsSelected)
{
    list.Clear();
    list.addItems({QStringLiteral("first"), QStringLiteral("further")});
    QTest::keyClick(&list, Qt::Key_Down);
    list.clearSelection(); // the first row is still the current one, as where the list gets the focus
    QTest::keyClick(&list, Qt::Key_F);
    EXPECT_EQ(list.Text(), QStringLiteral("first"));
}

TEST_F(ListBoxTest, ALetterThatNoRowBeginsWithLeavesTheFocusInItsRow)
{
    list.Clear();
    list.addItems({QStringLiteral("first"), QStringLiteral("second")});
    QTest::keyClick(&list, Qt::Key_End);
    list.clearSelection();
    QTest::keyClick(&list, Qt::Key_X);
    EXPECT_EQ(list.currentIndex().row(), 1);
    EXPECT_FALSE(list.selectionModel()->hasSelection());
}

TEST_F(ListBoxTest, AShortcutIsNotLookedFor)
{
    list.Clear();
    list.addItems({QStringLiteral("first")});
    QKeyEvent shortcut(QEvent::KeyPress, Qt::Key_F, Qt::AltModifier, QStringLiteral("f"));
    QCoreApplication::sendEvent(&list, &shortcut);
    EXPECT_FALSE(list.selectionModel()->hasSelection());
    EXPECT_FALSE(shortcut.isAccepted());
}

TEST_F(ListBoxTest, AKeyThatGivesTheFocusAwayDoesNothingMore)
{
    QWidget window;
    list.setParent(&window);
    auto *other = new QLineEdit(&window);
    window.show();
    list.setFocus();
    list.setListIndex(0);
    on(&list, &ListBox::KeyDown, &list, [other] { other->setFocus(); });
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(&list, &event);
    EXPECT_TRUE(event.isAccepted());
    list.setParent(nullptr);
}

TEST_F(ListBoxTest, TypingFindsARow)
{
    QTest::keyClicks(&list, QStringLiteral("ga"));
    EXPECT_EQ(list.ListIndex(), 2);
}

TEST_F(ListBoxTest, EmitsKeys)
{
    QSignalSpy keys(&list, &ListBox::KeyDown);
    QTest::keyClick(&list, Qt::Key_Delete);
    ASSERT_EQ(keys.count(), 1);
    EXPECT_EQ(keys.at(0).at(0).toInt(), Qt::Key_Delete);
}

TEST_F(ListBoxTest, CodeSelectsWithAClick)
{
    list.setListIndex(2);
    EXPECT_EQ(list.Text(), QStringLiteral("gamma"));
    EXPECT_EQ(clicks.count(), 1);
    list.setListIndex(2);
    EXPECT_EQ(clicks.count(), 1);
    list.setListIndex(-1);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(ListBoxTest, TheSelectedRowIsInView)
{
    for (int i = 0; i < 500; ++i)
        list.AddItem(QString::number(i));
    list.setListIndex(list.ListCount() - 1);
    EXPECT_TRUE(list.viewport()->rect().contains(middleOf(list.ListCount() - 1)));
}

TEST_F(ListBoxTest, RefusesRowsThatAreNotThere)
{
    list.setListIndex(1);
    for (const int index : {-2, 3}) {
        EXPECT_EQ(errorNumberOf([&] { list.setListIndex(index); }), 380);
        EXPECT_EQ(errorNumberOf([&] { (void)list.Selected(index); }), 380);
        EXPECT_EQ(errorNumberOf([&] { list.setSelected(index, true); }), 380);
        EXPECT_EQ(errorNumberOf([&] { list.RemoveItem(index); }), 5);
    }
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.ListCount(), 3);
}

TEST_F(ListBoxTest, NoRowIsSelectedInPlaceOfARemovedOne)
{
    list.setListIndex(1);
    list.RemoveItem(1);
    EXPECT_EQ(list.ListIndex(), -1);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(rows(), QStringList(QStringLiteral("gamma")));
}

TEST_F(ListBoxTest, TheSelectionStaysWithItsRow)
{
    list.setListIndex(2);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.Text(), QStringLiteral("gamma"));
}

TEST_F(ListBoxTest, SelectsSeveralRows)
{
    list.setMultiSelect(true);
    list.setSelected(0, true);
    list.setSelected(2, true);
    EXPECT_TRUE(list.Selected(0));
    EXPECT_FALSE(list.Selected(1));
    EXPECT_TRUE(list.Selected(2));
    list.setSelected(0, false);
    EXPECT_FALSE(list.Selected(0));
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(list.Selected(0) && list.Selected(1) && list.Selected(2));
    list.setListIndex(1);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_TRUE(list.Selected(0));
}

TEST_F(ListBoxTest, CopiesSelectedRowsAsLines)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    list.setMultiSelect(true);
    list.setSelected(2, true);
    list.setSelected(0, true);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("alpha\ngamma"));
}

TEST_F(ListBoxTest, ManyRowsOfOneCallAreOneChange)
{
    constexpr int many = 50000;
    list.Clear();
    QStringList texts;
    for (int i = 0; i < many; ++i)
        texts << QString::number(i);
    const QSignalSpy inserted(list.model(), &QAbstractItemModel::rowsInserted);
    list.addItems(texts);
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.model()->rowCount() == many; }));
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 0);
    EXPECT_EQ(inserted[0][2].toInt(), many - 1);
    EXPECT_EQ(list.List(many - 1), QString::number(many - 1));
}

TEST_F(ListBoxTest, AFastLogIsKnownAtOnceAndShownSoon)
{
    constexpr int lines = 20000;
    for (int i = 0; i < lines; ++i) {
        list.AddItem(QString::number(i));
        list.setListIndex(list.ListCount() - 1);
        ASSERT_EQ(list.ListIndex(), list.ListCount() - 1);
    }
    EXPECT_EQ(clicks.count(), lines);
    EXPECT_LT(list.model()->rowCount(), lines); // else each line waited for the layout of all
    EXPECT_EQ(list.Text(), QString::number(lines - 1));
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.model()->rowCount() == list.ListCount(); }));
    EXPECT_EQ(list.ListIndex(), list.ListCount() - 1);
    EXPECT_EQ(list.currentIndex().row(), list.ListCount() - 1);
    EXPECT_TRUE(list.viewport()->rect().contains(middleOf(list.ListCount() - 1)));
}

TEST_F(ListBoxTest, WaitingRowsCanBeSelectedRemovedAndCleared)
{
    const auto addQuickly = [&] {
        for (int i = 0; i < 10; ++i)
            list.AddItem(QString::number(i));
    };
    addQuickly();
    list.setListIndex(12);
    list.RemoveItem(11);
    EXPECT_EQ(list.Text(), QStringLiteral("9"));
    addQuickly();
    list.setListIndex(21);
    list.Clear();
    EXPECT_EQ(list.ListIndex(), -1);
    addQuickly();
    list.setListIndex(0);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.ListIndex(), 9);
}
