#include "AddressDatabase.h"
#include "BookTree.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "RuntimeError.h"
#include "ScratchAddressBook.h"
#include "TreeView.h"

#include <gtest/gtest.h>

namespace {

struct BookTreeTest : testing::Test
{
    ScratchAddressBook book;
    TreeView tree;

    /// The children of a node, each "key text", joined by "|".
    QString childrenOf(const char *key) const
    {
        const QModelIndexList found =
            tree.model()->match(tree.model()->index(0, 0), Qt::UserRole, QString::fromLatin1(key), 1,
                                Qt::MatchExactly | Qt::MatchRecursive);
        QStringList children;
        for (int row = 0; row < tree.model()->rowCount(found.value(0)); ++row) {
            const QModelIndex child = tree.model()->index(row, 0, found.value(0));
            children << child.data(Qt::UserRole).toString() + u' ' + child.data().toString();
        }
        return children.join(u'|');
    }
    static void execute(const char *statement) { AddressConnection.execute(QString::fromLatin1(statement)); }
};

struct BookTreeNameTest : testing::TestWithParam<HostileName>
{};

} // namespace

TEST_F(BookTreeTest, AnEmptyBookHasTheHeadsAndTheRowsThatAreAlwaysThere)
{
    BookTree::fill(tree);
    EXPECT_EQ(tree.Text(QStringLiteral("Root")), QStringLiteral("Address Book"));
    EXPECT_EQ(childrenOf("Root"), QStringLiteral("Groups Groups|City City/Town|State County/State/Province"));
    EXPECT_EQ(childrenOf("Groups"), QStringLiteral("Group1 Default"));
    EXPECT_EQ(childrenOf("City"), QStringLiteral("City1 .."));
    EXPECT_EQ(childrenOf("State"), QStringLiteral("State1 .."));
}

TEST_F(BookTreeTest, RowsAreInTheOrderOfTheirNames)
{
    execute("insert into Groups values(7, 'work')");
    execute("insert into Groups values(8, 'Alpha')");
    execute("insert into City values(300, 'eton', 1)");
    execute("insert into City values(2, 'Zurich', 1)");
    execute("insert into State values(200, 'Kent')");
    BookTree::fill(tree);
    EXPECT_EQ(childrenOf("Groups"), QStringLiteral("Group8 Alpha|Group1 Default|Group7 work"));
    EXPECT_EQ(childrenOf("City"), QStringLiteral("City1 ..|City300 eton|City2 Zurich"));
    EXPECT_EQ(childrenOf("State"), QStringLiteral("State1 ..|State200 Kent"));
}

TEST_F(BookTreeTest, TheRootAndTheGroupsAreOpen)
{
    BookTree::fill(tree);
    EXPECT_TRUE(tree.Expanded(QStringLiteral("Root")));
    EXPECT_TRUE(tree.Expanded(QStringLiteral("Groups")));
    EXPECT_FALSE(tree.Expanded(QStringLiteral("City")));
    EXPECT_FALSE(tree.Expanded(QStringLiteral("State")));
}

TEST_F(BookTreeTest, EveryNodeHasAPicture)
{
    BookTree::fill(tree);
    for (const char *key : {"Root", "Groups", "Group1", "City", "City1", "State", "State1"}) {
        const QModelIndexList found =
            tree.model()->match(tree.model()->index(0, 0), Qt::UserRole, QString::fromLatin1(key), 1,
                                Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << key;
        EXPECT_FALSE(found.first().data(Qt::DecorationRole).value<QIcon>().pixmap(16).isNull()) << key;
    }
}

TEST_F(BookTreeTest, ASecondFillReadsAnewAndSelectsNothing)
{
    BookTree::fill(tree);
    tree.setSelectedItem(QStringLiteral("Group1"));
    execute("update Groups set GroupName='Friends' where GroupId=1");
    BookTree::fill(tree);
    EXPECT_EQ(childrenOf("Groups"), QStringLiteral("Group1 Friends"));
    EXPECT_EQ(tree.SelectedItem(), QString());
}

TEST_F(BookTreeTest, WithoutATableItThrowsAndIsAsBefore)
{
    BookTree::fill(tree);
    const QString before = childrenOf("Root");
    execute("update Groups set GroupName='Friends' where GroupId=1");
    execute("drop trigger HomeNeedsCity");
    execute("drop trigger BusinessNeedsCity");
    execute("drop table City");
    EXPECT_THROW(BookTree::fill(tree), RuntimeError);
    EXPECT_EQ(childrenOf("Groups"), QStringLiteral("Group1 Default"));
    EXPECT_EQ(childrenOf("Root"), before);
}

TEST(BookTree, OnlyTheThreeHeadsAreTables)
{
    for (const char *key : {"Groups", "City", "State"})
        EXPECT_TRUE(BookTree::isTable(QString::fromLatin1(key))) << key;
    for (const char *key : {"", "Root", "Group1", "City1", "State1", "groups"})
        EXPECT_FALSE(BookTree::isTable(QString::fromLatin1(key))) << key;
}

TEST_P(BookTreeNameTest, ShowsANameAsItIs)
{
    const ScratchAddressBook book;
    const QString name = GetParam().text().left(50);
    QString quoted = name;
    quoted.replace(u'\'', QStringLiteral("''"));
    AddressConnection.execute(QStringLiteral("insert into Groups values(2, '%1')").arg(quoted));
    TreeView tree;
    BookTree::fill(tree);
    EXPECT_EQ(tree.Text(QStringLiteral("Group2")), name);
    EXPECT_EQ(tree.Count(), 8);
}

INSTANTIATE_TEST_SUITE_P(Names, BookTreeNameTest, testing::ValuesIn(HostileNames::texts()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
