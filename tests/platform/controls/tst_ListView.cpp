#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "ListView.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QListView>
#include <QSet>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {

ListItem item(int number)
{
    static const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_FileIcon);
    const QString text = QString::number(number);
    return {QStringLiteral("File") + text,
            QStringLiteral("name") + text,
            {QStringLiteral("size") + text, QStringLiteral("date") + text},
            icon};
}

struct ListViewTest : testing::Test
{
    ListView view;
    ListItemsModel &items = view.ListItems();
    QSignalSpy checks{&view, &ListView::ItemCheck};

    ListViewTest()
    {
        view.resize(500, 300);
        view.setColumnHeaders({{QStringLiteral("Col1"), QStringLiteral("Name"), 2400},
                               {QStringLiteral("Col2"), QStringLiteral("Size"), 1500, Qt::AlignRight},
                               {QStringLiteral("Col3"), QStringLiteral("Date"), 1500}});
        items.addItems({item(1), item(2), item(3)});
        view.show();
        view.setFocus();
        (void)QTest::qWaitForWindowActive(&view);
    }

    QAbstractItemView &pane() const { return *qobject_cast<QAbstractItemView *>(view.currentWidget()); }
    QHeaderView &header() const { return *view.findChild<QTreeView *>()->header(); }
    QRect cell(int row, int column = 1) const { return pane().visualRect(items.index(row - 1, column - 1)); }
    void click(const QPoint &point) { QTest::mouseClick(pane().viewport(), Qt::LeftButton, {}, point); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&pane(), key, modifiers); }
    QList<int> selected() const
    {
        QList<int> rows;
        for (int i = 1; i <= items.Count(); ++i) {
            if (view.Selected(i))
                rows.append(i);
        }
        return rows;
    }
};

} // namespace

TEST_F(ListViewTest, ShowsItsColumns)
{
    EXPECT_EQ(header().sectionSize(0), 160);
    EXPECT_EQ(header().sectionSize(1), 100);
    EXPECT_EQ(view.ColumnHeaders(2).Text, QStringLiteral("Size"));
    EXPECT_EQ(items.index(1, 2).data().toString(), QStringLiteral("date2"));
    EXPECT_EQ(Qt::Alignment(items.index(0, 1).data(Qt::TextAlignmentRole).toInt()),
              Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(errorNumberOf([&] { (void)view.ColumnHeaders(0); }), 35600);
    EXPECT_EQ(errorNumberOf([&] { (void)view.ColumnHeaders(4); }), 35600);
}

TEST_F(ListViewTest, ReplacesColumns)
{
    items.Clear();
    view.setColumnHeaders({{QStringLiteral("Col1"), QStringLiteral("CityID"), 900}});
    EXPECT_EQ(view.ColumnHeaders(1).Text, QStringLiteral("CityID"));
    EXPECT_EQ(header().count(), 1);
    EXPECT_EQ(header().sectionSize(0), 60);
    EXPECT_EQ(items.Count(), 0);
}

TEST_F(ListViewTest, FindsItemsByNumberAndByKey)
{
    EXPECT_EQ(items.Item(2).Text, QStringLiteral("name2"));
    EXPECT_EQ(items.Item(QStringLiteral("File3")).SubItems.at(0), QStringLiteral("size3"));
    EXPECT_EQ(errorNumberOf([&] { (void)items.Item(0); }), 35600);
    EXPECT_EQ(errorNumberOf([&] { (void)items.Item(4); }), 35600);
    EXPECT_EQ(errorNumberOf([&] { (void)items.Item(QStringLiteral("file3")); }), 35601);
    EXPECT_EQ(errorNumberOf([&] { (void)items.Item(QString()); }), 35601);
}

TEST_F(ListViewTest, RefusesAKeyTwice)
{
    EXPECT_EQ(errorNumberOf([&] { items.Add(item(2)); }), 35602);
    EXPECT_EQ(errorNumberOf([&] { items.addItems({item(4), item(5), item(4)}); }), 35602);
    EXPECT_EQ(items.Count(), 3);
    EXPECT_EQ(errorNumberOf([&] { (void)items.Item(QStringLiteral("File5")); }), 35601);
    items.addItems({item(4), {{}, QStringLiteral("x"), {}}, {{}, QStringLiteral("x"), {}}});
    EXPECT_EQ(items.Count(), 6);
    EXPECT_EQ(items.IndexOf(QStringLiteral("File4")), 4);
}

TEST_F(ListViewTest, ManyItemsOfOneCallAreOneChange)
{
    constexpr int count = 50000;
    items.Clear();
    std::vector<ListItem> many;
    for (int i = 1; i <= count; ++i)
        many.push_back(item(i));
    const QSignalSpy inserted(&items, &QAbstractItemModel::rowsInserted);
    items.addItems(std::move(many));
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 0);
    EXPECT_EQ(inserted[0][2].toInt(), count - 1);
    EXPECT_EQ(items.Count(), count);
}

