#include "CommonDialog.h"
#include "DialogDriver.h"
#include "ErrorNumberOf.h"
#include "Files.h"
#include "PressPrint.h"
#include "PrintQt.h"
#include "QtMessages.h"
#include "ScratchHome.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QRadioButton>
#include <QSpinBox>
#include <gtest/gtest.h>

namespace {

constexpr int printFlags = CommonDialog::ReturnDevice | CommonDialog::NoPageNumbers;

/// There is no printer: so the dialogs offer a PDF file.
struct PrinterDialogTest : testing::Test
{
    PrinterDialogTest()
    {
        QtMessages::expect(QStringLiteral("QPageSetupDialog: Cannot be used on non-native printers"));
        dialog.DialogTitle = QStringLiteral("Print");
        dialog.CancelError = true;
        dialog.Flags = printFlags | CommonDialog::NoSelection;
        dialog.PrintJobName = QStringLiteral("Document 1");
    }
    void expectPrint(std::function<void(QPrintDialog &)> act)
    {
        dialogs.expectWindow<QPrintDialog>(QStringLiteral("PrintDialog"), std::move(act));
    }
    void accept()
    {
        expectPrint([](QPrintDialog &shown) { pressPrint(shown); });
        dialog.ShowPrinter();
    }
    int cancel()
    {
        expectPrint([](QPrintDialog &shown) { shown.reject(); });
        return errorNumberOf([&] { dialog.ShowPrinter(); });
    }
    static QString fileIn(const QPrintDialog &shown)
    {
        return shown.findChild<QLineEdit *>(QStringLiteral("filename"))->text();
    }

    ScratchHome home;
    DialogDriver dialogs;
    CommonDialog dialog{nullptr};
};

bool offers(const QPrintDialog &shown, const char *choice)
{
    const auto *button = shown.findChild<QRadioButton *>(QString::fromLatin1(choice));
    return button && !button->isHidden() && button->isEnabled();
}

} // namespace

TEST_F(PrinterDialogTest, TheFlagsSayWhatIsOffered)
{
    EXPECT_EQ(dialog.Flags, 268);
    expectPrint([](QPrintDialog &shown) {
        EXPECT_EQ(shown.windowTitle(), QStringLiteral("Print"));
        EXPECT_FALSE(offers(shown, "printSelection"));
        EXPECT_FALSE(offers(shown, "printRange"));
        pressPrint(shown);
    });
    dialog.ShowPrinter();
    dialog.Flags = printFlags;
    EXPECT_EQ(dialog.Flags, 264);
    expectPrint([](QPrintDialog &shown) {
        EXPECT_TRUE(offers(shown, "printSelection"));
        EXPECT_FALSE(offers(shown, "printRange"));
        shown.reject();
    });
    EXPECT_EQ(errorNumberOf([&] { dialog.ShowPrinter(); }), ErrorNumber::DialogCancelled);
    dialog.Flags = 0;
    expectPrint([](QPrintDialog &shown) {
        EXPECT_TRUE(offers(shown, "printRange"));
        shown.reject();
    });
    EXPECT_EQ(errorNumberOf([&] { dialog.ShowPrinter(); }), ErrorNumber::DialogCancelled);
}

TEST_F(PrinterDialogTest, OnlyAnAcceptedDialogGivesADevice)
{
    EXPECT_EQ(dialog.hDC(), nullptr);
    EXPECT_EQ(cancel(), ErrorNumber::DialogCancelled);
    EXPECT_EQ(dialog.hDC(), nullptr);
    accept();
    EXPECT_NE(dialog.hDC(), nullptr);
    EXPECT_EQ(cancel(), ErrorNumber::DialogCancelled);
    EXPECT_EQ(dialog.hDC(), nullptr);
    dialog.Flags = CommonDialog::NoPageNumbers;
    accept();
    EXPECT_EQ(dialog.hDC(), nullptr); // which was not asked for
}

TEST_F(PrinterDialogTest, ThePaperHasMarginsOfTwoCentimetres)
{
    accept();
    ASSERT_NE(dialog.hDC(), nullptr);
    const QMarginsF margins = dialog.hDC()->pageLayout().margins(QPageLayout::Millimeter);
    EXPECT_NEAR(margins.left(), 20, 0.1);
    EXPECT_NEAR(margins.top(), 20, 0.1);
    EXPECT_NEAR(margins.right(), 20, 0.1);
    EXPECT_NEAR(margins.bottom(), 20, 0.1);
}

TEST_F(PrinterDialogTest, ACancelIsSilentWhereNoErrorIsAskedFor)
{
    dialog.CancelError = false;
    EXPECT_EQ(cancel(), 0);
    EXPECT_EQ(dialog.hDC(), nullptr);
}

