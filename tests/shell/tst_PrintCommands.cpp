#include "Forms.h"
#include "FrameButtons.h"
#include "FrameCommands.h"
#include "FullDisk.h"
#include "Globals.h"
#include "PressPrint.h"
#include "PrintQt.h"
#include "PrintedPdf.h"
#include "QtMessages.h"
#include "RunningSuite.h"
#include "StandInTool.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

struct PrintCommandsTest : testing::Test
{
    PrintCommandsTest()
    {
        QtMessages::expect(QStringLiteral("QPageSetupDialog: Cannot be used on non-native printers"));
        suite.text().setText(QStringLiteral("one two three"));
    }
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
    }

    void select(int first, int length)
    {
        suite.text().setSelStart(first);
        suite.text().setSelLength(length);
    }
    void expectPrint(std::function<void(QPrintDialog &)> act)
    {
        suite.dialogs.expectWindow<QPrintDialog>(QStringLiteral("PrintDialog"), std::move(act));
    }
    void expectPrintTo(const QString &name)
    {
        expectPrint([name](QPrintDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Print"));
            pressPrint(dialog, name);
        });
    }
    void expectCancelledPrint()
    {
        expectPrint([](QPrintDialog &dialog) { dialog.reject(); });
    }
    void expectPageSetup(std::function<void(QPageSetupDialog &)> act)
    {
        suite.dialogs.expectWindow<QPageSetupDialog>(QStringLiteral("PageSetupDialog"), std::move(act));
    }
    void expectError(int number, const char *description)
    {
        suite.dialogs
            .expectBox(QStringLiteral("System Error!"),
                       QStringLiteral("An error has occurred - Code: %1 Description: %2")
                           .arg(number)
                           .arg(QLatin1String(description)))
            .icon(QMessageBox::Critical);
    }
    void showTool()
    {
        Forms::registerWindow(QStringLiteral("frmTool"), Forms::Instances::One,
                              [] { return new StandInTool(QStringLiteral("frmTool")); });
        Forms::refer(QStringLiteral("frmTool")).showModeless();
        ASSERT_EQ(suite.active().Name(), QStringLiteral("frmTool"));
    }
    CommonDialog &dialog() { return suite.frame().dlgCommonDialog(); }

    RunningSuite suite;
    QString file = suite.home.file(QStringLiteral("out.pdf"));
};

const char noMember[] = "Object doesn't support this property or method";

} // namespace

TEST_F(PrintCommandsTest, AllDocumentDropsTheSelectionAndPrintsEverything)
{
    select(4, 3);
    expectPrintTo(file);
    suite.choose("printall");
    EXPECT_EQ(suite.text().SelLength(), 0);
    EXPECT_EQ(dialog().Flags, 268);
    const PrintedPdf printed(file);
    ASSERT_EQ(printed.pages().size(), 1);
    EXPECT_EQ(printed.pages().first().trimmed(), QStringLiteral("one two three"));
    EXPECT_EQ(printed.title(), QStringLiteral("Document 1"));
}

TEST_F(PrintCommandsTest, SelectedTextPrintsTheSelectionAlone)
{
    select(4, 3);
    expectPrintTo(file);
    suite.choose("printselected");
    EXPECT_EQ(suite.text().SelText(), QStringLiteral("two"));
    EXPECT_EQ(dialog().Flags, 268);
    EXPECT_EQ(PrintedPdf(file).pages().join(u'|').trimmed(), QStringLiteral("two"));
}

TEST_F(PrintCommandsTest, WithoutASelectionABoxSaysSoAndNoDialogComes)
{
    suite.text().setSelStart(2);
    suite.dialogs
        .expectBox(QStringLiteral("No text selected.."), QStringLiteral("You have not selected any text!"))
        .icon(QMessageBox::Information)
        .buttons(QMessageBox::Ok);
    suite.choose("printselected");
    EXPECT_EQ(suite.dialogs.seen().size(), 1);
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
    EXPECT_EQ(dialog().DialogTitle, QStringLiteral("Print"));
    EXPECT_TRUE(dialog().CancelError);
    EXPECT_EQ(dialog().Flags, 264);
}