TEST_F(ListViewTest, RemovesItems)
{
    items.Remove(1);
    EXPECT_EQ(items.IndexOf(QStringLiteral("File2")), 1);
    items.Remove(QStringLiteral("File3"));
    EXPECT_EQ(items.Count(), 1);
    EXPECT_EQ(errorNumberOf([&] { items.Remove(2); }), 35600);
    EXPECT_EQ(errorNumberOf([&] { items.Remove(QStringLiteral("File3")); }), 35601);
    items.Clear();
    items.Add(item(3));
    EXPECT_EQ(items.IndexOf(QStringLiteral("File3")), 1);
}

TEST_F(ListViewTest, SelectsOneRow)
{
    EXPECT_EQ(errorNumberOf([&] { (void)view.SelectedItem(); }), 91);
    QSignalSpy clicked(&view, &ListView::ItemClick);
    click(cell(2, 3).center());
    EXPECT_EQ(view.SelectedItem().Key, QStringLiteral("File2"));
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.at(0).at(0).toInt(), 2);
    view.setSelected(3, true);
    EXPECT_EQ(selected(), QList<int>{3});
    view.setSelected(3, false);
    EXPECT_EQ(selected(), QList<int>{});
    EXPECT_EQ(errorNumberOf([&] { (void)view.Selected(0); }), 35600);
    EXPECT_EQ(errorNumberOf([&] { view.setSelected(4, true); }), 35600);
}

TEST_F(ListViewTest, SelectsSeveralRows)
{
    view.setMultiSelect(true);
    view.setSelected(3, true);
    view.setSelected(1, true);
    EXPECT_EQ(selected(), (QList<int>{1, 3}));
    EXPECT_EQ(view.SelectedItem().Key, QStringLiteral("File1"));
    view.invertSelection();
    EXPECT_EQ(selected(), QList<int>{2});
    view.selectAll();
    EXPECT_EQ(selected(), (QList<int>{1, 2, 3}));
    view.invertSelection();
    EXPECT_EQ(selected(), QList<int>{});
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selected(), (QList<int>{1, 2, 3}));
}

TEST_F(ListViewTest, OnlyCtrlASelectsAllWhereSeveralMayBeSelected)
{
    view.setSelected(2, true);
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selected(), QList<int>{2});
}

TEST_F(ListViewTest, TheFirstArrowSelectsTheFirstRow)
{
    key(Qt::Key_Down);
    EXPECT_EQ(selected(), QList<int>{1});
    key(Qt::Key_Down);
    EXPECT_EQ(selected(), QList<int>{2});
}

TEST_F(ListViewTest, TypingFindsARowByItsTextWhereverWasClicked)
{
    click(cell(1, 3).center());
    QTest::keyClicks(&pane(), QStringLiteral("name3"));
    EXPECT_EQ(selected(), QList<int>{3});
}

TEST_F(ListViewTest, ADoubleClickBesideTheRowsIsEmittedToo)
{
    QSignalSpy doubleClicks(&view, &ListView::DblClick);
    QTest::mouseDClick(pane().viewport(), Qt::LeftButton, {}, cell(2).center());
    EXPECT_EQ(doubleClicks.count(), 1);
    QTest::mouseDClick(pane().viewport(), Qt::LeftButton, {}, cell(3).center() + QPoint(0, 100));
    EXPECT_EQ(doubleClicks.count(), 2);
}

