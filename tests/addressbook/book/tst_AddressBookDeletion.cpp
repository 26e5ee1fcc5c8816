#include "AddressDatabase.h"
#include "BookWindow.h"
#include "ContactRows.h"
#include "Globals.h"
#include "PrintQt.h"

#include <QAbstractButton>
#include <gtest/gtest.h>

namespace {

struct AddressBookDeletionTest : testing::Test
{
    BookWindow window;

    AddressBookDeletionTest() { window.clickNode("Root"); }

    void check(std::initializer_list<const char *> names) const
    {
        for (const char *name : names)
            window.toggle(name);
    }
    void expectQuestion(const QString &title, const char *name, QMessageBox::StandardButton answer)
    {
        window.frame.dialogs
            .expectBox(title,
                       QStringLiteral("Are you sure you want to delete\n%1 ?").arg(QLatin1String(name)))
            .icon(QMessageBox::Question)
            .buttons(QMessageBox::Yes | QMessageBox::No)
            .defaultButton(QMessageBox::No)
            .press(answer);
    }
    void expectYes(const char *name) { expectQuestion(confirm, name, QMessageBox::Yes); }
    void expectNo(const char *name) { expectQuestion(confirm, name, QMessageBox::No); }

    QString numbers() const { return window.rows("select SrNo from Names order by SrNo").join(u' '); }

    const QString confirm = QStringLiteral("Confirm Deletion...");
};

} // namespace

TEST_F(AddressBookDeletionTest, WithoutChecksThereIsNothingToDelete)
{
    window.frame.dialogs
        .expectBox(QStringLiteral("Nothing to Print..."),
                   QStringLiteral("You have not selected any records to delete!"))
        .icon(QMessageBox::Information);
    window.click("cmddeleteselected");
    EXPECT_EQ(numbers(), QStringLiteral("1 2 3 4"));
}

TEST_F(AddressBookDeletionTest, ACheckedContactGoesWithAllItsRows)
{
    ContactRows::addEMails(2, {QStringLiteral("anna@example.org")});
    check({"Anna Bell"});
    expectYes("Anna Bell");
    window.click("cmddeleteselected");
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn|Ben Cole|carl Bly"));
    EXPECT_EQ(numbers(), QStringLiteral("1 3 4"));
    for (const char *statement :
         {"select SrNo from Home where SrNo=2", "select SrNo from Business where SrNo=2",
          "select SrNo from EMails where SrNo=2"})
        EXPECT_EQ(window.rows(statement), QStringList()) << statement;
}

TEST_F(AddressBookDeletionTest, ARefusedContactIsAskedAboutAgainAfterADeletion)
{
    check({"Anna Bell", "Bea Dunn"});
    expectNo("Anna Bell");
    expectYes("Bea Dunn");
    expectNo("Anna Bell");
    window.click("cmddeleteselected");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Ben Cole|carl Bly"));
    EXPECT_EQ(window.checkedNames(), QString());
    EXPECT_EQ(numbers(), QStringLiteral("2 3 4"));
}

TEST_F(AddressBookDeletionTest, DeletingTheLastRowEndsIt)
{
    check({"Anna Bell", "carl Bly"});
    expectNo("Anna Bell");
    expectYes("carl Bly");
    window.click("cmddeleteselected");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole"));
    EXPECT_EQ(window.checkedNames(), QString());
}

TEST_F(AddressBookDeletionTest, AllMayGoOneByOne)
{
    check({"Anna Bell", "Bea Dunn", "Ben Cole", "carl Bly"});
    for (const char *name : {"Anna Bell", "Bea Dunn", "Ben Cole", "carl Bly"})
        expectYes(name);
    window.click("cmddeleteselected");
    EXPECT_EQ(window.names(), QString());
    EXPECT_EQ(numbers(), QString());
    EXPECT_EQ(window.commands(), QStringLiteral("AB")); // no fill has taken place
}

