#include "AddressBox.h"
#include "DataError.h"
#include "EditorWindow.h"
#include "HostileNames.h"
#include "ListBox.h"
#include "PrintQt.h"

#include <QLabel>
#include <QLineEdit>
#include <gtest/gtest.h>

// Texts that a careless window misreads, in every field.

namespace {

constexpr const char *lineBoxes[] = {"txtName",    "txtNick",    "txtComment", "txtHZipCode", "txtHPhone1",
                                     "txtHPhone2", "txtMobile",  "txtCompany", "txtPost",     "txtBZipCode",
                                     "txtDept",    "txtBPhone1", "txtBPhone2", "txtFax",      "txtPager"};
constexpr const char *addressBoxes[] = {"txtHAddress", "txtBAddress"};

/// Quotes, comments and wildcards of statements, beside what every tool has to bear.
QList<HostileName> texts()
{
    QList<HostileName> all = HostileNames::texts();
    all += {
        {"Quote", "O'Neil"},         {"Quotes", "''\"\"`"},
        {"Comment", "x'-- "},        {"Statement", "'; drop table Names; --"},
        {"Wildcards", "%_[a-z]*#?"}, {"RichText", "{\\b brave} \\bin99999999 \\u8364? }}}"},
        {"Formula", "=1+1"},         {"OutsideTheFirstPlane", QByteArray("\xF0\x9F\x98\x80").repeated(12)},
    };
    return all;
}

struct FrmAddressNames : testing::TestWithParam<HostileName>
{
    /// Puts the text into every box, and what each then has into \a kept.
    void fill()
    {
        for (const char *box : lineBoxes) {
            editor.set(box, GetParam().text());
            kept.append(editor.text(box));
        }
        for (const char *box : addressBoxes) {
            editor.set(box, GetParam().text());
            kept.append(editor.text(box));
        }
        editor.set("txtEMail", GetParam().text());
        editor.click("cmdAdd");
    }

    EditorWindow editor;
    QStringList kept;
};

struct FrmAddressCities : FrmAddressNames
{};

QList<HostileName> unknownCities()
{
    QList<HostileName> unknown = texts();
    unknown.removeIf([](const HostileName &name) { return name.text() == u".."; });
    return unknown;
}

} // namespace

TEST_P(FrmAddressNames, AreStoredAndShownAgain)
{
    editor.openNew();
    editor.type("txtName", QStringLiteral("x"));
    fill();
    if (editor.text("txtName").trimmed().isEmpty())
        editor.set("txtName", QStringLiteral("x"));
    editor.click("cmdOK");
    ASSERT_FALSE(editor.isOpen());
    EXPECT_EQ(editor.numbers(), QStringLiteral("1/1/1/1"));
    editor.openFor(1);
    int box = 0;
    for (const char *name : lineBoxes)
        EXPECT_EQ(editor.text(name), kept.at(box++).trimmed()) << name;
    for (const char *name : addressBoxes)
        EXPECT_EQ(editor.text(name), kept.at(box++).trimmed()) << name;
    EXPECT_EQ(editor.eMails(), QStringList(GetParam().text()));
    editor.click("cmdOK"); // a second save changes nothing
    const QStringList first = editor.rows("select * from Names,EMails,Home,Business");
    editor.openFor(1);
    editor.click("cmdOK");
    EXPECT_EQ(editor.rows("select * from Names,EMails,Home,Business"), first);
}

TEST_P(FrmAddressCities, ThatAreUnknownAreAnErrorAndNoMore)
{
    ScratchAddressBook::addContact(QStringLiteral("Ben"));
    editor.openNew();
    editor.type("txtName", QStringLiteral("Ann"));
    editor.set("cmbHCity", GetParam().text());
    editor.frame.dialogs.leaveWhatComes();
    editor.click("cmdOK");
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(editor.frame.dialogs.seen().last().title, QStringLiteral("Data Entry Error..."));
    EXPECT_EQ(editor.rows("select Name from Names order by SrNo"),
              QStringList({QStringLiteral("Ben"), QStringLiteral("Ann")}));
    EXPECT_EQ(editor.rows("select SrNo from Home"), QStringList(QStringLiteral("1")));
    EXPECT_EQ(editor.rows("select count(*) from City"), QStringList(QStringLiteral("2")));
}

INSTANTIATE_TEST_SUITE_P(Texts, FrmAddressNames, testing::ValuesIn(texts()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
INSTANTIATE_TEST_SUITE_P(Texts, FrmAddressCities, testing::ValuesIn(unknownCities()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
