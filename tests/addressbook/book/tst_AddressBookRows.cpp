#include "AddressDatabase.h"
#include "BookWindow.h"
#include "ContactQuery.h"
#include "Forms.h"
#include "PrintQt.h"
#include "frmAddress.h"
#include "frmRegCity.h"
#include "frmRegister.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

// What opens from a row of the list, and what adds new rows.

namespace {

const QString protectedTitle = QStringLiteral("The .. Node is Protected..");

struct AddressBookRowsTest : testing::Test
{
    BookWindow window;

    /// Expects the window of class \a Window, in which \a act closes it by a button.
    template<class Window>
    void expect(std::function<void(Window &)> act)
    {
        window.frame.dialogs.expectWindow<Window>(QString::fromLatin1(Window::staticMetaObject.className()),
                                                  std::move(act));
    }
    template<class Window>
    void expectCaption(const char *caption)
    {
        expect<Window>([caption](Window &form) {
            EXPECT_EQ(form.Caption(), QString::fromLatin1(caption));
            press(form, "cmdCancel");
        });
    }
    void expectProtected(const char *text)
    {
        window.frame.dialogs.expectBox(protectedTitle, QString::fromLatin1(text))
            .icon(QMessageBox::Critical)
            .buttons(QMessageBox::Ok);
    }

    static void press(Form &form, const char *button)
    {
        form.member<QPushButton>(QString::fromLatin1(button)).click();
    }
    static QString text(Form &form, const char *box)
    {
        return form.member<QLineEdit>(QString::fromLatin1(box)).text();
    }
    static void type(Form &form, const char *box, const char *text)
    {
        form.member<QLineEdit>(QString::fromLatin1(box)).setText(QString::fromLatin1(text));
    }
};

} // namespace

TEST_F(AddressBookRowsTest, ADoubleClickEditsTheContactAndReadsTheListAgain)
{
    window.clickNode("Group3");
    window.clickLetter('B');
    expect<frmAddress>([&](frmAddress &editor) {
        EXPECT_EQ(editor.EditMode, QStringLiteral("Modify"));
        EXPECT_EQ(text(editor, "txtName"), QStringLiteral("Ben Cole"));
        type(editor, "txtName", "Zoe Cole");
        press(editor, "cmdOK");
    });
    window.doubleClickRow("Ben Cole");
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn|Zoe Cole")); // the letter is dropped
    EXPECT_EQ(window.form().NameFilter, QString());
    EXPECT_EQ(window.label(), QStringLiteral("Work"));
    EXPECT_EQ(window.rows("select Name from Names where SrNo=3"), QStringList(QStringLiteral("Zoe Cole")));
}

TEST_F(AddressBookRowsTest, ACancelledEditReadsTheListAgainToo)
{
    window.clickNode("Root");
    window.toggle("Anna Bell");
    window.clickLetter('B');
    expectCaption<frmAddress>("Contacts");
    window.doubleClickRow("Bea Dunn");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
    EXPECT_EQ(window.checkedNames(), QString());
}

TEST_F(AddressBookRowsTest, AfterABirthdaySearchAnEditShowsTheClickedNodeAgain)
{
    const std::pair<const char *, const char *> views[] = {{"Group3", "Bea Dunn|Ben Cole"},
                                                           {"Root", "Anna Bell|Bea Dunn|Ben Cole|carl Bly"}};
    for (const auto &[node, names] : views) {
        window.clickNode(node);
        window.form().NameFilter = ContactQuery::birthdayFilter({2024, 2, 29});
        window.form().BaseQuery = ContactQuery::all();
        window.form().fillAddresses();
        ASSERT_EQ(window.names(), QStringLiteral("Anna Bell"));
        expectCaption<frmAddress>("Contacts");
        window.doubleClickRow("Anna Bell");
        EXPECT_EQ(window.names(), QString::fromLatin1(names));
    }
}

