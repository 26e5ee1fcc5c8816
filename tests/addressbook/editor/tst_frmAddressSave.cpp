#include "AddressBox.h"
#include "AddressDatabase.h"
#include "ContactRows.h"
#include "DataError.h"
#include "EditorWindow.h"
#include "ListBox.h"
#include "PrintQt.h"
#include "TabStrip.h"

#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString noSuchCity = QStringLiteral("A related record is required in table 'City'.");
const QString noSuchGroup = QStringLiteral("A related record is required in table 'Groups'.");

struct FrmAddressSaveTest : testing::Test
{
    void expectEnterName()
    {
        editor.frame.dialogs.expectBox(QStringLiteral("QuillOfficeToolsv2"), QStringLiteral("Enter Name..."))
            .icon(QMessageBox::NoIcon)
            .buttons(QMessageBox::Ok);
    }
    /// Four rows of a contact, a text each.
    QStringList contact(qint32 number) const
    {
        QStringList all;
        for (const char *table : {"Names", "EMails", "Home", "Business"})
            all.append(editor.book
                           .rows(QStringLiteral("select * from %1 where SrNo=%2")
                                     .arg(QLatin1String(table))
                                     .arg(number))
                           .join(u';'));
        return all;
    }

    EditorWindow editor;
};

} // namespace

TEST_F(FrmAddressSaveTest, ANameIsAskedFor)
{
    editor.openNew();
    editor.control<TabStrip>("SSTab1").setTab(2);
    expectEnterName();
    editor.click("cmdOK");
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(editor.control<TabStrip>("SSTab1").Tab(), 0);
    EXPECT_EQ(editor.focus(), QStringLiteral("txtName"));
    editor.type("txtName", QStringLiteral("   "));
    expectEnterName();
    editor.click("cmdOK");
    EXPECT_TRUE(editor.isOpen());
    EXPECT_TRUE(editor.isEnabled("cmdCancel"));
    EXPECT_EQ(editor.numbers(), QStringLiteral("///"));
}

TEST_F(FrmAddressSaveTest, ANameIsEnough)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.click("cmdOK");
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(contact(1), QStringList({QStringLiteral("1|1||Ann|||NULL"), QString(),
                                       QStringLiteral("1||1||||"), QStringLiteral("1||1||||||||")}));
}

TEST_F(FrmAddressSaveTest, EveryFieldIsStored)
{
    editor.openNew();
    editor.choose("cmbSalute", 2);
    editor.type("txtName", QStringLiteral(" Jim O'Neil "));
    editor.type("txtNick", QStringLiteral(" Jimmy "));
    editor.choose("cmbGroups", 1);
    editor.type("txtBDate", QStringLiteral("5-sep-1999"));
    for (const char *address : {"b@x", " a@x"}) {
        editor.type("txtEMail", QString::fromLatin1(address));
        editor.click("cmdAdd");
    }
    editor.type("txtComment", QStringLiteral(" 100% "));
    editor.set("txtHAddress", QStringLiteral(" 1 Road\nTown\n"));
    editor.choose("cmbHCity", 1);
    editor.type("txtHZipCode", QStringLiteral(" AB1 "));
    editor.type("txtHPhone1", QStringLiteral(" 1 "));
    editor.type("txtHPhone2", QStringLiteral(" 2 "));
    editor.type("txtMobile", QStringLiteral(" 3 "));
    editor.type("txtCompany", QStringLiteral(" Works "));
    editor.type("txtPost", QStringLiteral(" Boss "));
    editor.set("txtBAddress", QStringLiteral(" 2 Lane "));
    editor.type("txtBZipCode", QStringLiteral(" CD2 "));
    editor.type("txtDept", QStringLiteral(" Top "));
    editor.type("txtBPhone1", QStringLiteral(" 4 "));
    editor.type("txtBPhone2", QStringLiteral(" 5 "));
    editor.type("txtFax", QStringLiteral(" 6 "));
    editor.type("txtPager", QStringLiteral(" 7 "));
    editor.click("cmdOK");
    ASSERT_FALSE(editor.isOpen());
    EXPECT_EQ(contact(1),
              QStringList({QStringLiteral("1|2|Mrs.|Jim O'Neil|Jimmy|100%|05-Sep-1999"),
                           QStringLiteral("1|b@x;1| a@x"), QStringLiteral("1|1 Road\nTown|2|AB1|1|2|3"),
                           QStringLiteral("1|2 Lane|1|CD2|4|5|6|7|Works|Boss|Top")}));
}

