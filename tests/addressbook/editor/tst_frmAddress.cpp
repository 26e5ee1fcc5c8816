#include "AddressBox.h"
#include "ChoiceBox.h"
#include "ContactRows.h"
#include "EditorWindow.h"
#include "ListBox.h"
#include "PrintQt.h"
#include "RowName.h"
#include "TabStrip.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct FrmAddressTest : testing::Test
{
    QString texts(const QList<const char *> &names) const
    {
        QStringList all;
        for (const char *name : names)
            all.append(editor.text(name));
        return all.join(u'|');
    }
    QStringList entries(const char *name) const
    {
        const auto &box = editor.control<ChoiceBox>(name);
        QStringList all;
        for (int entry = 0; entry < box.count(); ++entry)
            all.append(box.itemText(entry));
        return all;
    }

    EditorWindow editor;
};

struct Limit
{
    const char *name;
    int characters;
};

struct FieldLimits : FrmAddressTest, testing::WithParamInterface<Limit>
{};

} // namespace

TEST_F(FrmAddressTest, HasThreePages)
{
    editor.openNew();
    const auto &tabs = editor.control<TabStrip>("SSTab1");
    ASSERT_EQ(tabs.Tabs(), 3);
    EXPECT_EQ(tabs.TabCaption(0), QStringLiteral("Name"));
    EXPECT_EQ(tabs.TabCaption(1), QStringLiteral("Home Details"));
    EXPECT_EQ(tabs.TabCaption(2), QStringLiteral(" Business Details"));
    EXPECT_EQ(tabs.Tab(), 0);
}

TEST_F(FrmAddressTest, IsCalledContacts)
{
    EXPECT_EQ(frmAddress().Caption(), QStringLiteral("Contacts"));
}

TEST_F(FrmAddressTest, ANewContactIsEmpty)
{
    editor.openNew();
    EXPECT_EQ(texts({"cmbSalute", "txtName", "txtNick", "cmbGroups", "txtBDate", "txtEMail", "txtComment"}),
              QStringLiteral("||||||"));
    EXPECT_EQ(texts({"txtHAddress", "cmbHCity", "txtState", "txtHZipCode", "txtHPhone1", "txtHPhone2",
                     "txtMobile"}),
              QStringLiteral("|..|..||||"));
    EXPECT_EQ(texts({"txtCompany", "txtPost", "txtBAddress", "cmbBCity", "txtBState", "txtBZipCode",
                     "txtDept", "txtBPhone1", "txtBPhone2", "txtFax", "txtPager"}),
              QStringLiteral("|||..|..||||||"));
    EXPECT_EQ(editor.eMails(), QStringList());
    EXPECT_EQ(editor.focus(), QStringLiteral("txtName"));
}

TEST_F(FrmAddressTest, TheListsHaveWhatTheTablesHave)
{
    editor.openNew();
    EXPECT_EQ(entries("cmbSalute"), QStringList({QStringLiteral("Mr."), QStringLiteral("Miss."),
                                                 QStringLiteral("Mrs."), QStringLiteral("M/S.")}));
    EXPECT_EQ(entries("cmbGroups"), QStringList({QStringLiteral("Default"), QStringLiteral("Family")}));
    EXPECT_EQ(entries("cmbHCity"), QStringList({QStringLiteral(".."), QStringLiteral("London")}));
    EXPECT_EQ(entries("cmbBCity"), entries("cmbHCity"));
}

