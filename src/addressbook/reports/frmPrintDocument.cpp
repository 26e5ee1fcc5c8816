#include "frmPrintDocument.h"

#include "ErrorReports.h"
#include "Named.h"
#include "NumberedFile.h"
#include "RichTextBox.h"
#include "Twips.h"

frmPrintDocument::frmPrintDocument()
    : Form(QStringLiteral("frmPrintDocument"))
    , rtfTextBox(named("rtfTextBox", new RichTextBox(this), QStringLiteral("Report")))
    , dlgCommonDialog3(nullptr)
{
    setCaption(QStringLiteral("Printing Document"));
}

void frmPrintDocument::Form_Load()
{
    Form_Resize();
}

void frmPrintDocument::Form_Resize()
{
    constexpr double gap = 100; // twips
    const double width = ScaleWidth() - 2 * gap;
    const int left = Twips::toPixels(gap, logicalDpiX());
    const int top = Twips::toPixels(gap, logicalDpiY());
    rtfTextBox->setGeometry(left, top, Twips::toPixels(width, logicalDpiX()),
                            Twips::toPixels(ScaleHeight() - 2 * gap, logicalDpiY()));
    ignoreErrors([&] { rtfTextBox->setRightMargin(int(width - 4 * gap)); });
}

void frmPrintDocument::setFileName(const QString &path)
{
    rtfTextBox->LoadFile(path);
}

void frmPrintDocument::choosePrinter(const QString &jobName)
{
    rtfTextBox->setSelLength(0);
    dlgCommonDialog3.DialogTitle = QStringLiteral("Print");
    dlgCommonDialog3.PrintJobName = jobName;
    dlgCommonDialog3.CancelError = true;
    dlgCommonDialog3.Flags =
        CommonDialog::ReturnDevice | CommonDialog::NoPageNumbers | CommonDialog::NoSelection;
    dlgCommonDialog3.ShowPrinter();
    m_nextNumber = 1;
}

void frmPrintDocument::print()
{
    rtfTextBox->setSelLength(0);
    QPrinter *printer = dlgCommonDialog3.hDC();
    if (printer && printer->outputFormat() == QPrinter::PdfFormat) {
        if (m_nextNumber == 1)
            m_firstFile = printer->outputFileName();
        else
            printer->setOutputFileName(NumberedFile::next(m_firstFile, m_nextNumber));
        ++m_nextNumber;
    }
    rtfTextBox->SelPrint(printer);
}