TEST_F(AddressBookRowsTest, EnterEditsTheSelectedContact)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        window.clickNode("Root");
        window.selectRow("carl Bly");
        expect<frmAddress>([&](frmAddress &editor) {
            EXPECT_EQ(text(editor, "txtName"), QStringLiteral("carl Bly"));
            press(editor, "cmdCancel");
        });
        window.press(key);
    }
}

TEST_F(AddressBookRowsTest, WithoutASelectedRowBothEndTheProgram)
{
    window.clickNode("Root");
    window.frame.fatal.expect(91);
    window.press(Qt::Key_Return);
    window.frame.fatal.expect(91);
    Q_EMIT window.list().DblClick();
}

TEST_F(AddressBookRowsTest, InTheEmptyListBothEndTheProgramToo)
{
    window.frame.fatal.expect(35600);
    window.press(Qt::Key_Return);
    window.frame.fatal.expect(35600);
    Q_EMIT window.list().DblClick();
}

TEST_F(AddressBookRowsTest, AContactWithoutABusinessRowEndsTheProgram)
{
    AddressConnection.execute(QStringLiteral("delete from Business where SrNo=3"));
    window.clickNode("Root");
    window.frame.fatal.expect(3021);
    window.doubleClickRow("Ben Cole");
}

TEST_F(AddressBookRowsTest, ACityIsEditedAndTheListStays)
{
    window.clickNode("City");
    expect<frmRegCity>([&](frmRegCity &dialog) {
        EXPECT_EQ(dialog.Caption(), QStringLiteral("Edit City"));
        EXPECT_EQ(dialog.EditMode, QStringLiteral("Modify"));
        EXPECT_EQ(text(dialog, "txtCity"), QStringLiteral("Margate"));
        type(dialog, "txtCity", "Ramsgate");
        press(dialog, "cmdOK");
    });
    window.doubleClickRow("3");
    EXPECT_EQ(window.rows("select CityName from City where CityID=3"),
              QStringList(QStringLiteral("Ramsgate")));
    EXPECT_EQ(window.row("3"), QStringLiteral("3|Margate"));
}

TEST_F(AddressBookRowsTest, AStateIsEditedAndTheListReadAgain)
{
    window.clickNode("State");
    expect<frmRegister>([&](frmRegister &dialog) {
        EXPECT_EQ(dialog.Caption(), QStringLiteral("Edit State"));
        EXPECT_EQ(text(dialog, "txtEntity"), QStringLiteral("Kent"));
        EXPECT_FALSE(dialog.windowIcon().isNull());
        type(dialog, "txtEntity", "Essex");
        press(dialog, "cmdOK");
    });
    window.doubleClickRow("2");
    EXPECT_EQ(window.row("2"), QStringLiteral("2|Essex"));
    EXPECT_EQ(window.tree().Text(QStringLiteral("State2")), QStringLiteral("Kent"));
}

TEST_F(AddressBookRowsTest, AGroupIsEditedAndTheListReadAgain)
{
    window.clickNode("Groups");
    window.selectRow("3");
    expect<frmRegister>([&](frmRegister &dialog) {
        EXPECT_EQ(dialog.Caption(), QStringLiteral("Edit Group"));
        EXPECT_EQ(text(dialog, "txtEntity"), QStringLiteral("Work"));
        type(dialog, "txtEntity", "Office");
        press(dialog, "cmdOK");
    });
    window.press(Qt::Key_Return);
    EXPECT_EQ(window.row("3"), QStringLiteral("3|Office"));
}

TEST_F(AddressBookRowsTest, TheRowsThatAreAlwaysThereCannotBeEdited)
{
    window.clickNode("City");
    expectProtected("You cannot edit this item!");
    window.doubleClickRow("1");
    window.clickNode("State");
    expectProtected("You cannot edit this item!");
    window.doubleClickRow("1");
    window.clickNode("Groups");
    expectProtected("You cannot edit the default Group!");
    window.doubleClickRow("1");
}