TEST_F(FrmAddressTest, AChangeShowsTheWholeContact)
{
    ContactRows::addName(7, {2, QStringLiteral("Mrs."), QStringLiteral("Ann O'Neil"), QStringLiteral("Annie"),
                             QStringLiteral("100% \"x\""), QDate(1999, 9, 5)});
    ContactRows::addEMails(7, {QStringLiteral("b@x"), QStringLiteral("a@x")});
    ContactRows::addHome(7, {QStringLiteral("1 Road\nTown"), 2, QStringLiteral("AB1"), QStringLiteral("1"),
                             QStringLiteral("2"), QStringLiteral("3")});
    ContactRows::addBusiness(7, {QStringLiteral("2 Lane"), 1, QStringLiteral("CD2"), QStringLiteral("4"),
                                 QStringLiteral("5"), QStringLiteral("6"), QStringLiteral("7"),
                                 QStringLiteral("Works"), QStringLiteral("Boss"), QStringLiteral("Top")});
    editor.openFor(7);
    EXPECT_EQ(editor.form().EditMode, QStringLiteral("Modify"));
    EXPECT_EQ(texts({"cmbSalute", "txtName", "txtNick", "cmbGroups", "txtBDate", "txtEMail", "txtComment"}),
              QStringLiteral("Mrs.|Ann O'Neil|Annie|Family|05-Sep-1999||100% \"x\""));
    EXPECT_EQ(editor.eMails(), QStringList({QStringLiteral("b@x"), QStringLiteral("a@x")}));
    EXPECT_EQ(texts({"txtHAddress", "cmbHCity", "txtState", "txtHZipCode", "txtHPhone1", "txtHPhone2",
                     "txtMobile"}),
              QStringLiteral("1 Road\nTown|London|Kent|AB1|1|2|3"));
    EXPECT_EQ(texts({"txtCompany", "txtPost", "txtBAddress", "cmbBCity", "txtBState", "txtBZipCode",
                     "txtDept", "txtBPhone1", "txtBPhone2", "txtFax", "txtPager"}),
              QStringLiteral("Works|Boss|2 Lane|..|..|CD2|Top|4|5|6|7"));
}

TEST_F(FrmAddressTest, AContactWithoutABirthDateShowsNone)
{
    editor.openFor(ScratchAddressBook::addContact(QStringLiteral("Ann")));
    EXPECT_EQ(editor.text("txtBDate"), QString());
    EXPECT_EQ(editor.text("cmbGroups"), QStringLiteral("Default"));
}

TEST_F(FrmAddressTest, TabVisitsTheFieldsInTheirOrder)
{
    editor.openNew();
    const auto order = [this](const char *first, const char *last) {
        QStringList names;
        editor.control<QWidget>(first).setFocus();
        for (int guard = 0; guard < 30; ++guard) {
            names.append(editor.focus());
            if (names.last() == QLatin1String(last))
                break;
            editor.press(Qt::Key_Tab);
        }
        return names.join(u' ');
    };
    EXPECT_EQ(
        order("cmbSalute", "cmdCancel"),
        QStringLiteral("cmbSalute txtName txtNick cmbGroups txtBDate txtEMail cmdAdd lstEMail cmdRemove "
                       "txtComment cmdOK cmdCancel"));
    editor.control<TabStrip>("SSTab1").setTab(1);
    EXPECT_EQ(order("txtHAddress", "Command3"),
              QStringLiteral("txtHAddress cmbHCity txtState txtHZipCode txtHPhone1 txtHPhone2 txtMobile "
                             "Command1 Command2 Command3"));
    editor.control<TabStrip>("SSTab1").setTab(2);
    EXPECT_EQ(
        order("txtCompany", "Command6"),
        QStringLiteral("txtCompany txtPost txtBAddress cmbBCity txtBState txtBZipCode txtDept txtBPhone1 "
                       "txtBPhone2 txtFax txtPager "
                       "Command4 Command5 Command6"));
}

TEST_F(FrmAddressTest, EachFieldHasALabelWhichNamesIt)
{
    editor.openNew();
    int fields = 0;
    for (const QLabel *label : editor.form().findChildren<QLabel *>()) {
        if (!label->buddy())
            continue;
        ++fields;
        EXPECT_EQ(label->buddy()->accessibleName(), label->text());
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
    }
    EXPECT_EQ(fields, 25);
    EXPECT_EQ(editor.control<QLabel>("lblState").text(), QStringLiteral("State/ County/ Province"));
    EXPECT_EQ(editor.control<QLabel>("lblPager").text(), QStringLiteral("Mobile"));
    EXPECT_EQ(editor.control<QLabel>("lblHCity").text(), QStringLiteral("City/Town"));
    EXPECT_EQ(editor.control<QLabel>("lblHZipCode").text(), QStringLiteral("Postal/ Zip Code"));
    EXPECT_EQ(editor.control<QLabel>("lblEMail").text(), QStringLiteral("E-Mail"));
    EXPECT_EQ(editor.control<QLabel>("lblComment").text(), QStringLiteral("Comments"));
}

TEST_P(FieldLimits, NoMoreCanBeTyped)
{
    editor.openNew();
    editor.type(GetParam().name, QString(GetParam().characters + 5, u'w'));
    EXPECT_EQ(editor.text(GetParam().name).size(), GetParam().characters);
}

