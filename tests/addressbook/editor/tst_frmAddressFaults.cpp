#include "AddressDatabase.h"
#include "AsUser.h"
#include "ContactRows.h"
#include "DataError.h"
#include "EditorWindow.h"
#include "ErrorNumberOf.h"
#include "Forms.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "Recordset.h"
#include "Snapshot.h"
#include "Transaction.h"

#include <QFileInfo>
#include <QPlainTextEdit>
#include <gtest/gtest.h>
#include <latch>
#include <sys/stat.h>
#include <thread>

namespace {

/// Takes long, but less long than another program is waited for.
const QString longWork = QStringLiteral("with recursive N(i) as (select 1 union all select i+1 from N where "
                                        "i<1000000) select count(*) from N");

struct FrmAddressFaultsTest : testing::Test
{
    int errorOfOpening(qint32 number)
    {
        return errorNumberOf([&] { editor.openFor(number); });
    }

    EditorWindow editor;
};

} // namespace

TEST_F(FrmAddressFaultsTest, AContactThatIsNotWholeCannotBeOpened)
{
    EXPECT_EQ(errorOfOpening(1), DataError::NoCurrentRow);
    Forms::refer<frmAddress>().unload();
    ContactRows::addName(1, {.groupId = 1, .name = QStringLiteral("Ann")});
    EXPECT_EQ(errorOfOpening(1), DataError::NoCurrentRow);
    Forms::refer<frmAddress>().unload();
    ContactRows::addHome(1, {.cityId = 1});
    EXPECT_EQ(errorOfOpening(1), DataError::NoCurrentRow);
    Forms::refer<frmAddress>().unload();
    ContactRows::addBusiness(1, {.cityId = 1});
    EXPECT_EQ(errorOfOpening(1), 0);
}

TEST_F(FrmAddressFaultsTest, WithoutADatabaseItDoesNotLoad)
{
    AddressConnection.close();
    EXPECT_EQ(errorNumberOf([this] { editor.openNew(); }), DataError::ClosedConnection);
}

TEST_F(FrmAddressFaultsTest, NumbersEndAt32767)
{
    {
        Transaction fill(AddressConnection);
        for (qint32 number = 1; number <= 32767; ++number)
            ContactRows::addName(number, {.groupId = 1, .name = QStringLiteral("x")});
        fill.commit();
    }
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.expectRefusal(ErrorNumber::Overflow, QStringLiteral("Overflow"));
    editor.click("cmdOK");
    EXPECT_EQ(editor.rows("select count(*) from Names"), QStringList(QStringLiteral("32767")));
    EXPECT_FALSE(AddressConnection.isInTransaction());
}

TEST_F(FrmAddressFaultsTest, AFullDiskLeavesTheOldContactWhole)
{
    const QString comment(255, u'c');
    for (int i = 0; i < 30; ++i)
        ScratchAddressBook::addContact(QStringLiteral("Ann"));
    int saved = 0;
    {
        const FullDisk disk(rlim_t(QFileInfo(editor.book.path()).size()));
        editor.frame.dialogs.leaveWhatComes(); // the box has the engine's words
        for (; saved < 30; ++saved) {
            editor.openFor(1 + saved);
            editor.set("txtComment", comment);
            editor.set("txtName", QStringLiteral("Anna"));
            editor.set("txtHAddress", QString(100, u'h'));
            editor.set("txtBAddress", QString(100, u'b'));
            editor.click("cmdOK");
            if (editor.isOpen())
                break;
        }
    }
    ASSERT_LT(saved, 30);
    EXPECT_EQ(editor.frame.dialogs.seen().last().title, QStringLiteral("Data Entry Error..."));
    EXPECT_FALSE(editor.isEnabled("cmdCancel"));
    EXPECT_FALSE(AddressConnection.isInTransaction());
    EXPECT_EQ(AddressConnection.damage(), QString());
    EXPECT_EQ(editor.rows("select count(*) from Names,Home,Business where Names.SrNo=Home.SrNo and "
                          "Names.SrNo=Business.SrNo"),
              QStringList(QStringLiteral("30")));
    EXPECT_EQ(editor.rows("select count(*) from Names where Name='Anna'"),
              QStringList(QString::number(saved)));

    editor.click("cmdOK"); // there is room again
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(editor.rows("select count(*) from Names where Name='Anna'"),
              QStringList(QString::number(saved + 1)));
}