TEST_F(FrmAddressSaveTest, ANewContactTakesTheFirstFreeNumber)
{
    ContactRows::addName(1, {.groupId = 1, .name = QStringLiteral("Ann")});
    ContactRows::addName(3, {.groupId = 1, .name = QStringLiteral("Carl")});
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ben"));
    editor.click("cmdOK");
    EXPECT_EQ(editor.rows("select Name from Names where SrNo=2"), QStringList(QStringLiteral("Ben")));
}

TEST_F(FrmAddressSaveTest, AChangeKeepsTheNumber)
{
    for (const char *name : {"Ann", "Ben", "Carl"})
        ScratchAddressBook::addContact(QString::fromLatin1(name), 2);
    ContactRows::addEMails(2, {QStringLiteral("old")});
    ContactRows::remove(1);
    editor.openFor(2);
    editor.type("txtName", QStringLiteral("Bert"));
    editor.control<ListBox>("lstEMail").setListIndex(0);
    editor.click("cmdRemove");
    editor.click("cmdOK");
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(contact(2), QStringList({QStringLiteral("2|1||Bert|||NULL"), QString(),
                                       QStringLiteral("2||2||||"), QStringLiteral("2||1||||||||")}));
    EXPECT_EQ(editor.numbers(), QStringLiteral("2 3//2 3/2 3"));
}

/// A window for which nobody has said what it is for writes under the number of no contact.
TEST_F(FrmAddressSaveTest, WithoutAModeTheNumberIs0)
{
    editor.openNew();
    editor.form().EditMode.clear();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.click("cmdOK");
    EXPECT_EQ(editor.numbers(), QStringLiteral("0//0/0"));
}

TEST_F(FrmAddressSaveTest, ADateThatWasNotLeftIsStoredIfItIsOne)
{
    for (const char *date : {"31-Apr-1999", "1999-09-05"}) {
        editor.openNew();
        editor.type("txtName", QStringLiteral("Ann"));
        editor.type("txtBDate", QString::fromLatin1(date));
        editor.press(Qt::Key_O, Qt::AltModifier);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !editor.isOpen(); }));
    }
    EXPECT_EQ(editor.rows("select dtOfBirth from Names order by SrNo"),
              QStringList({QStringLiteral("NULL"), QStringLiteral("05-Sep-1999")}));
}

TEST_F(FrmAddressSaveTest, EmptyBoxesTakeTheDefaultGroupAndTheFirstCity)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.set("cmbGroups", QString());
    editor.set("cmbHCity", QString());
    editor.set("cmbBCity", QString());
    editor.click("cmdOK");
    EXPECT_EQ(contact(1), QStringList({QStringLiteral("1|1||Ann|||NULL"), QString(),
                                       QStringLiteral("1||1||||"), QStringLiteral("1||1||||||||")}));
}

TEST_F(FrmAddressSaveTest, ASalutationOfBlanksIsStoredUntrimmed)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.set("cmbSalute", QStringLiteral(" Dr. "));
    editor.click("cmdOK");
    EXPECT_EQ(editor.rows("select Salutation from Names"), QStringList(QStringLiteral(" Dr. ")));
}

// ---- What fails in the middle

TEST_F(FrmAddressSaveTest, AnUnknownHomeCityLeavesNameAndEMails)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.type("txtEMail", QStringLiteral("a@x"));
    editor.click("cmdAdd");
    editor.type("cmbHCity", QStringLiteral("Nowhere"));
    editor.expectRefusal(DataError::Engine, noSuchCity);
    editor.click("cmdOK");
    EXPECT_TRUE(editor.isOpen());
    EXPECT_FALSE(editor.isEnabled("cmdCancel"));
    EXPECT_TRUE(editor.isEnabled("cmdOK"));
    EXPECT_EQ(editor.numbers(), QStringLiteral("1/1//"));
    EXPECT_FALSE(AddressConnection.isInTransaction());
    QTest::keyClick(&editor.form(), Qt::Key_Escape);
    EXPECT_TRUE(editor.isOpen());
}

