#include "PrinterDialog.h"

#include "CommonDialog.h"
#include "DialogPart.h"
#include "PageSetupFields.h"
#include "ShowDialog.h"

#include <QDir>
#include <QFileInfo>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

namespace {

/// Beside the document whose path the job is called by, otherwise in the home folder.
QString fileFor(const QString &jobName)
{
    const QFileInfo document(jobName.isEmpty() ? QStringLiteral("print") : jobName);
    const QString folder = document.isAbsolute() ? document.path() : QDir::homePath();
    return QDir(folder).filePath(document.completeBaseName() + QStringLiteral(".pdf"));
}

/// As far as \a printer has such paper, with margins as large as it needs them.
void setLayout(QPrinter &printer, const QPageLayout &layout)
{
    printer.setPageSize(layout.pageSize());
    printer.setPageOrientation(layout.orientation());
    QPageLayout fitting = printer.pageLayout();
    fitting.setUnits(layout.units());
    printer.setPageMargins(layout.margins() | fitting.minimumMargins(), layout.units());
}

bool showPageSetup(QWidget *owner, const QString &title, QPrinter &printer)
{
    const std::unique_ptr<QPageSetupDialog> shown(new QPageSetupDialog(&printer, owner));
    shown->setObjectName(QStringLiteral("PageSetupDialog"));
    shown->setWindowTitle(title);
    PageSetupFields::show(printer.pageLayout(), *shown);
    if (showDialog(*shown) != QDialog::Accepted)
        return false;
    setLayout(printer, PageSetupFields::layout(*shown));
    return true;
}

/// Qt leaves them where they are whatever its option says.
void hidePageChoice(const QPrintDialog &dialog)
{
    const auto &choices = dialogPart<QWidget>(dialog, "gbPrintRange");
    for (const char *name : {"printRange", "from", "label_3", "to", "pagesRadioButton", "pagesLineEdit"}) {
        if (auto *choice = choices.findChild<QWidget *>(QLatin1String(name)))
            choice->hide();
    }
}

/// The dialog's own "Properties", where the user accepted them.
const QDialog *acceptedProperties(const QPrintDialog &dialog)
{
    const auto *properties = dialog.findChild<QDialog *>();
    return properties && properties->result() == QDialog::Accepted ? properties : nullptr;
}

bool showPrint(QWidget *owner, const QString &title, int flags, QPrinter &printer)
{
    const std::unique_ptr<QPrintDialog> shown(new QPrintDialog(&printer, owner));
    shown->setObjectName(QStringLiteral("PrintDialog"));
    shown->setWindowTitle(title);
    shown->setOption(QAbstractPrintDialog::PrintSelection, !(flags & CommonDialog::NoSelection));
    if (flags & CommonDialog::NoPageNumbers)
        hidePageChoice(*shown);
    const QString nameBefore = printer.printerName();
    const QPageLayout layoutBefore = printer.pageLayout();
    const bool accepted = showDialog(*shown) == QDialog::Accepted;
    const QDialog *properties = accepted ? acceptedProperties(*shown) : nullptr;
    if (!accepted)
        printer.setPrinterName(nameBefore);
    // Qt has put the printer back to its usual paper.
    setLayout(printer, properties ? PageSetupFields::layout(*properties) : layoutBefore);
    return accepted;
}

} // namespace

QPrinter &PrinterDialog::printer()
{
    if (!m_printer) {
        constexpr double usual = 20;
        m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        m_printer->setPageMargins(QMarginsF(usual, usual, usual, usual), QPageLayout::Millimeter);
    }
    return *m_printer;
}

bool PrinterDialog::show(QWidget *owner, const QString &title, int flags, const QString &jobName)
{
    QPrinter &chosen = printer();
    m_isChosen = false;
    if (flags & CommonDialog::PrintSetup)
        return showPageSetup(owner, title, chosen);
    chosen.setDocName(jobName);
    if (chosen.outputFormat() == QPrinter::PdfFormat)
        chosen.setOutputFileName(fileFor(jobName));
    if (!showPrint(owner, title, flags, chosen))
        return false;
    m_isChosen = flags & CommonDialog::ReturnDevice;
    return true;
}
