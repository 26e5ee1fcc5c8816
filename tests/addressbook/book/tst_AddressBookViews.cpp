#include "AddressDatabase.h"
#include "BookWindow.h"
#include "ContactRows.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ShownText.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {

const QString contactColumns = QStringLiteral("Name|Home Address|City/Town|Home Phone|Mobile|Birth Date");

struct AddressBookViewsTest : testing::Test
{
    BookWindow window;

    static void execute(const char *statement) { AddressConnection.execute(QString::fromLatin1(statement)); }
};

struct AddressBookNameTest : testing::TestWithParam<HostileName>
{};

struct NodeCase
{
    const char *name;
    const char *key;
    const char *label;
    const char *names;
};

struct AddressBookNodeTest : testing::TestWithParam<NodeCase>
{};

constexpr NodeCase nodes[] = {
    {"Root", "Root", "All Addresses", "Anna Bell|Bea Dunn|Ben Cole|carl Bly"},
    {"Group", "Group3", "Work", "Bea Dunn|Ben Cole"},
    {"DefaultGroup", "Group1", "Default", "carl Bly"},
    {"City", "City2", "Dover", "Anna Bell"},
    {"PlaceholderCity", "City1", "..", "carl Bly"},
    {"State", "State2", "Kent", "Anna Bell|Ben Cole"},
    {"PlaceholderState", "State1", "..", "carl Bly"},
};

} // namespace

TEST_P(AddressBookNodeTest, AClickShowsTheNodesContacts)
{
    const BookWindow window;
    window.clickNode(GetParam().key);
    EXPECT_EQ(window.label(), QString::fromLatin1(GetParam().label));
    EXPECT_EQ(window.columns(), contactColumns);
    EXPECT_EQ(window.names(), QString::fromLatin1(GetParam().names));
    EXPECT_EQ(window.commands(), QStringLiteral("AB"));
    EXPECT_TRUE(window.list().Checkboxes());
    EXPECT_EQ(window.checkedNames(), QString());
}

INSTANTIATE_TEST_SUITE_P(Nodes, AddressBookNodeTest, testing::ValuesIn(nodes), RowName());

TEST_F(AddressBookViewsTest, TheLinesOfAnAddressAreOneLineInTheRow)
{
    AddressConnection.execute(
        QStringLiteral("update Home set hAddress='a' || char(13) || char(10) || 'b' || char(10) || 'c' || "
                       "char(13) || 'd' where SrNo=(select SrNo from Names where Name='Bea Dunn')"));
    window.clickNode("Root");
    EXPECT_EQ(window.row("Bea Dunn"), QStringLiteral("Bea Dunn|a b c d|Woking|||"));
}

TEST_F(AddressBookViewsTest, AContactIsARowOfSixColumns)
{
    window.clickNode("Root");
    EXPECT_EQ(window.row("Anna Bell"),
              QStringLiteral("Anna Bell|2 Castle Hill|Dover|01304 1|07700 2|29-Feb-1996"));
    EXPECT_EQ(window.row("Bea Dunn"), QStringLiteral("Bea Dunn|1 High Street|Woking|||"));
    EXPECT_EQ(window.list().ListItems().Item(1).Key, QStringLiteral("SrNo2"));
    EXPECT_FALSE(window.list().ListItems().Item(1).Icon.isNull());
    QStringList columns;
    for (int i = 1; i <= 6; ++i) {
        const ColumnHeader &column = window.list().ColumnHeaders(i);
        columns << QStringLiteral("%1 %2").arg(column.Key).arg(column.Width);
    }
    EXPECT_EQ(columns.join(u'|'),
              QStringLiteral("Col1 2400|Col2 2100|Col3 1500|Col4 1500|Col5 1500|Col6 1500"));
}