INSTANTIATE_TEST_SUITE_P(Fields, FieldLimits,
                         testing::Values(Limit{"txtName", 50}, Limit{"txtNick", 50}, Limit{"txtComment", 255},
                                         Limit{"txtHAddress", 100}, Limit{"txtCompany", 50},
                                         Limit{"txtPost", 50}, Limit{"txtBAddress", 100},
                                         Limit{"txtDept", 50}),
                         RowName());

TEST_F(FrmAddressTest, CancelWritesNothing)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.click("cmdCancel");
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(editor.numbers(), QStringLiteral("///"));
}

TEST_F(FrmAddressTest, EscapeCancels)
{
    const qint32 ann = ScratchAddressBook::addContact(QStringLiteral("Ann"));
    editor.openFor(ann);
    editor.type("txtName", QStringLiteral("Anna"));
    editor.press(Qt::Key_Escape);
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(editor.rows("select Name from Names"), QStringList(QStringLiteral("Ann")));
}

TEST_F(FrmAddressTest, ReturnInAFieldNeitherSavesNorCloses)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.press(Qt::Key_Return);
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(editor.numbers(), QStringLiteral("///"));
    editor.control<QPushButton>("cmdOK").setFocus();
    editor.press(Qt::Key_Return);
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(editor.numbers(), QStringLiteral("1//1/1"));
}

TEST_F(FrmAddressTest, IsShownModallyAboveTheAddressBook)
{
    editor.frame.dialogs.expectWindow<frmAddress>(QStringLiteral("frmAddress"), [](frmAddress &window) {
        EXPECT_TRUE(window.isModal());
        EXPECT_EQ(window.focusWidget(), &window.member<QLineEdit>(QStringLiteral("txtName")));
        QTest::keyClicks(&window.member<QLineEdit>(QStringLiteral("txtName")), QStringLiteral("Ann"));
        QTest::mouseClick(&window.member<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
    });
    QWidget addressBook;
    addressBook.show();
    auto *window = new frmAddress;
    window->load();
    window->EditMode = QStringLiteral("New");
    window->showModal(&addressBook);
    EXPECT_EQ(editor.numbers(), QStringLiteral("1//1/1"));
}

// ---- E-mail addresses

TEST_F(FrmAddressTest, AddingTakesTheTextAsItIs)
{
    editor.openNew();
    for (const char *address : {" a@x ", "a@x", "no address", "a@x"}) {
        editor.type("txtEMail", QString::fromLatin1(address));
        editor.click("cmdAdd");
        EXPECT_EQ(editor.text("txtEMail"), QString());
        EXPECT_EQ(editor.focus(), QStringLiteral("txtEMail"));
    }
    EXPECT_EQ(editor.eMails().join(u'|'), QStringLiteral(" a@x |a@x|no address|a@x"));
}

TEST_F(FrmAddressTest, NothingIsAddedFromAnEmptyBox)
{
    editor.openNew();
    editor.click("cmdAdd");
    EXPECT_EQ(editor.eMails(), QStringList());
    EXPECT_EQ(editor.focus(), QStringLiteral("txtEMail"));
    editor.type("txtEMail", QStringLiteral(" "));
    editor.click("cmdAdd");
    EXPECT_EQ(editor.eMails(), QStringList(QStringLiteral(" ")));
}

TEST_F(FrmAddressTest, ReturnInTheBoxAdds)
{
    editor.openNew();
    editor.type("txtEMail", QStringLiteral("a@x"));
    editor.press(Qt::Key_Return);
    EXPECT_EQ(editor.eMails(), QStringList(QStringLiteral("a@x")));
    EXPECT_TRUE(editor.isOpen());
}

TEST_F(FrmAddressTest, RemovingTakesTheSelectedAddress)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    ContactRows::addEMails(1, {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("b"), QString()});
    editor.openFor(1);
    editor.click("cmdRemove");
    EXPECT_EQ(editor.eMails().size(), 4);
    auto &list = editor.control<ListBox>("lstEMail");
    list.setListIndex(2);
    editor.click("cmdRemove");
    EXPECT_EQ(editor.eMails().join(u'|'), QStringLiteral("a|b|"));
    list.setListIndex(2); // the empty one
    editor.click("cmdRemove");
    EXPECT_EQ(editor.eMails().join(u'|'), QStringLiteral("a|b|"));
    list.setListIndex(0);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(editor.eMails().join(u'|'), QStringLiteral("b|"));
}

// ---- City and state