TEST_F(PrinterDialogTest, WithoutAPrinterAFileNamedAfterTheJobIsOffered)
{
    const QString chosen = home.file(QStringLiteral("chosen.pdf"));
    expectPrint([&](QPrintDialog &shown) {
        EXPECT_EQ(fileIn(shown), home.file(QStringLiteral("Document 1.pdf")));
        pressPrint(shown, chosen);
    });
    dialog.ShowPrinter();
    ASSERT_NE(dialog.hDC(), nullptr);
    EXPECT_EQ(dialog.hDC()->outputFileName(), chosen);
    EXPECT_EQ(dialog.hDC()->docName(), QStringLiteral("Document 1"));

    dialog.PrintJobName = QStringLiteral("/a b/My letter.v2.rtf");
    expectPrint([](QPrintDialog &shown) {
        EXPECT_EQ(fileIn(shown), QStringLiteral("/a b/My letter.v2.pdf"));
        shown.reject();
    });
    EXPECT_EQ(errorNumberOf([&] { dialog.ShowPrinter(); }), ErrorNumber::DialogCancelled);

    dialog.PrintJobName.clear();
    expectPrint([&](QPrintDialog &shown) {
        EXPECT_EQ(fileIn(shown), home.file(QStringLiteral("print.pdf")));
        shown.reject();
    });
    EXPECT_EQ(errorNumberOf([&] { dialog.ShowPrinter(); }), ErrorNumber::DialogCancelled);
}

TEST_F(PrinterDialogTest, CopiesInAFileCanBeChosen)
{
    for (const bool collated : {true, false}) {
        expectPrint([=](QPrintDialog &shown) {
            auto *copies = shown.findChild<QSpinBox *>(QStringLiteral("copies"));
            EXPECT_TRUE(copies->isEnabled());
            copies->setValue(2);
            auto *collate = shown.findChild<QCheckBox *>(QStringLiteral("collate"));
            EXPECT_TRUE(collate->isEnabled());
            collate->setChecked(collated);
            pressPrint(shown);
        });
        dialog.ShowPrinter();
        ASSERT_NE(dialog.hDC(), nullptr);
        EXPECT_EQ(dialog.hDC()->copyCount(), 2);
        EXPECT_EQ(dialog.hDC()->collateCopies(), collated);
    }
}

TEST_F(PrinterDialogTest, AFileThatExistsIsAskedFor)
{
    Files::write(home.file(QStringLiteral("Document 1.pdf")), "old");
    expectPrint([](QPrintDialog &shown) { pressPrint(shown); });
    dialogs.expectWindow<QMessageBox>({}, [&](QMessageBox &box) {
        EXPECT_TRUE(box.text().contains(home.file(QStringLiteral("Document 1.pdf"))))
            << qPrintable(box.text());
        box.button(QMessageBox::No)->click();
    });
    expectPrint([](QPrintDialog &shown) { shown.reject(); });
    EXPECT_EQ(errorNumberOf([&] { dialog.ShowPrinter(); }), ErrorNumber::DialogCancelled);
}

TEST_F(PrinterDialogTest, WhatPageSetupChoseHoldsForTheNextJobs)
{
    dialog.DialogTitle = QStringLiteral("Page Setup");
    dialog.Flags = CommonDialog::PrintSetup;
    EXPECT_EQ(dialog.Flags, 64);
    dialogs.expectWindow<QPageSetupDialog>(QStringLiteral("PageSetupDialog"), [](QPageSetupDialog &shown) {
        EXPECT_EQ(shown.windowTitle(), QStringLiteral("Page Setup"));
        auto *sizes = shown.findChild<QComboBox *>(QStringLiteral("pageSizeCombo"));
        sizes->setCurrentIndex(sizes->findText(QStringLiteral("A5"), Qt::MatchStartsWith));
        shown.findChild<QRadioButton *>(QStringLiteral("landscape"))->click();
        shown.accept();
    });
    dialog.ShowPrinter();
    EXPECT_EQ(dialog.hDC(), nullptr); // it is no job

    dialog.Flags = printFlags;
    for (int job = 0; job < 2; ++job) {
        accept();
        ASSERT_NE(dialog.hDC(), nullptr);
        EXPECT_EQ(dialog.hDC()->pageLayout().pageSize().id(), QPageSize::A5);
        EXPECT_EQ(dialog.hDC()->pageLayout().orientation(), QPageLayout::Landscape);
    }
}

TEST_F(PrinterDialogTest, ACancelledPageSetupChangesNothing)
{
    dialog.Flags = CommonDialog::PrintSetup;
    dialogs.expectWindow<QPageSetupDialog>(QStringLiteral("PageSetupDialog"), [](QPageSetupDialog &shown) {
        shown.findChild<QRadioButton *>(QStringLiteral("landscape"))->click();
        shown.reject();
    });
    EXPECT_EQ(errorNumberOf([&] { dialog.ShowPrinter(); }), ErrorNumber::DialogCancelled);
    dialog.Flags = printFlags;
    accept();
    ASSERT_NE(dialog.hDC(), nullptr);
    EXPECT_EQ(dialog.hDC()->pageLayout().orientation(), QPageLayout::Portrait);
}