TEST_F(AddressBookViewsTest, AHeadShowsItsTable)
{
    window.clickNode("Groups");
    EXPECT_EQ(window.label(), QStringLiteral("Groups"));
    EXPECT_EQ(window.columns(), QStringLiteral("GroupID|GroupName"));
    EXPECT_EQ(window.names(), QStringLiteral("1|2|3"));
    EXPECT_EQ(window.row("2"), QStringLiteral("2|Family"));
    EXPECT_EQ(window.list().ListItems().Item(2).Key, QStringLiteral("Item2"));
    EXPECT_FALSE(window.list().ListItems().Item(2).Icon.isNull());
    EXPECT_EQ(window.list().ColumnHeaders(1).Width, 800);
    EXPECT_EQ(window.list().ColumnHeaders(2).Width, 2500);
    EXPECT_FALSE(window.list().Checkboxes());
    window.clickNode("City");
    EXPECT_EQ(window.columns(), QStringLiteral("CityID|CityName"));
    EXPECT_EQ(window.names(), QStringLiteral("1|2|3|4"));
    EXPECT_EQ(window.label(), QStringLiteral("City/Town"));
    window.clickNode("State");
    EXPECT_EQ(window.columns(), QStringLiteral("StateID|StateName"));
    EXPECT_EQ(window.names(), QStringLiteral("1|2|3"));
    EXPECT_EQ(window.label(), QStringLiteral("County/State/Province"));
}

