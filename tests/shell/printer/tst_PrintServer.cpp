#include "PressPrint.h"
#include "PrintQt.h"
#include "PrintServer.h"
#include "PrintedPdf.h"
#include "RunningSuite.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QRadioButton>
#include <QSpinBox>
#include <gtest/gtest.h>

namespace {

/// The suite prints to real queues. Everything is one server's, as a process keeps to the first that it
/// knows.
class PrinterTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        if (!PrintServer::missing())
            server = std::make_unique<PrintServer>();
    }
    static void TearDownTestSuite() { server.reset(); }
    void SetUp() override
    {
        if (const char *what = PrintServer::missing())
            GTEST_SKIP() << what;
        suite.text().setText(QStringLiteral("one two three"));
        m_before = server->jobs();
    }

    void expectPrint(std::function<void(QPrintDialog &)> act)
    {
        suite.dialogs.expectWindow<QPrintDialog>(QStringLiteral("PrintDialog"), std::move(act));
    }
    static QComboBox &printers(const QPrintDialog &dialog)
    {
        return *dialog.findChild<QComboBox *>(QStringLiteral("printers"));
    }
    static void choosePrinter(const QPrintDialog &dialog, const char *name)
    {
        QComboBox &box = printers(dialog);
        box.setCurrentIndex(box.findText(QLatin1String(name)));
        Q_EMIT box.activated(box.currentIndex());
    }
    void expectPageSetup(std::function<void(QPageSetupDialog &)> act)
    {
        suite.dialogs.expectWindow<QPageSetupDialog>(QStringLiteral("PageSetupDialog"), std::move(act));
        suite.choose("mnuFilePageSetup");
    }
    /// Across, with margins of 33 millimetres and of less than the printer can.
    void choosePaper(const char *name)
    {
        expectPageSetup([name](QPageSetupDialog &shown) {
            auto *sizes = shown.findChild<QComboBox *>(QStringLiteral("pageSizeCombo"));
            sizes->setCurrentIndex(sizes->findText(QLatin1String(name), Qt::MatchStartsWith));
            shown.findChild<QRadioButton *>(QStringLiteral("landscape"))->click();
            shown.findChild<QDoubleSpinBox *>(QStringLiteral("leftMargin"))->setValue(33);
            shown.findChild<QDoubleSpinBox *>(QStringLiteral("rightMargin"))->setValue(0);
            shown.accept();
        });
    }
    void expectPaper(double width, double height) const
    {
        EXPECT_NEAR(lastDocument().paper().width(), width, 1);
        EXPECT_NEAR(lastDocument().paper().height(), height, 1);
        EXPECT_NEAR(lastDocument().placeOf(QStringLiteral("one")).left(), 33 / 25.4 * 72, 1);
    }
    int newJobs() const { return server->jobs() - m_before; }
    PrintedPdf lastDocument() const { return PrintedPdf(server->document(server->jobs())); }
    QByteArray lastTicket() const { return server->ticket(server->jobs()); }

    static std::unique_ptr<PrintServer> server;
    RunningSuite suite;

private:
    int m_before = 0;
};

std::unique_ptr<PrintServer> PrinterTest::server;

} // namespace

TEST_F(PrinterTest, AJobReachesTheQueueUnderTheWindowsName)
{
    expectPrint([](QPrintDialog &dialog) {
        EXPECT_EQ(printers(dialog).currentText(), QStringLiteral("Study"));
        pressPrint(dialog);
    });
    suite.choose("printall");
    ASSERT_EQ(newJobs(), 1);
    EXPECT_EQ(lastDocument().pages().join(u'|').trimmed(), QStringLiteral("one two three"));
    EXPECT_TRUE(lastTicket().contains("Document 1"));
    EXPECT_TRUE(lastTicket().contains("/printers/Study"));
}

TEST_F(PrinterTest, NoPagesCanBeChosen)
{
    expectPrint([](QPrintDialog &dialog) {
        for (const char *name : {"printRange", "pagesRadioButton", "printSelection", "printCurrentPage"}) {
            const auto *choice = dialog.findChild<QRadioButton *>(QLatin1String(name));
            EXPECT_TRUE(!choice || choice->isHidden() || !choice->isEnabled()) << name;
        }
        dialog.reject();
    });
    suite.choose("printall");
    EXPECT_EQ(newJobs(), 0);
}

