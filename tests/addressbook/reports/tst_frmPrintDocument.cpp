#include "DataError.h"
#include "ErrorNumberOf.h"
#include "Forms.h"
#include "PressPrint.h"
#include "PrintQt.h"
#include "PrintedPdf.h"
#include "ReportBook.h"
#include "RichTextBox.h"
#include "Twips.h"
#include "frmPrintDocument.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

struct FrmPrintDocumentTest : testing::Test
{
    FrmPrintDocumentTest() { form.load(); }
    void SetUp() override
    {
        if (!ReportBook::canReadPages())
            GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
    }

    void loadText(const char *text)
    {
        const QString path = reports.book.home().file(QStringLiteral("report.rtf"));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("{\\rtf1 ") + text + '}');
        file.close();
        form.setFileName(path);
    }
    RichTextBox &text() { return form.member<RichTextBox>(QStringLiteral("rtfTextBox")); }
    void choose(const char *file)
    {
        reports.expectPrint(file);
        form.choosePrinter(QStringLiteral("Job"));
    }
    void print()
    {
        form.print();
        form.finishPrinting();
    }

    ReportBook reports;
    frmPrintDocument &form = Forms::refer<frmPrintDocument>();
};

} // namespace

TEST_F(FrmPrintDocumentTest, TheTextFillsTheWindowButForItsMargins)
{
    EXPECT_EQ(form.Caption(), QStringLiteral("Printing Document"));
    EXPECT_FALSE(form.isVisible());
    const auto expectPlace = [this] {
        const double dpi = form.logicalDpiX();
        EXPECT_EQ(text().pos(), QPoint(Twips::toPixels(100, dpi), Twips::toPixels(100, dpi)));
        EXPECT_EQ(text().width(), Twips::toPixels(form.ScaleWidth() - 200, dpi));
        EXPECT_EQ(text().height(), Twips::toPixels(form.ScaleHeight() - 200, dpi));
        EXPECT_EQ(text().RightMargin(), int(form.ScaleWidth() - 200 - 400));
    };
    expectPlace();
    form.setWidth(6000);
    form.setHeight(4500);
    form.showModeless();
    expectPlace();
    EXPECT_EQ(text().RightMargin(), 5400);
}

TEST_F(FrmPrintDocumentTest, AWindowThatIsTooNarrowKeepsTheRightMargin)
{
    form.showModeless();
    form.setWidth(6000);
    const int margin = text().RightMargin();
    form.setWidth(450);
    EXPECT_EQ(text().RightMargin(), margin);
}

TEST_F(FrmPrintDocumentTest, TheDialogHasNoSelectionAndNamesTheJob)
{
    loadText("one");
    reports.expectPrintDialog([&](QPrintDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Print"));
        EXPECT_FALSE(dialog.testOption(QAbstractPrintDialog::PrintSelection));
        EXPECT_EQ(dialog.findChild<QLineEdit *>(QStringLiteral("filename"))->text(),
                  reports.book.home().file(QStringLiteral("Address Book Details.pdf")));
        pressPrint(dialog, reports.book.home().file(QStringLiteral("a.pdf")));
    });
    form.choosePrinter(QStringLiteral("Address Book Details"));
    print();
    EXPECT_EQ(PrintedPdf(reports.book.home().file(QStringLiteral("a.pdf"))).title(),
              QStringLiteral("Address Book Details"));
}

TEST_F(FrmPrintDocumentTest, PrintsEverythingWhateverIsSelected)
{
    loadText("one two");
    choose("a.pdf");
    text().setSelStart(0);
    text().setSelLength(3);
    print();
    EXPECT_EQ(reports.printed("a.pdf"), QStringLiteral("one two"));
    EXPECT_EQ(text().SelLength(), 0);
}

TEST_F(FrmPrintDocumentTest, LaterDocumentsArePagesOfTheSameFile)
{
    choose("a.pdf");
    for (const char *words : {"one", "two", "three"}) {
        loadText(words);
        form.print();
        EXPECT_EQ(reports.printedFiles(), QString());
    }
    form.finishPrinting();
    form.finishPrinting(); // there is nothing more to write
    EXPECT_EQ(reports.printedFiles(), QStringLiteral("a.pdf"));
    EXPECT_EQ(reports.printedPages().join(u'|').remove(u'\n'), QStringLiteral("one|two|three"));
}

TEST_F(FrmPrintDocumentTest, WhatIsNotFinishedLeavesNoFile)
{
    loadText("one");
    choose("a.pdf");
    form.print();
    choose("b.pdf");
    print();
    EXPECT_EQ(reports.printedFiles(), QStringLiteral("b.pdf"));
    EXPECT_EQ(reports.printed("b.pdf"), QStringLiteral("one"));
    choose("c.pdf");
    form.print();
    form.unload();
    EXPECT_EQ(reports.printedFiles(), QStringLiteral("b.pdf"));
}

TEST_F(FrmPrintDocumentTest, WithoutAPrinterNothingIsPrinted)
{
    loadText("one");
    print();
    choose("a.pdf");
    reports.expectCancel();
    EXPECT_EQ(errorNumberOf([&] { form.choosePrinter(QStringLiteral("Job")); }),
              ErrorNumber::DialogCancelled);
    print();
    EXPECT_EQ(reports.printedFiles(), QString());
}

TEST_F(FrmPrintDocumentTest, CountsAsADocumentWhileItIsLoaded)
{
    EXPECT_TRUE(form.hasMember(QStringLiteral("rtfTextBox")));
    EXPECT_EQ(Forms::named(QStringLiteral("frmPrintDocument")).size(), 1);
    form.unload();
    EXPECT_EQ(Forms::named(QStringLiteral("frmPrintDocument")).size(), 0);
}
