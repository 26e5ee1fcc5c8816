#include "DataError.h"
#include "ErrorNumberOf.h"
#include "HostileNames.h"
#include "ReferenceDialog.h"
#include "RowName.h"
#include "frmRegister.h"

#include <QLabel>
#include <gtest/gtest.h>

namespace {

/// The dialog is the same for states and groups but for what is in this row.
struct Kind
{
    const char *name;
    const char *label;
    const char *alreadyExists;
    const char *select;
    const char *existing; ///< the name of row 2
    const char *insert255;
};

constexpr Kind kinds[] = {
    {"State", "County/ State/ Province", "County/State/Province Already Exists...",
     "select * from State order by StateID", "Kent", "Insert into State values(255,'Last')"},
    {"Group", "Group", "Group Alread Exists...", "select * from Groups order by GroupID", "Family",
     "Insert into Groups values(255,'Last')"},
};

struct FrmRegisterTest : testing::TestWithParam<Kind>
{
    QString type() const { return QString::fromLatin1(GetParam().name); }
    QString existing() const { return QString::fromLatin1(GetParam().existing); }
    void openNew()
    {
        dialog.load().configure(type());
        dialog.show();
    }
    void openFor(qint16 id)
    {
        dialog.load().configureEdit(type(), id);
        dialog.show();
    }
    QString text() const { return dialog.control<QLineEdit>("txtEntity").text(); }
    QString label() const { return dialog.control<QLabel>("lblDisp").text(); }
    QStringList rows() const { return dialog.rows(GetParam().select); }

    ReferenceDialog<frmRegister> dialog{QStringLiteral("frmRegister")};
};

struct FrmRegisterNames : testing::TestWithParam<HostileName>
{
    ReferenceDialog<frmRegister> dialog{QStringLiteral("frmRegister")};
};

} // namespace

TEST_P(FrmRegisterTest, ANewOneBeginsEmpty)
{
    dialog.load().setCaption(QStringLiteral("Add New Thing"));
    openNew();
    EXPECT_EQ(dialog.form().Caption(), QStringLiteral("New ") + type());
    EXPECT_EQ(dialog.form().EditMode, QStringLiteral("New"));
    EXPECT_EQ(label(), QString::fromLatin1(GetParam().label));
    EXPECT_EQ(dialog.control<QLineEdit>("txtEntity").accessibleName(), label());
    EXPECT_EQ(text(), QString());
    EXPECT_EQ(dialog.focus(), QStringLiteral("txtEntity"));
}

TEST_P(FrmRegisterTest, AChangeShowsTheName)
{
    openFor(2);
    EXPECT_EQ(dialog.form().Caption(), QStringLiteral("Edit ") + type());
    EXPECT_EQ(dialog.form().EditMode, QStringLiteral("Modify"));
    EXPECT_EQ(label(), QString::fromLatin1(GetParam().label));
    EXPECT_EQ(text(), existing());
}

TEST_P(FrmRegisterTest, WhatIsGoneCannotBeChanged)
{
    dialog.load();
    EXPECT_EQ(errorNumberOf([this] { dialog.form().configureEdit(type(), 9); }), DataError::NoCurrentRow);
}

TEST_P(FrmRegisterTest, ANewNameIsStoredWithItsBlanks)
{
    openNew();
    dialog.type("txtEntity", QStringLiteral(" New one "));
    dialog.click("cmdOK");
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.form().EditMode, QString());
    EXPECT_EQ(rows().last(), QStringLiteral("3| New one "));
}

TEST_P(FrmRegisterTest, AChangedNameIsStoredWithItsBlanks)
{
    openFor(2);
    dialog.type("txtEntity", QStringLiteral(" Other "));
    dialog.press(Qt::Key_Return);
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(rows().size(), 2);
    EXPECT_EQ(rows().last(), QStringLiteral("2| Other "));
}

TEST_P(FrmRegisterTest, CancelWritesNothing)
{
    const QStringList before = rows();
    for (int way = 0; way < 2; ++way) {
        openFor(2);
        dialog.type("txtEntity", QStringLiteral("Other"));
        way ? dialog.press(Qt::Key_Escape) : dialog.click("cmdCancel");
        EXPECT_FALSE(dialog.isOpen());
    }
    EXPECT_EQ(rows(), before);
}

