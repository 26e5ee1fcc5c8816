#include "frmPrintDocument.h"

#include "ErrorReports.h"
#include "Named.h"
#include "PrintJob.h"
#include "RichTextBox.h"
#include "Twips.h"

#include <utility>

frmPrintDocument::frmPrintDocument()
    : Form(QStringLiteral("frmPrintDocument"))
    , rtfTextBox(named("rtfTextBox", new RichTextBox(this), QStringLiteral("Report")))
    , dlgCommonDialog3(nullptr)
{
    setCaption(QStringLiteral("Printing Document"));
}

frmPrintDocument::~frmPrintDocument() = default;

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
    m_file.reset();
    rtfTextBox->setSelLength(0);
    dlgCommonDialog3.DialogTitle = QStringLiteral("Print");
    dlgCommonDialog3.PrintJobName = jobName;
    dlgCommonDialog3.CancelError = true;
    dlgCommonDialog3.Flags =
        CommonDialog::ReturnDevice | CommonDialog::NoPageNumbers | CommonDialog::NoSelection;
    dlgCommonDialog3.ShowPrinter();
}

void frmPrintDocument::print()
{
    rtfTextBox->setSelLength(0);
    QPrinter *printer = dlgCommonDialog3.hDC();
    if (!printer || printer->outputFormat() != QPrinter::PdfFormat)
        return rtfTextBox->SelPrint(printer);
    if (!m_file)
        m_file = std::make_unique<PrintJob>(*printer);
    rtfTextBox->SelPrint(*m_file);
}

void frmPrintDocument::finishPrinting()
{
    if (const auto file = std::exchange(m_file, nullptr))
        file->finish();
}