TEST_F(AddressBookRowsTest, ANewContactIsNotInTheListYet)
{
    window.clickNode("Root");
    expect<frmAddress>([&](frmAddress &editor) {
        EXPECT_EQ(editor.Caption(), QStringLiteral("Add New Contact"));
        EXPECT_EQ(editor.EditMode, QStringLiteral("New"));
        type(editor, "txtName", "Abe New");
        press(editor, "cmdOK");
    });
    window.click("CmdNewContact");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
    window.clickNode("Root");
    EXPECT_EQ(window.names(), QStringLiteral("Abe New|Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
}

TEST_F(AddressBookRowsTest, ANewGroupComesIntoTheTreeByARefresh)
{
    expect<frmRegister>([&](frmRegister &dialog) {
        EXPECT_EQ(dialog.Caption(), QStringLiteral("New Group"));
        EXPECT_EQ(dialog.EditMode, QStringLiteral("New"));
        type(dialog, "txtEntity", "Club");
        press(dialog, "cmdOK");
    });
    window.click("cmdGroup");
    EXPECT_EQ(window.tree().Count(), 14);
    window.click("cmdRefresh");
    EXPECT_EQ(window.tree().Text(QStringLiteral("Group4")), QStringLiteral("Club"));
}

TEST_F(AddressBookRowsTest, ANewCityGivesItsIconToTheOtherDialog)
{
    expect<frmRegCity>([&](frmRegCity &dialog) {
        EXPECT_EQ(dialog.Caption(), QStringLiteral("Add New City"));
        EXPECT_EQ(dialog.EditMode, QStringLiteral("New"));
        press(dialog, "cmdCancel");
    });
    window.click("cmdCity");
    ASSERT_EQ(Forms::named(QStringLiteral("frmRegister")).size(), 1);
    const QIcon icon = Forms::refer<frmRegister>().windowIcon();
    EXPECT_FALSE(Forms::refer<frmRegister>().isVisible());
    EXPECT_TRUE(icon.availableSizes().contains(QSize(16, 16)));
    EXPECT_TRUE(icon.availableSizes().contains(QSize(48, 48)));
}

TEST_F(AddressBookRowsTest, ANewStateHasAnIconOfItsOwn)
{
    expect<frmRegister>([&](frmRegister &dialog) {
        EXPECT_EQ(dialog.Caption(), QStringLiteral("New State"));
        EXPECT_TRUE(dialog.windowIcon().availableSizes().contains(QSize(32, 32)));
        press(dialog, "cmdCancel");
    });
    window.click("cmdState");
}

TEST_F(AddressBookRowsTest, WithoutAnIconsFileTheProgramEnds)
{
    QFile::remove(QFileInfo(window.book.path()).path() + QStringLiteral("/city.ico"));
    window.frame.fatal.expect(53);
    window.click("cmdCity");
    QFile::remove(QFileInfo(window.book.path()).path() + QStringLiteral("/stateb.ico"));
    window.frame.fatal.expect(53);
    window.click("cmdState");
    window.clickNode("State");
    window.frame.fatal.expect(53);
    window.doubleClickRow("2");
}

TEST_F(AddressBookRowsTest, WhatIsNoIconEndsTheProgramToo)
{
    QFile file(QFileInfo(window.book.path()).path() + QStringLiteral("/stateb.ico"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no icon");
    file.close();
    window.frame.fatal.expect(481, QStringLiteral("Invalid picture"));
    window.click("cmdState");
}

TEST_F(AddressBookRowsTest, AfterAnEditAFailingStatementShowsAllContacts)
{
    window.clickNode("Group3");
    expect<frmAddress>([&](frmAddress &editor) {
        press(editor, "cmdCancel");
        AddressConnection.execute(QStringLiteral("alter table City rename column StateID to Elsewhere"));
    });
    window.clickNode("State2");
    window.doubleClickRow("Ben Cole");
    EXPECT_EQ(window.label(), QStringLiteral("All Addresses"));
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
}