TEST_F(ListViewTest, EmitsPressesOfTheMouseBeforeItActsOnThem)
{
    QList<std::pair<Qt::MouseButton, bool>> presses;
    on(&view, &ListView::MouseDown, &view, [&](Qt::MouseButton button) {
        presses.append({button, view.hasSelection()});
    });
    QTest::mousePress(pane().viewport(), Qt::RightButton, {}, cell(2).center());
    EXPECT_TRUE(view.hasSelection());
    QTest::mouseRelease(pane().viewport(), Qt::RightButton, {}, cell(2).center());
    QTest::mousePress(pane().viewport(), Qt::LeftButton, {}, cell(3).center() + QPoint(0, 100));
    EXPECT_EQ(presses,
              (QList<std::pair<Qt::MouseButton, bool>>{{Qt::RightButton, false}, {Qt::LeftButton, true}}));
}

TEST_F(ListViewTest, EmitsKeysAndClicksOnHeaders)
{
    QSignalSpy keys(&view, &ListView::KeyDown);
    QSignalSpy columns(&view, &ListView::ColumnClick);
    key(Qt::Key_Return);
    ASSERT_EQ(keys.count(), 1);
    EXPECT_EQ(keys.at(0).at(0).toInt(), Qt::Key_Return);
    QTest::mouseClick(header().viewport(), Qt::LeftButton, {}, {header().sectionPosition(1) + 20, 5});
    ASSERT_EQ(columns.count(), 1);
    EXPECT_EQ(columns.at(0).at(0).toInt(), 2);
}

TEST_F(ListViewTest, AKeyThatDisablesTheListDoesNothingMore)
{
    on(&view, &ListView::KeyDown, &view, [this] { view.setEnabled(false); });
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(&pane(), &event);
    EXPECT_FALSE(view.hasSelection());
    EXPECT_TRUE(event.isAccepted());
}

TEST_F(ListViewTest, AmongIconsTheTextKeepsItsRoomBesideACheckBox)
{
    view.setView(0);
    const auto &icons = static_cast<const QListView &>(pane());
    const int without = icons.gridSize().width();
    view.setCheckboxes(true);
    const int with = icons.gridSize().width();
    EXPECT_GE(with, without + view.style()->pixelMetric(QStyle::PM_IndicatorWidth));
    view.setCheckboxes(false);
    EXPECT_EQ(icons.gridSize().width(), without);
}

TEST_F(ListViewTest, AmongIconsEveryRowHasAWholeCell)
{
    items.Add({QStringLiteral("Long"), QStringLiteral("a name of more letters"), {}});
    for (const int shown : {0, 1, 2}) {
        view.setView(shown);
        const auto &icons = static_cast<const QListView &>(pane());
        for (int row = 0; row < items.Count(); ++row)
            EXPECT_EQ(icons.visualRect(items.index(row, 0)).size(), icons.gridSize()) << shown << ' ' << row;
    }
}

TEST_F(ListViewTest, ChecksByMouse)
{
    view.setCheckboxes(true);
    const QPoint box = cell(2).topLeft() + QPoint(10, cell(2).height() / 2);
    click(box);
    EXPECT_TRUE(items.Item(2).Checked);
    EXPECT_EQ(checks.count(), 1);
    EXPECT_EQ(checks.at(0).at(0).toInt(), 2);
    click(box);
    EXPECT_FALSE(items.Item(2).Checked);
    click(cell(2, 2).center());
    EXPECT_EQ(checks.count(), 2);
}

TEST_F(ListViewTest, SpaceChecks)
{
    view.setCheckboxes(true);
    click(cell(3, 3).center());
    key(Qt::Key_Space);
    EXPECT_TRUE(items.Item(3).Checked);
    key(Qt::Key_Space);
    EXPECT_FALSE(items.Item(3).Checked);
    EXPECT_EQ(checks.count(), 2);
}

