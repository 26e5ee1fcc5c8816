#include "modMain.h"

#include "AddressDatabase.h"
#include "PrintQt.h"
#include "ScratchAddressBook.h"

#include <QComboBox>
#include <gtest/gtest.h>

namespace {

struct ModMain : testing::Test
{
    ModMain() { combo.setEditable(true); }

    QString entries() const
    {
        QStringList texts;
        for (int i = 0; i < combo.count(); ++i)
            texts.append(combo.itemText(i));
        return texts.join(u',');
    }

    ScratchAddressBook book;
    QComboBox combo;
};

struct Salutations : ModMain
{
    Salutations()
    {
        combo.addItems({QStringLiteral("Mr."), QStringLiteral("Miss."), QStringLiteral("Mrs.")});
    }

    QString validated(const char *text, bool forceFirst)
    {
        combo.setEditText(QString::fromUtf8(text));
        ValidateCombo(combo, forceFirst);
        return combo.currentText();
    }
};

} // namespace

TEST_F(ModMain, FillsComboBoxesInTheOrderOfTheNames)
{
    AddressConnection.execute(QStringLiteral("Insert into State values(2,'Kent')"));
    AddressConnection.execute(QStringLiteral("insert into city values(2,'_x',1)"));
    AddressConnection.execute(QStringLiteral("insert into city values(3,'Bath',1)"));
    AddressConnection.execute(QStringLiteral("Insert into Groups values(2,'aunts')"));
    FillCityCombo(combo);
    EXPECT_EQ(entries(), QStringLiteral("..,_x,Bath"));
    FillStateCombo(combo);
    EXPECT_EQ(entries(), QStringLiteral("..,Kent"));
    FillGroupCombo(combo);
    EXPECT_EQ(entries(), QStringLiteral("aunts,Default"));
}

TEST_F(ModMain, FillingLeavesNoText)
{
    combo.addItem(QStringLiteral("old"));
    combo.setEditText(QStringLiteral("typed"));
    FillCityCombo(combo);
    EXPECT_EQ(combo.currentText(), QString());
    combo.setEditable(false);
    FillGroupCombo(combo);
    EXPECT_EQ(combo.currentText(), QString());
    EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_F(Salutations, AnEntryIsKept)
{
    EXPECT_EQ(validated("Mrs.", true), QStringLiteral("Mrs."));
    EXPECT_EQ(validated("Mrs.", false), QStringLiteral("Mrs."));
}

TEST_F(Salutations, OtherTextBecomesTheFirstEntryOrNone)
{
    EXPECT_EQ(validated("Dr.", true), QStringLiteral("Mr."));
    EXPECT_EQ(combo.currentIndex(), 0);
    EXPECT_EQ(validated("Dr.", false), QString());
    EXPECT_EQ(validated("", true), QStringLiteral("Mr."));
}

TEST_F(Salutations, CaseCounts)
{
    EXPECT_EQ(validated("mr.", false), QString());
    EXPECT_EQ(validated("mr.", true), QStringLiteral("Mr."));
    EXPECT_EQ(validated("Mr. ", true), QStringLiteral("Mr."));
}

TEST_F(ModMain, AnEmptyListHasNoFirstEntry)
{
    combo.setEditText(QStringLiteral("x"));
    ValidateCombo(combo, false);
    EXPECT_EQ(combo.currentText(), QString());
}
