#include "ErrorNumberOf.h"
#include "TreeView.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString root = QStringLiteral("Root");
const QString groups = QStringLiteral("Groups");
const QString group1 = QStringLiteral("Group1");
const QString city = QStringLiteral("City");

struct TreeViewTest : testing::Test
{
    TreeView tree;
    QSignalSpy clicks{&tree, &TreeView::NodeClick};

    TreeViewTest()
    {
        tree.resize(200, 300);
        tree.Add({root, QStringLiteral("Address Book")});
        tree.Add({groups, QStringLiteral("Groups"), root});
        tree.Add({group1, QStringLiteral("Default"), groups});
        tree.Add({city, QStringLiteral("City/Town"), root});
        tree.setExpanded(root, true);
        tree.show();
        tree.setFocus();
        (void)QTest::qWaitForWindowActive(&tree);
    }

    QRect rowOf(const QList<int> &path) const
    {
        QModelIndex index;
        for (const int row : path)
            index = tree.model()->index(row, 0, index);
        return tree.visualRect(index);
    }
    void click(const QPoint &point) { QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, point); }
    QStringList clicked() const
    {
        QStringList keys;
        for (const QList<QVariant> &arguments : clicks)
            keys.append(arguments.at(0).toString());
        return keys;
    }
};

} // namespace

TEST_F(TreeViewTest, KnowsItsNodesByKey)
{
    EXPECT_EQ(tree.Count(), 4);
    EXPECT_EQ(tree.Text(group1), QStringLiteral("Default"));
    EXPECT_EQ(tree.ParentKey(group1), groups);
    EXPECT_EQ(errorNumberOf([&] { (void)tree.ParentKey(root); }), 91);
    EXPECT_EQ(errorNumberOf([&] { (void)tree.Text(QStringLiteral("groups")); }), 35601);
}

TEST_F(TreeViewTest, RefusesAKeyTwiceAndAParentThatIsNotThere)
{
    EXPECT_EQ(errorNumberOf([&] { tree.Add({city, QStringLiteral("again"), root}); }), 35602);
    EXPECT_EQ(errorNumberOf([&] {
                  tree.Add({QStringLiteral("City1"), QStringLiteral("Leeds"), QStringLiteral("Town")});
              }),
              35601);
    EXPECT_EQ(tree.Count(), 4);
    EXPECT_EQ(tree.model()->rowCount(tree.model()->index(0, 0)), 2);
}

TEST_F(TreeViewTest, ClearsAll)
{
    tree.setSelectedItem(city);
    tree.Clear();
    EXPECT_EQ(tree.Count(), 0);
    EXPECT_EQ(tree.SelectedItem(), QString());
    tree.Add({root, QStringLiteral("Address Book")});
    EXPECT_EQ(tree.Text(root), QStringLiteral("Address Book"));
}

TEST_F(TreeViewTest, EachClickIsEmitted)
{
    click(rowOf({0, 1}).center());
    click(rowOf({0, 1}).center());
    EXPECT_EQ(clicked(), QStringList({city, city}));
    EXPECT_EQ(tree.SelectedItem(), city);
}

TEST_F(TreeViewTest, ADragIsAClickAtItsEnd)
{
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, rowOf({0}).center());
    QTest::mouseMove(tree.viewport(), rowOf({0, 1}).center());
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, rowOf({0, 1}).center());
    EXPECT_EQ(clicked(), QStringList(city));
}

TEST_F(TreeViewTest, AnArrowOpensWithoutAClick)
{
    tree.setSelectedItem(root);
    const QRect row = rowOf({0, 0});
    click({row.left() - tree.indentation() / 2, row.center().y()});
    EXPECT_TRUE(tree.Expanded(groups));
    EXPECT_EQ(clicked(), QStringList());
    EXPECT_EQ(tree.SelectedItem(), root);
}

TEST_F(TreeViewTest, KeysMoveOpenAndFind)
{
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(clicked(), QStringList({root, groups}));
    QTest::keyClick(&tree, Qt::Key_Right);
    EXPECT_TRUE(tree.Expanded(groups));
    EXPECT_EQ(clicks.count(), 2);
    QTest::keyClicks(&tree, QStringLiteral("city"));
    EXPECT_EQ(tree.SelectedItem(), city);
    EXPECT_EQ(clicked().constLast(), city);
}

TEST_F(TreeViewTest, CodeSelectsWithoutAClick)
{
    tree.setSelectedItem(city);
    EXPECT_EQ(tree.SelectedItem(), city);
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(TreeViewTest, EnsureVisibleOpensAndScrolls)
{
    for (int i = 2; i < 200; ++i)
        tree.Add({QStringLiteral("Group%1").arg(i), QString::number(i), groups});
    EXPECT_FALSE(tree.Expanded(groups));
    tree.EnsureVisible(QStringLiteral("Group199"));
    EXPECT_TRUE(tree.Expanded(groups));
    EXPECT_TRUE(tree.viewport()->rect().contains(rowOf({0, 0, 198}).center()));
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(TreeViewTest, ShowsImages)
{
    QPixmap red(16, 16);
    red.fill(Qt::red);
    tree.Add({QStringLiteral("State"), QStringLiteral("State"), root, QIcon(red)});
    const QRect row = rowOf({0, 2});
    const QImage image = tree.viewport()->grab(row).toImage();
    EXPECT_EQ(image.pixelColor(8, row.height() / 2), QColor(Qt::red));
}