TEST_F(ListViewTest, NothingIsCheckedWithoutCheckboxes)
{
    click(cell(1).center());
    key(Qt::Key_Space);
    EXPECT_FALSE(items.Item(1).Checked);
    EXPECT_FALSE(items.index(0, 0).data(Qt::CheckStateRole).isValid());
    view.setCheckboxes(true);
    EXPECT_TRUE(items.index(0, 0).data(Qt::CheckStateRole).isValid());
    EXPECT_FALSE(items.index(0, 1).data(Qt::CheckStateRole).isValid());
}

TEST_F(ListViewTest, CodeChecksWithoutAnEvent)
{
    view.setCheckboxes(true);
    items.setChecked(2, true);
    EXPECT_TRUE(items.Item(2).Checked);
    EXPECT_EQ(items.index(1, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(checks.count(), 0);
    EXPECT_EQ(errorNumberOf([&] { items.setChecked(4, true); }), 35600);
}

TEST_F(ListViewTest, CopiesSelectedRowsWithTabs)
{
    view.setMultiSelect(true);
    view.setSelected(3, true);
    view.setSelected(1, true);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("name1\tsize1\tdate1\nname3\tsize3\tdate3"));
}

TEST_F(ListViewTest, ShowsIconsAndKeepsSelectionAndFocus)
{
    click(cell(2).center());
    EXPECT_EQ(view.View(), 3);
    for (const int kind : {0, 1, 2, 3}) {
        view.setView(kind);
        EXPECT_EQ(view.View(), kind);
        EXPECT_EQ(qobject_cast<QListView *>(&pane()) != nullptr, kind != 3);
        EXPECT_TRUE(pane().hasFocus()) << kind;
        EXPECT_EQ(selected(), QList<int>{2});
    }
    for (const int kind : {-1, 4})
        EXPECT_EQ(errorNumberOf([&] { view.setView(kind); }), 380);
    EXPECT_EQ(view.View(), 3);
}

TEST_F(ListViewTest, ArrangesIconsByTheView)
{
    view.setView(0);
    EXPECT_EQ(cell(1).top(), cell(2).top());
    const int large = cell(1).height();
    view.setView(1);
    EXPECT_EQ(cell(1).top(), cell(2).top());
    EXPECT_LT(cell(1).height(), large);
    view.setView(2);
    EXPECT_EQ(cell(1).left(), cell(2).left());
    EXPECT_LT(cell(1).top(), cell(2).top());
}

TEST_F(ListViewTest, IconsAnswerKeysAndMouseAlike)
{
    view.setCheckboxes(true);
    QSignalSpy doubleClicks(&view, &ListView::DblClick);
    view.setView(2);
    click(cell(2).center());
    key(Qt::Key_Space);
    EXPECT_TRUE(items.Item(2).Checked);
    QTest::mouseDClick(pane().viewport(), Qt::LeftButton, {}, cell(1).center());
    EXPECT_EQ(doubleClicks.count(), 1);
    view.setView(3);
    EXPECT_EQ(selected(), QList<int>{1});
}

TEST_F(ListViewTest, WhatHasTheFocusHasTheName)
{
    view.setAccessibleName(QStringLiteral("Contacts"));
    view.hide();
    view.show();
    EXPECT_EQ(pane().accessibleName(), QStringLiteral("Contacts"));
    view.setView(0);
    EXPECT_EQ(pane().accessibleName(), QStringLiteral("Contacts"));
}

TEST_F(ListViewTest, ChecksManyRowsOneByOneAndTouchesNoOther)
{
    items.Clear();
    view.setCheckboxes(true);
    std::vector<ListItem> many;
    for (int i = 1; i <= 50000; ++i)
        many.push_back(item(i));
    items.addItems(std::move(many));
    int touched = 0;
    QObject::connect(
        &items, &ListItemsModel::dataChanged, &view,
        [&](const QModelIndex &first, const QModelIndex &last) { touched += last.row() - first.row() + 1; });
    for (int i = 1; i <= items.Count(); ++i)
        items.setChecked(i, true);
    EXPECT_EQ(touched, 50000);
    EXPECT_TRUE(items.Item(1).Checked);
    EXPECT_TRUE(items.Item(50000).Checked);
}

namespace {

/// Rows that remember which of them were looked at.
class ManyRows : public ListRows
{
public:
    explicit ManyRows(std::shared_ptr<QSet<int>> seen)
        : m_seen(std::move(seen))
    {}

    int count() const override { return 100000; }
    QString key(int row) const override { return QStringLiteral("Key%1").arg(row); }
    QString text(int row, int column) const override
    {
        m_seen->insert(row);
        return QStringLiteral("text%1-%2").arg(row).arg(column);
    }
    QIcon icon(int row) const override { return item(row).Icon; }

private:
    std::shared_ptr<QSet<int>> m_seen; // the view outlives the test
};

struct ListViewOfRowsTest : ListViewTest
{
    std::shared_ptr<QSet<int>> seen = std::make_shared<QSet<int>>();

    ListViewOfRowsTest()
    {
        view.setRows({{QStringLiteral("Col1"), QStringLiteral("Name"), 2400},
                      {QStringLiteral("Col2"), QStringLiteral("Size"), 900}},
                     std::make_unique<ManyRows>(seen));
    }
};

} // namespace

TEST_F(ListViewOfRowsTest, ReadsOnlyWhatIsShown)
{
    pane().viewport()->repaint();
    EXPECT_EQ(items.Count(), 100000);
    EXPECT_EQ(header().sectionSize(1), 60);
    EXPECT_TRUE(seen->contains(0));
    EXPECT_LT(seen->size(), 100);
    view.setCheckboxes(true);
    pane().viewport()->repaint();
    EXPECT_LT(seen->size(), 100);
}

TEST_F(ListViewOfRowsTest, TheirRowsAreLikeAllOthers)
{
    EXPECT_EQ(items.Item(3).Key, QStringLiteral("Key2"));
    EXPECT_EQ(items.key(3), QStringLiteral("Key2"));
    EXPECT_EQ(items.Item(3).Text, QStringLiteral("text2-0"));
    EXPECT_EQ(items.Item(3).SubItems, QStringList{QStringLiteral("text2-1")});
    EXPECT_FALSE(items.Item(3).Icon.isNull());
    EXPECT_FALSE(items.index(2, 0).data(Qt::DecorationRole).isNull());
    items.setChecked(3, true);
    EXPECT_TRUE(items.isChecked(3));
    EXPECT_TRUE(items.Item(3).Checked);
    view.setSelected(3, true);
    EXPECT_EQ(view.SelectedItem().Text, QStringLiteral("text2-0"));
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("text2-0\ttext2-1"));
    EXPECT_EQ(errorNumberOf([&] { (void)items.key(100001); }), 35600);
}