TEST_F(FrmAddressTest, AChosenCityShowsItsState)
{
    editor.openNew();
    editor.choose("cmbHCity", 1);
    EXPECT_EQ(editor.text("cmbHCity"), QStringLiteral("London"));
    EXPECT_EQ(editor.text("txtState"), QStringLiteral("Kent"));
    EXPECT_EQ(editor.text("txtBState"), QStringLiteral(".."));
    editor.choose("cmbBCity", 1);
    EXPECT_EQ(editor.text("txtBState"), QStringLiteral("Kent"));
}

TEST_F(FrmAddressTest, ATypedCityShowsNoState)
{
    editor.openNew();
    editor.type("cmbHCity", QStringLiteral("London"));
    editor.type("txtHZipCode", QStringLiteral("x"));
    EXPECT_EQ(editor.text("cmbHCity"), QStringLiteral("London"));
    EXPECT_EQ(editor.text("txtState"), QStringLiteral(".."));
    editor.type("cmbHCity", QStringLiteral("Nowhere"));
    editor.type("txtHZipCode", QStringLiteral("x"));
    EXPECT_EQ(editor.text("cmbHCity"), QStringLiteral("Nowhere"));
}

TEST_F(FrmAddressTest, TheStateIsNotTyped)
{
    editor.openNew();
    editor.type("txtState", QStringLiteral("Essex"));
    editor.type("txtBState", QStringLiteral("Essex"));
    EXPECT_EQ(editor.text("txtState") + editor.text("txtBState"), QStringLiteral("...."));
}

// ---- What leaving a field does

TEST_F(FrmAddressTest, ADateIsTidiedWhenItsBoxIsLeft)
{
    editor.openNew();
    const auto leaveWith = [this](const char *typed) {
        editor.type("txtBDate", QString::fromLatin1(typed));
        editor.press(Qt::Key_Tab);
        return editor.text("txtBDate");
    };
    EXPECT_EQ(leaveWith("5-sep-1999"), QStringLiteral("05-Sep-1999"));
    EXPECT_EQ(leaveWith("1999-09-05"), QStringLiteral("05-Sep-1999"));
    EXPECT_EQ(leaveWith("29-feb-2000"), QStringLiteral("29-Feb-2000"));
    EXPECT_EQ(leaveWith("29-feb-1999"), QString());
    EXPECT_EQ(leaveWith("31-Apr-1999"), QString());
    EXPECT_EQ(leaveWith("tomorrow"), QString());
}

TEST_F(FrmAddressTest, AMenuOrAnotherWindowDoesNotTakeTheFocusAway)
{
    editor.openNew();
    editor.type("txtBDate", QStringLiteral("tomorrow"));
    Form other(QStringLiteral("other"));
    other.showModeless();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(editor.text("txtBDate"), QStringLiteral("tomorrow"));
}

TEST_F(FrmAddressTest, OtherSalutationsAndGroupsBecomeTheFirst)
{
    editor.openNew();
    const auto leaveWith = [this](const char *box, const char *typed) {
        editor.type(box, QString::fromLatin1(typed));
        editor.control<QLineEdit>("txtNick").setFocus();
        return editor.text(box);
    };
    EXPECT_EQ(leaveWith("cmbSalute", "Mrs."), QStringLiteral("Mrs."));
    EXPECT_EQ(leaveWith("cmbSalute", "Dr."), QStringLiteral("Mr."));
    EXPECT_EQ(leaveWith("cmbSalute", "mrs."), QStringLiteral("Mr."));
    EXPECT_EQ(leaveWith("cmbGroups", "Family"), QStringLiteral("Family"));
    EXPECT_EQ(leaveWith("cmbGroups", "family"), QStringLiteral("Default"));
}

TEST_F(FrmAddressTest, MayBeNarrowAndBeginsWide)
{
    editor.openNew();
    const int character = editor.form().fontMetrics().averageCharWidth();
    EXPECT_LT(editor.form().minimumSizeHint().width(), 100 * character);
    EXPECT_GE(editor.form().sizeHint().width(), 120 * character);
    const int most = editor.form().screen()->availableGeometry().width() * 2 / 3; // of a window's first size
    EXPECT_GE(editor.form().width(), qMin(120 * character, most));
    editor.form().resize(editor.form().minimumSizeHint());
    for (const char *box : {"txtHPhone1", "txtBPhone2", "txtEMail", "txtHAddress", "cmbHCity"})
        EXPECT_GE(editor.control<QWidget>(box).width(), 12 * character) << box;
}