TEST_F(PrintCommandsTest, ACancelShowsNoBoxAndPrintsNothing)
{
    select(4, 3);
    expectPrintTo(file);
    suite.choose("printselected"); // so that there is a printer that could be printed to
    ASSERT_TRUE(QFile::remove(file));
    for (const char *command : {"printselected", "printall"}) {
        expectCancelledPrint();
        suite.choose(command);
        EXPECT_EQ(dialog().hDC(), nullptr);
        EXPECT_FALSE(QFile::exists(file)) << command;
    }
    EXPECT_EQ(suite.dialogs.seen().size(), 3);
    EXPECT_EQ(suite.text().SelLength(), 0); // dropped all the same
}

TEST_F(PrintCommandsTest, TheToolbarsListRunsThem)
{
    select(0, 3);
    expectCancelledPrint();
    FrameCommands::run(FrameButtons::commandOf(QStringLiteral("prtselection")), suite.frame());
    EXPECT_EQ(suite.text().SelLength(), 3);
    expectCancelledPrint();
    FrameCommands::run(FrameButtons::commandOf(QStringLiteral("prtalldocument")), suite.frame());
    EXPECT_EQ(suite.text().SelLength(), 0);
}

TEST_F(PrintCommandsTest, WithoutAWindowNothingHappens)
{
    suite.text().setText({});
    suite.active().call(QStringLiteral("unDirty"));
    suite.active().call(QStringLiteral("doclengthupdate"));
    suite.choose("mnuFileClose");
    ASSERT_EQ(suite.frame().ActiveForm(), nullptr);
    suite.choose("printall");
    suite.choose("printselected");
    EXPECT_TRUE(suite.dialogs.seen().isEmpty());
}

TEST_F(PrintCommandsTest, AToolWindowHasNoTextToPrint)
{
    showTool();
    for (const char *command : {"printall", "printselected"}) {
        expectError(438, noMember);
        expectPrintTo(file);
        expectError(438, noMember);
        suite.choose(command);
    }
    EXPECT_EQ(dialog().Flags, 268);
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(PrintCommandsTest, ThePrintingIsReachedBehindACancelledDialogToo)
{
    showTool();
    expectError(438, noMember);
    expectCancelledPrint();
    expectError(438, noMember);
    suite.choose("printall");
}

TEST_F(PrintCommandsTest, AFileThatCannotBeWrittenIsReported)
{
    expectPrintTo(file);
    expectError(61, "Disk full");
    const FullDisk full(200);
    suite.choose("printall");
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST_F(PrintCommandsTest, PageSetupNeedsNoWindowAndIsSilentWhenCancelled)
{
    showTool();
    const auto cancel = [](QPageSetupDialog &shown) {
        EXPECT_EQ(shown.windowTitle(), QStringLiteral("Page Setup"));
        shown.reject();
    };
    expectPageSetup(cancel);
    suite.choose("mnuFilePageSetup");
    suite.active().unload();
    suite.active().call(QStringLiteral("unDirty"));
    suite.active().call(QStringLiteral("doclengthupdate"));
    suite.choose("mnuFileClose");
    ASSERT_EQ(suite.frame().ActiveForm(), nullptr);
    expectPageSetup(cancel);
    suite.choose("mnuFilePageSetup");
    EXPECT_EQ(suite.dialogs.seen().size(), 2);
    EXPECT_EQ(dialog().Flags, 64);
    EXPECT_TRUE(dialog().CancelError);
}

TEST_F(PrintCommandsTest, PaperAndMarginsOfPageSetupReachThePaper)
{
    expectPageSetup([](QPageSetupDialog &shown) {
        auto *sizes = shown.findChild<QComboBox *>(QStringLiteral("pageSizeCombo"));
        sizes->setCurrentIndex(sizes->findText(QStringLiteral("A5"), Qt::MatchStartsWith));
        shown.findChild<QDoubleSpinBox *>(QStringLiteral("leftMargin"))->setValue(30); // millimetres
        shown.findChild<QDoubleSpinBox *>(QStringLiteral("topMargin"))->setValue(40);
        shown.accept();
    });
    suite.choose("mnuFilePageSetup");
    expectPrintTo(file);
    suite.choose("printall");
    const PrintedPdf printed(file);
    EXPECT_NEAR(printed.paper().width(), 148 / 25.4 * 72, 1);
    EXPECT_NEAR(printed.paper().height(), 210 / 25.4 * 72, 1);
    EXPECT_NEAR(printed.placeOf(QStringLiteral("one")).left(), 30 / 25.4 * 72, 1);
    EXPECT_NEAR(printed.placeOf(QStringLiteral("one")).top(), 40 / 25.4 * 72, 3);
}
