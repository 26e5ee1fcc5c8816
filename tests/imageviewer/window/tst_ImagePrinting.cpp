#include "FullDisk.h"
#include "ImageWindow.h"
#include "PressPrint.h"
#include "PrintQt.h"
#include "PrintedPdf.h"

namespace {

struct ImagePrintingTest : testing::Test
{
    ImageWindow window;

    ImagePrintingTest() { window.open(); }

    /// Prints to the file "printed.pdf".
    void print()
    {
        window.frame.dialogs.expectWindow<QPrintDialog>(
            QStringLiteral("PrintDialog"),
            [this](QPrintDialog &dialog) { pressPrint(dialog, window.path("printed.pdf")); });
        window.choose("mnuFilePrint");
    }
    PrintedPdf printed() { return PrintedPdf(window.path("printed.pdf")); }
};

} // namespace

TEST_F(ImagePrintingTest, PrintsThePictureAtItsOwnSizeInTheCorner)
{
    window.openPicture(96, 192); // one by two inches
    window.choose("mnuSizeZoomIn");
    print();
    const QImage page = printed().picture(1);
    constexpr int inch = 72 * 4; // dots of the page's picture
    EXPECT_EQ(page.pixelColor(2, 2), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(inch - 3, 2 * inch - 3), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(inch + 2, inch), QColor(Qt::white));
    EXPECT_EQ(page.pixelColor(2, 2 * inch + 2), QColor(Qt::white));
    EXPECT_EQ(printed().pages().size(), 1);
    EXPECT_EQ(window.form().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ImagePrintingTest, APictureLargerThanThePageIsCutOff)
{
    window.openPicture(3000, 20);
    print();
    const QImage page = printed().picture(1);
    EXPECT_EQ(page.pixelColor(page.width() - 1, 10), QColor(Qt::red));
    EXPECT_EQ(printed().pages().size(), 1);
}

TEST_F(ImagePrintingTest, ThePrinterHasItsMarginsAgain)
{
    window.openPicture(96, 96);
    print();
    const QPrinter &printer = *window.form().FileDialog().hDC();
    EXPECT_NEAR(printer.pageLayout().margins(QPageLayout::Millimeter).left(), 20, 0.1);
}

TEST_F(ImagePrintingTest, AFileIsOfferedBesideThePicture)
{
    window.openPicture(96, 96);
    window.frame.dialogs.expectWindow<QPrintDialog>(
        QStringLiteral("PrintDialog"), [this](QPrintDialog &dialog) {
            EXPECT_EQ(dialog.printer()->outputFileName(), window.path("picture.pdf"));
            dialog.reject();
        });
    window.choose("mnuFilePrint");
}

TEST_F(ImagePrintingTest, ACancelIsSilent)
{
    window.frame.dialogs.expectWindow<QPrintDialog>(QStringLiteral("PrintDialog"),
                                                    [](QPrintDialog &dialog) { dialog.reject(); });
    window.choose("mnuFilePrint");
    EXPECT_EQ(window.form().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ImagePrintingTest, WithoutAPictureThereIsNothingToPrint)
{
    window.picture().setPicture({});
    window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("No picture loaded"))
        .icon(QMessageBox::Warning);
    window.choose("mnuFilePrint");
}

TEST_F(ImagePrintingTest, AFailureIsReportedAndTheHourglassStays)
{
    window.openPicture(96, 96);
    window.frame.dialogs.expectWindow<QPrintDialog>(
        QStringLiteral("PrintDialog"),
        [this](QPrintDialog &dialog) { pressPrint(dialog, window.path("printed.pdf")); });
    window.frame.dialogs.expectBox(
        QStringLiteral("Disk Full Error"),
        QStringLiteral("The disk is full. Try deleting some files before saving."));
    {
        const FullDisk full(200);
        window.choose("mnuFilePrint");
    }
    EXPECT_EQ(window.form().cursor().shape(), Qt::WaitCursor);
    EXPECT_FALSE(QFileInfo::exists(window.path("printed.pdf")));
}