TEST_F(AddressBookViewsTest, ATableTurnsBothSetsOfCommandsOff)
{
    window.clickNode("Root");
    EXPECT_EQ(window.commands(), QStringLiteral("AB"));
    window.clickNode("Groups");
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(AddressBookViewsTest, AnEmptyResultLeavesTheSummaryAsItWas)
{
    execute("insert into Groups values(4, 'Empty')");
    window.click("cmdRefresh");
    window.clickNode("Root");
    window.clickNode("Group4");
    EXPECT_EQ(window.names(), QString());
    EXPECT_EQ(window.columns(), contactColumns);
    EXPECT_EQ(window.commands(), QStringLiteral("B"));
    EXPECT_FALSE(window.list().Checkboxes());
    window.clickNode("City");
    window.clickNode("Group4");
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(AddressBookViewsTest, AnEmptyTableLeavesTheSummaryAsItWas)
{
    window.clickNode("Root");
    execute("update Names set GroupID=1");
    execute("delete from Names");
    execute("delete from Groups");
    window.clickNode("Groups");
    EXPECT_EQ(window.names(), QString());
    EXPECT_EQ(window.commands(), QStringLiteral("B"));
}

TEST_F(AddressBookViewsTest, TheHomeCityCountsAlone)
{
    execute("update Business set CityID=4 where SrNo=2");
    window.clickNode("City4");
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn"));
    window.clickNode("State3");
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn"));
}

TEST_F(AddressBookViewsTest, ALetterShowsTheNamesThatBeginWithIt)
{
    window.clickNode("Root");
    window.clickLetter('B');
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn|Ben Cole"));
    EXPECT_EQ(window.label(), QStringLiteral("All Addresses"));
    window.clickLetter('C'); // not both letters
    EXPECT_EQ(window.names(), QStringLiteral("carl Bly"));
    window.clickLetter('Z');
    EXPECT_EQ(window.names(), QString());
    EXPECT_EQ(window.commands(), QStringLiteral("B"));
}

TEST_F(AddressBookViewsTest, ALetterStaysWithinTheNode)
{
    window.clickNode("Group3");
    window.clickLetter('A');
    EXPECT_EQ(window.names(), QString());
    window.clickLetter('B');
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn|Ben Cole"));
    window.clickNode("State2");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Ben Cole"));
    EXPECT_EQ(window.form().NameFilter, QString());
}

TEST_F(AddressBookViewsTest, InATableALetterBringsTheLatestContactsBack)
{
    window.clickNode("State2");
    window.clickNode("City");
    window.clickLetter('A');
    EXPECT_EQ(window.columns(), contactColumns);
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell"));
    EXPECT_EQ(window.label(), QStringLiteral("City/Town"));
    EXPECT_EQ(window.commands(), QStringLiteral("AB"));
}

TEST_F(AddressBookViewsTest, ALetterBeforeTheFirstClickEndsTheProgram)
{
    window.frame.fatal.expect(-2147217900, QStringLiteral("near \"and\": syntax error"));
    window.clickLetter('B');
    EXPECT_EQ(window.form().NameFilter, QStringLiteral(" and Names.Name like 'B%'"));
}

TEST_F(AddressBookViewsTest, AContactWithoutAHomeIsInNoView)
{
    execute("delete from Home where SrNo=3");
    window.clickNode("Root");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|carl Bly"));
}

TEST_F(AddressBookViewsTest, EveryFillForgetsTheChecks)
{
    window.clickNode("Root");
    window.toggle("Anna Bell");
    window.toggle("Ben Cole");
    EXPECT_EQ(window.checkedNames(), QStringLiteral("Anna Bell|Ben Cole"));
    window.clickNode("Root");
    EXPECT_EQ(window.checkedNames(), QString());
    window.toggle("Anna Bell");
    window.clickLetter('A');
    EXPECT_EQ(window.checkedNames(), QString());
}

TEST_F(AddressBookViewsTest, ANullInATextEndsTheProgram)
{
    execute("alter table Home rename to Strict");
    execute("create table Home as select * from Strict");
    execute("update Home set hPhone1=null where SrNo=3");
    window.frame.fatal.expect(94);
    window.clickNode("Group3"); // fails, and so does the view of all contacts that follows
    EXPECT_EQ(window.label(), QStringLiteral("All Addresses"));
}

TEST_F(AddressBookViewsTest, ANodeWhoseStatementFailsShowsAllContacts)
{
    execute("alter table Groups rename to Others");
    window.clickNode("Groups");
    EXPECT_EQ(window.label(), QStringLiteral("All Addresses"));
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
    EXPECT_EQ(window.commands(), QStringLiteral("AB"));
}

TEST_F(AddressBookViewsTest, RefreshDataReadsTheTreeAndNotTheList)
{
    window.clickNode("Group3");
    execute("update Groups set GroupName='Office' where GroupId=3");
    execute("update Names set Name='Bert Cole' where SrNo=3");
    window.click("cmdRefresh");
    EXPECT_EQ(window.tree().Text(QStringLiteral("Group3")), QStringLiteral("Office"));
    EXPECT_EQ(window.tree().SelectedItem(), QString());
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn|Ben Cole"));
    EXPECT_EQ(window.label(), QStringLiteral("Work"));
}

TEST_F(AddressBookViewsTest, TheArrowKeysWalkThroughTheTree)
{
    window.clickNode("Group2");
    QTest::keyClick(&window.tree(), Qt::Key_Down);
    EXPECT_EQ(window.label(), QStringLiteral("Work"));
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn|Ben Cole"));
}

TEST_F(AddressBookViewsTest, TypingFindsANodeAndShowsItsContacts)
{
    window.clickNode("Root");
    window.tree().setExpanded(QStringLiteral("City"), true);
    QTest::keyClicks(&window.tree(), QStringLiteral("D"));
    EXPECT_EQ(window.label(), QStringLiteral("Default"));
    EXPECT_EQ(window.names(), QStringLiteral("carl Bly"));
    QTest::keyClicks(&window.tree(), QStringLiteral("ov"));
    EXPECT_EQ(window.label(), QStringLiteral("Dover"));
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell"));
}

TEST_F(AddressBookViewsTest, TypingFindsNoNodeInAClosedOne)
{
    window.clickNode("Root");
    QTest::keyClicks(&window.tree(), QStringLiteral("margate"));
    EXPECT_EQ(window.label(), QStringLiteral("All Addresses"));
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
}

/// The rows that are always there are protected in the lists; their nodes are like any other.
TEST_F(AddressBookViewsTest, ADoubleClickOnANodeShowsItsContacts)
{
    for (const char *key : {"City1", "State1", "Group1"}) {
        window.clickNode("Root");
        window.doubleClickNode(key);
        EXPECT_EQ(window.names(), QStringLiteral("carl Bly")) << key;
        EXPECT_EQ(window.columns(), contactColumns) << key;
    }
}

TEST_P(AddressBookNameTest, IsShownAsItIsInEveryField)
{
    const BookWindow window;
    const QString text = GetParam().text().left(50);
    ContactRows::addName(5, {.groupId = 1, .name = text});
    ContactRows::addHome(5, {.address = text, .cityId = 1, .phone1 = text, .mobile = text});
    window.clickNode("City1");
    const ListItem &item = window.list().ListItems().Item(QStringLiteral("SrNo5"));
    EXPECT_EQ(item.Text, text);
    const QString address =
        QString(text).replace(QRegularExpression(QStringLiteral("\r\n|\r|\n")), QStringLiteral(" "));
    EXPECT_EQ(item.SubItems, QStringList({address, QStringLiteral(".."), text, text, QString()}));
    const auto &pane = static_cast<QTreeView &>(window.pane());
    const QModelIndex place =
        pane.model()->index(window.list().ListItems().IndexOf(QStringLiteral("SrNo5")) - 1, 0);
    const auto *delegate = static_cast<QStyledItemDelegate *>(pane.itemDelegate());
    EXPECT_EQ(delegate->displayText(place.data(), {}), ShownText::line(text));
}

TEST_P(AddressBookNameTest, AsAGroupIsTheLabelAndNothingMore)
{
    const BookWindow window;
    const QString name = GetParam().text().left(50);
    QString quoted = name;
    quoted.replace(u'\'', QStringLiteral("''"));
    AddressConnection.execute(QStringLiteral("update Groups set GroupName='%1' where GroupId=2").arg(quoted));
    window.click("cmdRefresh");
    window.clickNode("Group2");
    EXPECT_EQ(window.label(), ShownText::line(name));
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell"));
}

INSTANTIATE_TEST_SUITE_P(Names, AddressBookNameTest, testing::ValuesIn(HostileNames::texts()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

/// The wait is five seconds, not twice as many.
TEST_F(AddressBookViewsTest, ALockedDatabaseIsReportedOnceAndLeavesTheList)
{
    window.clickNode("City2");
    Connection other;
    other.open(window.book.path());
    other.execute(QStringLiteral("begin exclusive"));
    window.frame.dialogs
        .expectBox(QStringLiteral("QuillOfficeToolsv2"),
                   QStringLiteral("Another program is using the address database. Please try again."))
        .icon(QMessageBox::Warning);
    QElapsedTimer wait;
    wait.start();
    window.clickNode("State2");
    EXPECT_LT(wait.elapsed(), 9000);
    EXPECT_EQ(window.frame.dialogs.seen().size(), 1);
    EXPECT_EQ(window.label(), QStringLiteral("Dover"));
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell"));
    other.close();
    window.clickLetter('B');
    EXPECT_EQ(window.names(), QString()); // nobody in Dover
    window.clickLetter('A');
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell"));
    EXPECT_EQ(window.label(), QStringLiteral("Dover"));
    window.clickNode("State2");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Ben Cole"));
}

TEST_F(AddressBookViewsTest, ALetterThatMeetsALockedDatabaseIsForgotten)
{
    window.clickNode("State2");
    window.clickLetter('A');
    const QString filter = window.form().NameFilter;
    Connection other;
    other.open(window.book.path());
    other.execute(QStringLiteral("begin exclusive"));
    window.frame.dialogs.expectBox(
        QStringLiteral("QuillOfficeToolsv2"),
        QStringLiteral("Another program is using the address database. Please try again."));
    window.clickLetter('B');
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell"));
    EXPECT_EQ(window.form().NameFilter, filter);
}
