#pragma once

#include <memory>

#include <QPrinter>
class QString;
class QWidget;

/// The printer of a common-dialog control and the two dialogs that choose it. What either of them chose stays
/// for the control's life; the printer is looked for when it is first needed. It prints nothing: PrintJob
/// does.
class PrinterDialog
{
public:
    /// Shows the dialog that \a flags (bitwise OR of CommonDialog::Flag) ask for and returns false when it
    /// was cancelled, which leaves the printer as it was. \a jobName names the job, and the file where there
    /// is no printer but a PDF file.
    bool show(QWidget *owner, const QString &title, int flags, const QString &jobName);

    /// The printer, where the dialog shown last was to give it and was accepted; otherwise nullptr.
    QPrinter *device() const { return m_isChosen ? m_printer.get() : nullptr; }

private:
    QPrinter &printer();

    std::unique_ptr<QPrinter> m_printer; ///< none before the first use
    bool m_isChosen = false;
};
