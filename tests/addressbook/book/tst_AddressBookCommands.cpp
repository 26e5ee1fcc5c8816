#include "BookWindow.h"
#include "Globals.h"
#include "PrintQt.h"
#include "QtMessages.h"
#include "RowName.h"
#include "frmAddress.h"
#include "frmBirthDays.h"
#include "frmQuillAddressAbout.h"
#include "frmRegCity.h"
#include "frmRegister.h"
#include "frmquilladdresshelp.h"
#include "modMain.h"

#include <QPageSetupDialog>
#include <QPushButton>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

/// What a command shows, and how it is left.
struct Effect
{
    const char *window; ///< modal, by its name; nullptr for a box
    const char *button; ///< of the window
    const char *title;  ///< of the box
    const char *text;
};

constexpr Effect newContact = {"frmAddress", "cmdCancel", nullptr, nullptr};
constexpr Effect nameDialog = {"frmRegister", "cmdCancel", nullptr, nullptr};
constexpr Effect cityDialog = {"frmRegCity", "cmdCancel", nullptr, nullptr};
constexpr Effect birthdays = {"frmBirthDays", "cmdCancel", nullptr, nullptr};
constexpr Effect about = {"frmQuillAddressAbout", "cmdOK", nullptr, nullptr};
constexpr Effect help = {"frmquilladdresshelp", "OKButton", nullptr, nullptr};
constexpr Effect nothingChecked = {nullptr, nullptr, "Nothing to Print...",
                                   "You have not selected any records to delete!"};
constexpr Effect allChecked = {nullptr, nullptr, "Items checked...",
                               "All Items in the current list have been selected!"};
constexpr Effect noneChecked = {nullptr, nullptr, "Items un-checked...",
                                "All Items in the current list have been de-selected!"};
constexpr Effect printHint = {nullptr, nullptr, "Printing Information..",
                              "Select a Print item from the drop down beside this button."};
constexpr Effect helpHint = {nullptr, nullptr, "Help Information..",
                             "Select a Help item from the drop down beside this button."};

struct CommandCase
{
    const char *name; ///< of the item or the button
    Effect effect;
};

constexpr CommandCase commands[] = {
    {"CmdNewContact", newContact},
    {"mnuContact", newContact},
    {"mnunewcontact", newContact},
    {"newcontact", newContact},
    {"cmdGroup", nameDialog},
    {"mnuGroup", nameDialog},
    {"mnunewgroup", nameDialog},
    {"newgroup", nameDialog},
    {"cmdCity", cityDialog},
    {"mnuCity", cityDialog},
    {"mnunewcity", cityDialog},
    {"newcity", cityDialog},
    {"cmdState", nameDialog},
    {"mnuState", nameDialog},
    {"mnunewstate", nameDialog},
    {"newstate", nameDialog},
    {"CmdBirthDays", birthdays},
    {"mnufindbirthdays", birthdays},
    {"reminder", birthdays},
    {"cmddeleteselected", nothingChecked},
    {"mnudeleteselected", nothingChecked},
    {"deleteselected", nothingChecked},
    {"mnuselectall", allChecked},
    {"selectall", allChecked},
    {"mnudeselectall", noneChecked},
    {"deselectall", noneChecked},
    {"mnuabout", about},
    {"helpmeabout", about},
    {"mnuhowto", help},
    {"helpmehowto", help},
    {"mprint", printHint},
    {"helpme", helpHint},
};

struct AddressBookCommandTest : testing::TestWithParam<CommandCase>
{};

struct AddressBookCommandsTest : testing::Test
{
    BookWindow window;

    void run(const char *command) const { runCommand(window, command); }
    static void runCommand(const BookWindow &window, const char *command)
    {
        if (window.form().findChild<QAction *>(QString::fromLatin1(command)))
            window.choose(command);
        else
            window.click(command);
    }
};

} // namespace

TEST_P(AddressBookCommandTest, ShowsItsWindowOrItsBox)
{
    BookWindow window;
    window.clickNode("Root");
    const Effect &effect = GetParam().effect;
    if (effect.window)
        window.frame.dialogs.expectWindow<Form>(QString::fromLatin1(effect.window), [&](Form &form) {
            EXPECT_EQ(form.parentWidget(), window.form().window());
            form.member<QPushButton>(QString::fromLatin1(effect.button)).click();
        });
    else
        window.frame.dialogs.expectBox(QString::fromLatin1(effect.title), QString::fromLatin1(effect.text))
            .icon(QMessageBox::Information)
            .buttons(QMessageBox::Ok);
    AddressBookCommandsTest::runCommand(window, GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Commands, AddressBookCommandTest, testing::ValuesIn(commands), RowName());

TEST_F(AddressBookCommandsTest, EveryRefreshReadsTheTree)
{
    for (const char *command : {"cmdRefresh", "mnurefresh", "mnurefresh2", "refreshdata"}) {
        window.clickNode("Group3");
        run(command);
        EXPECT_EQ(window.tree().SelectedItem(), QString()) << command;
        EXPECT_EQ(window.names(), QStringLiteral("Bea Dunn|Ben Cole"));
    }
}

TEST_F(AddressBookCommandsTest, AllRowsAreCheckedAndUnchecked)
{
    window.clickNode("Root");
    window.toggle("Ben Cole");
    window.frame.dialogs.expectBox(QStringLiteral("Items checked..."),
                                   QStringLiteral("All Items in the current list have been selected!"));
    window.choose("mnuselectall");
    EXPECT_EQ(window.checkedNames(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
    window.toggle("Ben Cole");
    window.frame.dialogs.expectBox(QStringLiteral("Items un-checked..."),
                                   QStringLiteral("All Items in the current list have been de-selected!"));
    window.choose("mnudeselectall");
    EXPECT_EQ(window.checkedNames(), QString());
}

TEST_F(AddressBookCommandsTest, TheToolbarsSummaryDoesNothing)
{
    window.clickNode("Root");
    window.choose("prtsummary");
    EXPECT_TRUE(window.frame.dialogs.seen().isEmpty());
}

TEST_F(AddressBookCommandsTest, PageSetupShowsTheDialog)
{
    QtMessages::expect(QStringLiteral("QPageSetupDialog: Cannot be used on non-native printers"));
    window.frame.dialogs.expectWindow<QPageSetupDialog>(
        QStringLiteral("PageSetupDialog"), [](QPageSetupDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Page Setup"));
            dialog.reject(); // which says nothing
        });
    window.choose("mnupagesetup");
}

TEST_F(AddressBookCommandsTest, ACheckIsFoundAnywhereInTheList)
{
    CheckAnySelected(window.list());
    EXPECT_EQ(AnyChecked, 0);
    window.clickNode("Root");
    CheckAnySelected(window.list());
    EXPECT_EQ(AnyChecked, 0);
    window.toggle("Anna Bell");
    CheckAnySelected(window.list());
    EXPECT_EQ(AnyChecked, -1);
    window.toggle("Anna Bell");
    window.toggle("carl Bly");
    CheckAnySelected(window.list());
    EXPECT_EQ(AnyChecked, -1);
}