TEST_F(FrmAddressSaveTest, AnUnknownWorkCityLeavesTheThreeTablesBefore)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.type("cmbBCity", QStringLiteral("Nowhere"));
    editor.expectRefusal(DataError::Engine, noSuchCity);
    editor.click("cmdOK");
    EXPECT_EQ(editor.numbers(), QStringLiteral("1//1/"));
    EXPECT_FALSE(editor.isEnabled("cmdCancel"));
}

TEST_F(FrmAddressSaveTest, AnUnknownGroupLeavesNothing)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.set("cmbGroups", QStringLiteral("Strangers"));
    editor.expectRefusal(DataError::Engine, noSuchGroup);
    editor.click("cmdOK");
    EXPECT_EQ(editor.numbers(), QStringLiteral("///"));
    EXPECT_FALSE(editor.isEnabled("cmdCancel"));
}

TEST_F(FrmAddressSaveTest, ASingleQuoteInACityIsTheEnginesSyntaxError)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("O'Neil"));
    editor.type("cmbHCity", QStringLiteral("O'Brien"));
    editor.expectRefusal(DataError::RejectedStatement, QStringLiteral("near \"Brien\": syntax error"));
    editor.click("cmdOK");
    EXPECT_EQ(editor.rows("select Name from Names"), QStringList(QStringLiteral("O'Neil")));
    EXPECT_EQ(editor.numbers(), QStringLiteral("1///"));
}

TEST_F(FrmAddressSaveTest, ASingleQuoteInAGroupFailsBeforeTheName)
{
    const qint32 ann = ScratchAddressBook::addContact(QStringLiteral("Ann"));
    editor.openFor(ann);
    editor.set("cmbGroups", QStringLiteral("O'Brien"));
    editor.expectRefusal(DataError::RejectedStatement, QStringLiteral("near \"Brien\": syntax error"));
    editor.click("cmdOK");
    EXPECT_EQ(editor.numbers(), QStringLiteral("///")); // the old rows go first
}

TEST_F(FrmAddressSaveTest, AfterARefusalANewContactTakesANewNumber)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.type("cmbHCity", QStringLiteral("Nowhere"));
    editor.expectRefusal(DataError::Engine, noSuchCity);
    editor.click("cmdOK");
    editor.choose("cmbHCity", 1);
    editor.click("cmdOK");
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(editor.numbers(), QStringLiteral("1 2//2/2"));
}

TEST_F(FrmAddressSaveTest, AfterARefusalAChangedContactKeepsItsNumber)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    editor.openFor(1);
    editor.type("txtName", QStringLiteral("Anna"));
    editor.type("cmbHCity", QStringLiteral("Nowhere"));
    editor.expectRefusal(DataError::Engine, noSuchCity);
    editor.click("cmdOK");
    EXPECT_EQ(editor.numbers(), QStringLiteral("1///"));
    editor.type("txtName", QStringLiteral("Anne"));
    editor.choose("cmbHCity", 0);
    editor.click("cmdOK");
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(editor.rows("select Name from Names"), QStringList(QStringLiteral("Anne")));
    EXPECT_EQ(editor.numbers(), QStringLiteral("1//1/1"));
}

TEST_F(FrmAddressSaveTest, TheFrameClosesTheWindowAfterARefusal)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.type("cmbHCity", QStringLiteral("Nowhere"));
    editor.expectRefusal(DataError::Engine, noSuchCity);
    editor.click("cmdOK");
    EXPECT_TRUE(editor.form().close());
    EXPECT_FALSE(editor.isOpen());
}

TEST_F(FrmAddressSaveTest, TheNextWindowCanBeCancelledAgain)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.type("cmbHCity", QStringLiteral("Nowhere"));
    editor.expectRefusal(DataError::Engine, noSuchCity);
    editor.click("cmdOK");
    editor.form().unload();
    editor.openNew();
    EXPECT_TRUE(editor.isEnabled("cmdCancel"));
    EXPECT_EQ(editor.text("cmbHCity"), QStringLiteral(".."));
}

TEST_F(FrmAddressSaveTest, KeepsNoBreakSpacesOfAddresses)
{
    const QString address = QStringLiteral("12\u00A0Road\nTown");
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.control<AddressBox>("txtHAddress").setText(address);
    editor.control<AddressBox>("txtBAddress").setText(address);
    editor.click("cmdOK");
    EXPECT_EQ(editor.rows("select hAddress,bAddress from Home,Business"),
              QStringList(address + u'|' + address));
}