TEST_F(PrinterTest, ACancelledDialogIsNeverPrintedTo)
{
    expectPrint([](QPrintDialog &dialog) { pressPrint(dialog); });
    suite.choose("printall");
    expectPrint([](QPrintDialog &dialog) {
        choosePrinter(dialog, "Attic");
        dialog.reject();
    });
    suite.choose("printall");
    EXPECT_EQ(newJobs(), 1);
    expectPrint([](QPrintDialog &dialog) {
        EXPECT_EQ(printers(dialog).currentText(), QStringLiteral("Study")); // as before
        dialog.reject();
    });
    suite.choose("printall");
    EXPECT_EQ(newJobs(), 1);
}

TEST_F(PrinterTest, TheServerMakesTheCopies)
{
    expectPrint([](QPrintDialog &dialog) {
        dialog.findChild<QSpinBox *>(QStringLiteral("copies"))->setValue(3);
        pressPrint(dialog);
    });
    suite.choose("printall");
    ASSERT_EQ(newJobs(), 1);
    EXPECT_EQ(lastDocument().pages().size(), 1);
    const char inTicket[] = "copies\0\4\0\0\0\3"; // a number of four bytes
    EXPECT_TRUE(lastTicket().contains(QByteArray(inTicket, sizeof inTicket - 1)));
}

TEST_F(PrinterTest, ThePrinterAndItsPaperStayForTheNextJob)
{
    expectPrint([](QPrintDialog &dialog) {
        choosePrinter(dialog, "Attic");
        dialog.findChild<QSpinBox *>(QStringLiteral("copies"))->setValue(3);
        pressPrint(dialog);
    });
    suite.choose("printall");
    EXPECT_TRUE(lastTicket().contains("/printers/Attic"));
    choosePaper("A5");
    expectPrint([](QPrintDialog &dialog) {
        EXPECT_EQ(printers(dialog).currentText(), QStringLiteral("Attic"));
        pressPrint(dialog);
    });
    suite.choose("printall");
    ASSERT_EQ(newJobs(), 2);
    expectPaper(595, 420); // landscape
    EXPECT_TRUE(lastTicket().contains("/printers/Attic"));
}

TEST_F(PrinterTest, PageSetupShowsWhatItChoseBefore)
{
    choosePaper("A5");
    expectPageSetup([](QPageSetupDialog &shown) {
        EXPECT_TRUE(shown.findChild<QComboBox *>(QStringLiteral("pageSizeCombo"))
                        ->currentText()
                        .startsWith(QStringLiteral("A5")));
        EXPECT_TRUE(shown.findChild<QRadioButton *>(QStringLiteral("landscape"))->isChecked());
        EXPECT_NEAR(shown.findChild<QDoubleSpinBox *>(QStringLiteral("leftMargin"))->value(), 33, 0.1);
        EXPECT_NEAR(shown.findChild<QDoubleSpinBox *>(QStringLiteral("rightMargin"))->value(),
                    17.53 / 72 * 25.4, 0.1); // the least that the printer can
        shown.reject();
    });
}

TEST_F(PrinterTest, ThePrintDialogsPropertiesChooseThePaperToo)
{
    for (const bool accepts : {false, true}) {
        expectPrint([](QPrintDialog &dialog) {
            dialog.findChild<QPushButton *>(QStringLiteral("properties"))->click();
            pressPrint(dialog);
        });
        suite.dialogs.expectWindow<QDialog>({}, [=](QDialog &properties) {
            auto *sizes = properties.findChild<QComboBox *>(QStringLiteral("pageSizeCombo"));
            sizes->setCurrentIndex(sizes->findText(QStringLiteral("A5"), Qt::MatchStartsWith));
            accepts ? properties.accept() : properties.reject();
        });
        suite.choose("printall");
        EXPECT_NEAR(lastDocument().paper().width(), accepts ? 420 : 595, 1);
    }
    EXPECT_EQ(newJobs(), 2);
}

TEST_F(PrinterTest, ACancelLeavesThePaper)
{
    choosePaper("A5");
    expectPrint([](QPrintDialog &dialog) {
        choosePrinter(dialog, "Attic");
        dialog.reject();
    });
    suite.choose("printall");
    expectPrint([](QPrintDialog &dialog) { pressPrint(dialog); });
    suite.choose("printall");
    ASSERT_EQ(newJobs(), 1);
    expectPaper(595, 420);
    EXPECT_TRUE(lastTicket().contains("/printers/Study"));
}

TEST_F(PrinterTest, AServerThatIsGoneIsReported)
{
    expectPrint([](QPrintDialog &dialog) {
        server->stop();
        pressPrint(dialog);
    });
    suite.dialogs
        .expectBox(QStringLiteral("System Error!"),
                   QStringLiteral("An error has occurred - Code: 482 Description: Printer error"))
        .icon(QMessageBox::Critical);
    suite.choose("printall");
    server = std::make_unique<PrintServer>();
}