TEST_F(AddressBookDeletionTest, ARefusalOfAllUnchecksAll)
{
    check({"Bea Dunn", "Ben Cole"});
    expectNo("Bea Dunn");
    expectNo("Ben Cole");
    window.click("cmddeleteselected");
    EXPECT_EQ(window.checkedNames(), QString());
    EXPECT_EQ(numbers(), QStringLiteral("1 2 3 4"));
    EXPECT_EQ(lastAnswer, QStringLiteral("7"));
}

/// As when the session ends.
TEST_F(AddressBookDeletionTest, AQuestionThatNobodyAnswersDeletesNothing)
{
    const auto end = [](QMessageBox &box) { box.hide(); };
    check({"Bea Dunn"});
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), end);
    window.click("cmddeleteselected");
    EXPECT_EQ(numbers(), QStringLiteral("1 2 3 4"));
    window.selectRow("Ben Cole");
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), end);
    window.press(Qt::Key_Delete);
    EXPECT_EQ(numbers(), QStringLiteral("1 2 3 4"));
}

TEST_F(AddressBookDeletionTest, InATableNothingHappens)
{
    window.clickNode("Groups");
    Q_EMIT window.control<QAbstractButton>("cmddeleteselected").clicked();
    window.selectRow("2");
    window.press(Qt::Key_Delete);
    EXPECT_TRUE(window.frame.dialogs.seen().isEmpty());
    EXPECT_EQ(window.names(), QStringLiteral("1|2|3"));
}

TEST_F(AddressBookDeletionTest, TheKeyDeletesTheSelectedContactAlone)
{
    check({"Anna Bell"});
    window.selectRow("Ben Cole");
    expectQuestion(QStringLiteral("QuillOfficeToolsv2"), "Ben Cole", QMessageBox::Yes);
    window.press(Qt::Key_Delete);
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|carl Bly"));
    EXPECT_EQ(window.checkedNames(), QStringLiteral("Anna Bell"));
    EXPECT_EQ(numbers(), QStringLiteral("1 2 4"));
}

TEST_F(AddressBookDeletionTest, TheKeysQuestionMayBeRefused)
{
    window.selectRow("Ben Cole");
    expectQuestion(QStringLiteral("QuillOfficeToolsv2"), "Ben Cole", QMessageBox::No);
    window.press(Qt::Key_Delete);
    EXPECT_EQ(numbers(), QStringLiteral("1 2 3 4"));
}

TEST_F(AddressBookDeletionTest, WithoutASelectionTheKeyDoesNothing)
{
    window.press(Qt::Key_Delete);
    EXPECT_TRUE(window.frame.dialogs.seen().isEmpty());
}

TEST_F(AddressBookDeletionTest, ARefusalByTheDatabaseLeavesTheRowAndEndsTheProgram)
{
    AddressConnection.execute(
        QStringLiteral("create trigger Keep before delete on Names when old.SrNo=3 begin "
                       "select raise(abort, 'kept'); end"));
    check({"Bea Dunn", "Ben Cole"});
    expectYes("Bea Dunn");
    expectYes("Ben Cole");
    window.frame.fatal.expect(-2147467259, QStringLiteral("kept"));
    window.click("cmddeleteselected");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Ben Cole|carl Bly")); // the first deletion stays
    EXPECT_EQ(numbers(), QStringLiteral("2 3 4"));
    EXPECT_EQ(window.checkedNames(), QStringLiteral("Ben Cole"));
}

TEST_F(AddressBookDeletionTest, ALongNameIsAskedAboutInFull)
{
    const QString name = QStringLiteral("<b>%1 & ' -- \"x\"; drop table Names");
    ContactRows::addName(9, {.groupId = 1, .name = name});
    ContactRows::addHome(9, {.cityId = 1});
    window.clickNode("Root");
    check({"<b>%1 & ' -- \"x\"; drop table Names"});
    window.frame.dialogs
        .expectBox(confirm, QStringLiteral("Are you sure you want to delete\n") + name + QStringLiteral(" ?"))
        .press(QMessageBox::Yes);
    window.click("cmddeleteselected");
    EXPECT_EQ(numbers(), QStringLiteral("1 2 3 4"));
}