TEST_F(FrmAddressFaultsTest, ADatabaseThatMayOnlyBeReadKeepsTheContact)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    const AsUser user(QFileInfo(editor.book.path()).path());
    ASSERT_EQ(::chmod(editor.book.path().toUtf8().constData(), 0400), 0);
    AddressDatabase::open(editor.book.path());
    editor.openFor(1);
    editor.type("txtName", QStringLiteral("Anna"));
    editor.expectRefusal(DataError::Engine, QStringLiteral("attempt to write a readonly database"));
    editor.click("cmdOK");
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(editor.rows("select Name from Names"), QStringList(QStringLiteral("Ann")));
    EXPECT_EQ(editor.numbers(), QStringLiteral("1//1/1"));
}

/// Another program deletes the group while the editor is open.
TEST_F(FrmAddressFaultsTest, AGroupThatIsGoneMeanwhileIsRefused)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.choose("cmbGroups", 1);
    AddressConnection.execute(QStringLiteral("delete from Groups where GroupID=2"));
    editor.expectRefusal(DataError::Engine,
                         QStringLiteral("A related record is required in table 'Groups'."));
    editor.click("cmdOK");
    EXPECT_EQ(editor.numbers(), QStringLiteral("///"));
}

/// After the five seconds for which another writer is waited for.
TEST_F(FrmAddressFaultsTest, ADatabaseThatStaysLockedRefusesTheSave)
{
    Connection other;
    other.open(editor.book.path());
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    const auto writing = std::make_unique<Transaction>(other);
    editor.expectRefusal(DataError::Engine, QStringLiteral("database is locked"));
    editor.click("cmdOK");
    EXPECT_TRUE(editor.isOpen());
    EXPECT_TRUE(editor.isEnabled("cmdCancel")); // nothing is stored
    EXPECT_EQ(editor.numbers(), QStringLiteral("///"));
}

/// As an export of all contacts does, which lets nobody write while it reads.
TEST_F(FrmAddressFaultsTest, AReaderOfAnotherProgramIsWaitedFor)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    std::latch isReading(1);
    std::thread reader([&] {
        Connection other;
        other.open(editor.book.path());
        const Snapshot snapshot(other);
        Recordset names;
        names.open(QStringLiteral("select count(*) from Names"), other);
        isReading.count_down();
        names.close();
        names.open(longWork, other);
    });
    isReading.wait();
    editor.click("cmdOK");
    reader.join();
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(editor.numbers(), QStringLiteral("1//1/1"));
}

TEST_F(FrmAddressFaultsTest, ACityChosenWhileTheDatabaseIsLockedKeepsTheContact)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    Connection other;
    other.open(editor.book.path());
    other.execute(QStringLiteral("begin exclusive"));
    for (int entry = 0; entry < 2; ++entry) // the keys pass the first entry
        editor.frame.dialogs.expectBox(
            QStringLiteral("QuillOfficeToolsv2"),
            QStringLiteral("Another program is using the address database. Please try again."));
    editor.choose("cmbHCity", 1);
    EXPECT_EQ(editor.text("cmbHCity"), QStringLiteral("London"));
    EXPECT_EQ(editor.text("txtState"), QStringLiteral(".."));
    other.close();
    editor.click("cmdOK");
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(editor.rows("select Name, CityID from Names, Home"), QStringList(QStringLiteral("Ann|2")));
}
