#include "AddressDatabase.h"
#include "BookWindow.h"
#include "DateBox.h"
#include "PrintQt.h"
#include "ScratchVariable.h"
#include "frmBirthDays.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <time.h>

namespace {

struct BirthDaysTest : testing::Test
{
    BookWindow window;

    void expect(std::function<void(frmBirthDays &)> act)
    {
        window.frame.dialogs.expectWindow<frmBirthDays>(QStringLiteral("frmBirthDays"), std::move(act));
    }
    static void press(frmBirthDays &dialog, const char *button)
    {
        QTest::mouseClick(&dialog.member<QPushButton>(QString::fromLatin1(button)), Qt::LeftButton);
    }
    static DateBox &date(frmBirthDays &dialog) { return dialog.member<DateBox>(QStringLiteral("dtFrom")); }
    void find(QDate day)
    {
        expect([day](frmBirthDays &dialog) {
            date(dialog).setValue(day);
            press(dialog, "cmdOK");
        });
        window.click("CmdBirthDays");
    }
    static void setBirth(int number, const char *iso)
    {
        AddressConnection.execute(QStringLiteral("update Names set dtOfBirth='%1' where SrNo=%2")
                                      .arg(QLatin1String(iso))
                                      .arg(number));
    }
};

} // namespace

TEST_F(BirthDaysTest, ItsControlsHaveTheirCaptions)
{
    expect([](frmBirthDays &dialog) {
        EXPECT_EQ(dialog.Caption(), QStringLiteral("Birth Date Reminder."));
        EXPECT_EQ(dialog.member<QGroupBox>(QStringLiteral("Frame1")).title(),
                  QStringLiteral("Birth Days of The Date"));
        EXPECT_EQ(dialog.member<QLabel>(QStringLiteral("Label1")).text(), QStringLiteral("Date"));
        EXPECT_EQ(dialog.member<QPushButton>(QStringLiteral("cmdOK")).text(), QStringLiteral("&Ok"));
        EXPECT_EQ(dialog.member<QPushButton>(QStringLiteral("cmdCancel")).text(), QStringLiteral("&Cancel"));
        EXPECT_EQ(date(dialog).Value(), QDate::currentDate());
        EXPECT_GT(dialog.width(), 1.5 * dialog.fontMetrics().horizontalAdvance(dialog.Caption()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
    window.click("CmdBirthDays");
}

TEST_F(BirthDaysTest, FindsTheDayInAnyYear)
{
    find({2024, 2, 28});
    EXPECT_EQ(window.names(), QStringLiteral("Ben Cole"));
    EXPECT_EQ(window.label(), QStringLiteral("Selected Birthdays"));
    EXPECT_EQ(window.commands(), QStringLiteral("AB"));
    EXPECT_EQ(window.form().NameFilter, QStringLiteral(" and day(dtOfBirth) =28 and month(dtofBirth) =2"));
}

TEST_F(BirthDaysTest, TheLeapDayIsADayOfItsOwn)
{
    find({2000, 2, 29});
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell"));
    find({2023, 2, 28});
    EXPECT_EQ(window.names(), QStringLiteral("Ben Cole"));
    find({2023, 3, 1});
    EXPECT_EQ(window.names(), QStringLiteral("carl Bly"));
}

TEST_F(BirthDaysTest, TheTurnOfTheYearIsTwoDays)
{
    setBirth(1, "1999-12-31");
    setBirth(2, "2000-01-01");
    find({2025, 12, 31});
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn"));
    find({2026, 1, 1});
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell"));
}

TEST_F(BirthDaysTest, WithoutAMatchTheListIsEmpty)
{
    window.clickNode("Root");
    find({2024, 7, 1});
    EXPECT_EQ(window.names(), QString());
    EXPECT_EQ(window.label(), QStringLiteral("Selected Birthdays"));
    EXPECT_EQ(window.commands(), QStringLiteral("B"));
}

TEST_F(BirthDaysTest, AContactWithoutBirthDateIsNeverFound)
{
    for (QDate day(2023, 12, 25); day < QDate(2024, 3, 5); day = day.addDays(1)) {
        window.form().BaseQuery.clear();
        find(day);
        EXPECT_FALSE(window.names().contains(QStringLiteral("Bea Dunn"))) << qPrintable(day.toString());
    }
}

TEST_F(BirthDaysTest, CancelChangesTheLabelAlone)
{
    window.clickNode("Group3");
    expect([](frmBirthDays &dialog) { press(dialog, "cmdCancel"); });
    window.click("CmdBirthDays");
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn|Ben Cole"));
    EXPECT_EQ(window.label(), QStringLiteral("Selected Birthdays"));
    EXPECT_EQ(window.form().NameFilter, QString());
}

TEST_F(BirthDaysTest, BringsTheContactsBackFromATable)
{
    window.clickNode("Groups");
    find({2024, 2, 28});
    EXPECT_EQ(window.names(), QStringLiteral("Ben Cole"));
    EXPECT_TRUE(window.list().Checkboxes());
}

TEST_F(BirthDaysTest, ALetterTakesThePlaceOfTheDay)
{
    window.clickNode("Group2");
    find({2024, 2, 28}); // of all contacts, not only of the group
    EXPECT_EQ(window.names(), QStringLiteral("Ben Cole"));
    window.clickLetter('B');
    EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn|Ben Cole"));
    EXPECT_EQ(window.label(), QStringLiteral("Selected Birthdays"));
}

TEST_F(BirthDaysTest, EachOpeningOffersToday)
{
    find({2024, 2, 28});
    expect([](frmBirthDays &dialog) {
        EXPECT_EQ(date(dialog).Value(), QDate::currentDate());
        press(dialog, "cmdCancel");
    });
    window.click("CmdBirthDays");
}

TEST_F(BirthDaysTest, ReturnSearches)
{
    expect([](frmBirthDays &dialog) {
        date(dialog).setValue({2024, 2, 28});
        QTest::keyClick(&date(dialog), Qt::Key_Return);
    });
    window.click("CmdBirthDays");
    EXPECT_EQ(window.names(), QStringLiteral("Ben Cole"));
}

TEST_F(BirthDaysTest, TheTimeZoneDoesNotCount)
{
    for (const char *zone : {"Pacific/Auckland", "America/Los_Angeles", "Pacific/Kiritimati"}) {
        const ScratchVariable timeZone("TZ", zone);
        ::tzset();
        find({2024, 2, 28});
        EXPECT_EQ(window.names(), QStringLiteral("Ben Cole")) << zone;
        EXPECT_TRUE(window.row("Ben Cole").endsWith(QStringLiteral("|28-Feb-1990"))) << zone;
    }
    ::tzset();
}

TEST_F(BirthDaysTest, AFailingSearchEndsTheProgramAndLeavesTheDialogOpen)
{
    window.frame.fatal.expect(-2147217900);
    expect([](frmBirthDays &dialog) {
        AddressConnection.execute(QStringLiteral("alter table Home rename to Elsewhere"));
        press(dialog, "cmdOK");
        EXPECT_TRUE(dialog.isLoaded());
        press(dialog, "cmdCancel");
    });
    window.click("CmdBirthDays");
}

TEST_F(BirthDaysTest, ASearchThatMeetsALockedDatabaseChangesNothing)
{
    window.clickNode("State2");
    Connection other;
    other.open(window.book.path());
    other.execute(QStringLiteral("begin exclusive"));
    expect([](frmBirthDays &dialog) {
        press(dialog, "cmdOK");
        EXPECT_TRUE(dialog.isLoaded());
        press(dialog, "cmdCancel");
    });
    window.frame.dialogs.expectBox(
        QStringLiteral("QuillOfficeToolsv2"),
        QStringLiteral("Another program is using the address database. Please try again."));
    window.click("CmdBirthDays");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Ben Cole"));
    EXPECT_EQ(window.form().NameFilter, QString());
    other.close();
    window.clickLetter('B');
    EXPECT_EQ(window.names(), QStringLiteral("Ben Cole")); // Bea Dunn is in the other state
}
