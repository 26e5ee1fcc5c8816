#include "AddressDatabase.h"
#include "BookWindow.h"
#include "DataError.h"
#include "Files.h"
#include "Paths.h"
#include "PressPrint.h"
#include "PrintQt.h"
#include "modprint.h"

#include <QFile>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

struct AddressBookReportsTest : testing::Test
{
    AddressBookReportsTest() { window.clickNode("Root"); }

    void expectPrint()
    {
        window.frame.dialogs.expectWindow<QPrintDialog>(QStringLiteral("PrintDialog"), [this](auto &dialog) {
            EXPECT_EQ(dialog.windowModality(), Qt::ApplicationModal);
            pressPrint(dialog, file);
        });
    }
    void expectNothingChecked()
    {
        window.frame.dialogs
            .expectBox(QStringLiteral("Nothing to Print..."),
                       QStringLiteral("You have not selected any records to print!"))
            .icon(QMessageBox::Information)
            .buttons(QMessageBox::Ok);
    }
    static QByteArray report(const char *name) { return Files::read(Paths::appPath() + QLatin1String(name)); }

    BookWindow window;
    QString file = window.book.home().file(QStringLiteral("a.pdf"));
};

} // namespace

TEST_F(AddressBookReportsTest, SheetsArePrintedByTheMenuAndTheToolbarsList)
{
    for (const char *command : {"mnuprintselected", "prtselected"}) {
        window.clickNode("Root");
        window.toggle("Ben Cole");
        expectPrint();
        window.choose(command);
        EXPECT_TRUE(QFile::remove(file)) << command;
        EXPECT_TRUE(report("/recordtest.rtf").contains("ADDRESS BOOK DETAILS FOR Ben Cole.\r\n"));
        EXPECT_TRUE(QFile::remove(Paths::appPath() + QStringLiteral("/recordtest.rtf")));
    }
    EXPECT_EQ(window.checkedNames(), QStringLiteral("Ben Cole"));
}

TEST_F(AddressBookReportsTest, TheSummaryIsPrintedByTheMenu)
{
    window.toggle("Anna Bell");
    window.toggle("carl Bly");
    expectPrint();
    window.choose("mnusummary");
    EXPECT_TRUE(QFile::exists(file));
    EXPECT_TRUE(
        report("/recordtestr.rtf")
            .contains("\\par \\b0 Anna Bell                \\tab 2 Castle Hill       \\tab Dover          "
                      "\\tab H:01304 1     \\tab M:07700 2     \\tab W:            \r\n"
                      "\\par carl Bly  "));
}

TEST_F(AddressBookReportsTest, TheDialogIsAboveTheWindowThatTheUserWorksIn)
{
    window.form().window()->activateWindow();
    window.toggle("Anna Bell");
    window.frame.dialogs.expectWindow<QPrintDialog>(QStringLiteral("PrintDialog"), [this](auto &dialog) {
        EXPECT_EQ(dialog.parentWidget(), window.form().window());
        dialog.reject();
    });
    window.choose("mnusummary");
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(AddressBookReportsTest, WithoutACheckedContactABoxSaysSo)
{
    for (const char *command : {"mnuprintselected", "prtselected", "mnusummary"}) {
        expectNothingChecked();
        window.choose(command);
    }
}

TEST_F(AddressBookReportsTest, OverAnEmptyListTheSummaryCanStillBeChosen)
{
    window.clickLetter('Z');
    ASSERT_EQ(window.names(), QString());
    ASSERT_EQ(window.commands(), QStringLiteral("B"));
    expectNothingChecked();
    window.choose("mnusummary");
}

TEST_F(AddressBookReportsTest, OverATableTheReportsAreDisabledAndSilent)
{
    window.clickNode("City");
    EXPECT_FALSE(window.action("mnuprintselected").isEnabled());
    EXPECT_FALSE(window.action("mnusummary").isEnabled());
    PrintSelectedRecords(window.list());
    PrintSummary(window.list());
    EXPECT_TRUE(window.frame.dialogs.seen().isEmpty());
}

TEST_F(AddressBookReportsTest, AContactThatIsGoneEndsTheProcess)
{
    window.toggle("Ben Cole");
    AddressConnection.execute(QStringLiteral("delete from Names where SrNo=3"));
    window.frame.fatal.expect(DataError::NoCurrentRow);
    window.choose("mnuprintselected");
}

TEST_F(AddressBookReportsTest, TheHiddenTestCommandPrintsNothing)
{
    QAction &item = window.action("mnutest");
    EXPECT_FALSE(item.isVisible());
    EXPECT_FALSE(item.isEnabled());
    item.setEnabled(true);
    item.trigger();
    EXPECT_TRUE(window.frame.dialogs.seen().isEmpty());
    EXPECT_FALSE(QFile::exists(Paths::appPath() + QStringLiteral("/recordtest.rtf")));
}