TEST_F(ListViewOfRowsTest, RowsAreRemovedAndAdded)
{
    items.setChecked(3, true);
    items.Remove(1);
    EXPECT_EQ(items.Count(), 99999);
    EXPECT_EQ(items.Item(1).Text, QStringLiteral("text1-0"));
    EXPECT_TRUE(items.isChecked(2));
    items.Remove(QStringLiteral("Key1"));
    EXPECT_EQ(items.Item(1).Text, QStringLiteral("text2-0"));
    EXPECT_EQ(errorNumberOf([&] { (void)items.IndexOf(QStringLiteral("Key1")); }), 35601);
    items.Add(item(7));
    EXPECT_EQ(items.Item(99999).Text, QStringLiteral("name7"));
    EXPECT_EQ(items.index(99998, 1).data().toString(), QStringLiteral("size7"));
    EXPECT_EQ(errorNumberOf([&] { items.Add({QStringLiteral("Key5"), {}, {}}); }), 35602);
}

TEST_F(ListViewOfRowsTest, NothingOfThemIsLeftWhenTheyAreReplaced)
{
    items.setChecked(1, true);
    view.setRows({{QStringLiteral("Col1"), QStringLiteral("Name"), 2400}}, std::make_unique<ManyRows>(seen));
    EXPECT_FALSE(items.isChecked(1));
    EXPECT_EQ(items.columnCount(), 1);
    items.Clear();
    EXPECT_EQ(items.Count(), 0);
    EXPECT_EQ(errorNumberOf([&] { (void)items.Item(QStringLiteral("Key1")); }), 35601);
    items.Add(item(1));
    EXPECT_EQ(items.Item(1).Text, QStringLiteral("name1"));
}