TEST_P(FrmRegisterTest, AValueIsAskedFor)
{
    openNew();
    for (const char *name : {"", "   "}) {
        dialog.type("txtEntity", QString::fromLatin1(name));
        dialog.expectBox(QStringLiteral("Enter Value..."));
        dialog.click("cmdOK");
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_EQ(dialog.focus(), QStringLiteral("txtEntity"));
    }
    EXPECT_EQ(rows().size(), 2);
}

/// A name is looked up without the blanks around it, and case does not count.
TEST_P(FrmRegisterTest, ANameThatIsThereIsRefused)
{
    openNew();
    for (const QString &name : {existing(), existing().toUpper(), u' ' + existing() + u' '}) {
        dialog.type("txtEntity", name);
        dialog.expectBox(QString::fromLatin1(GetParam().alreadyExists));
        dialog.click("cmdOK");
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_EQ(dialog.focus(), QStringLiteral("txtEntity"));
    }
    EXPECT_EQ(rows().size(), 2);
}

TEST_P(FrmRegisterTest, RenamingToANameThatIsThereGoesThrough)
{
    openNew();
    dialog.type("txtEntity", QStringLiteral("Other"));
    dialog.click("cmdOK");
    openFor(3);
    dialog.type("txtEntity", existing());
    dialog.click("cmdOK");
    EXPECT_EQ(rows().last(), QStringLiteral("3|") + existing());
}

TEST_P(FrmRegisterTest, AtMost50CharactersAreTyped)
{
    openNew();
    dialog.type("txtEntity", QString(60, u'w'));
    EXPECT_EQ(text().size(), 50);
}

// ---- What ends the suite

TEST_P(FrmRegisterTest, ASingleQuoteIsASyntaxError)
{
    openNew();
    dialog.type("txtEntity", QStringLiteral("King's"));
    dialog.frame.fatal.expect(DataError::RejectedStatement, QStringLiteral("near \"s\": syntax error"));
    dialog.click("cmdOK");
    openFor(2);
    dialog.type("txtEntity", QStringLiteral("King's"));
    dialog.frame.fatal.expect(DataError::RejectedStatement, QStringLiteral("near \"s\": syntax error"));
    dialog.click("cmdOK");
    EXPECT_EQ(rows().last(), QStringLiteral("2|") + existing());
}

TEST_P(FrmRegisterTest, IdsEndAt255)
{
    dialog.execute(GetParam().insert255);
    openNew();
    dialog.type("txtEntity", QStringLiteral("Other"));
    dialog.frame.fatal.expect(ErrorNumber::Overflow);
    dialog.click("cmdOK");
    EXPECT_EQ(rows().size(), 3);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FrmRegisterTest, testing::ValuesIn(kinds), RowName());

// ---- Whatever the kind

TEST(FrmRegisterKinds, OtherKindsOnlyClose)
{
    ReferenceDialog<frmRegister> dialog{QStringLiteral("frmRegister")};
    dialog.load().configure(QStringLiteral("Planet"));
    dialog.show();
    EXPECT_EQ(dialog.control<QLabel>("lblDisp").text(), QStringLiteral("Planet"));
    dialog.type("txtEntity", QStringLiteral("Mars"));
    dialog.click("cmdOK");
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.rows("select * from State").size() + dialog.rows("select * from Groups").size(), 4);
}

TEST_P(FrmRegisterNames, AreStored)
{
    dialog.load().configure(QStringLiteral("Group"));
    dialog.show();
    dialog.control<QLineEdit>("txtEntity").setText(GetParam().text());
    const QString name = dialog.control<QLineEdit>("txtEntity").text();
    dialog.click("cmdOK");
    ASSERT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.rows("select GroupName from Groups where GroupID=3"), QStringList(name));
    dialog.load().configureEdit(QStringLiteral("Group"), 3);
    EXPECT_EQ(dialog.control<QLineEdit>("txtEntity").text(), name);
}

INSTANTIATE_TEST_SUITE_P(Texts, FrmRegisterNames, testing::ValuesIn(HostileNames::texts()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
