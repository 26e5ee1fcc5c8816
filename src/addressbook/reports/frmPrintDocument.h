#pragma once

#include "CommonDialog.h"
#include "Form.h"

#include <memory>

class PrintJob;
class RichTextBox;

/// The hidden window that holds the report being printed and, for all documents of one run, the printer. It
/// is never shown.
class frmPrintDocument : public Form
{
    Q_OBJECT

public:
    frmPrintDocument();
    ~frmPrintDocument() override;

    /// Loads the file \a path into the text. Throws RuntimeError as RichTextBox::LoadFile does.
    void setFileName(const QString &path);

    /// Asks the user for the printer; \a jobName names the job. Throws RuntimeError 32755 when the user
    /// cancels; there is then no printer.
    void choosePrinter(const QString &jobName);

    /// Prints the whole text on the chosen printer; does nothing without one. Where that is a PDF file, the
    /// documents are its pages, one behind the other, and the file is written by finishPrinting(). Throws
    /// RuntimeError as RichTextBox::SelPrint does.
    void print();

    /// Writes the PDF file with what was printed; does nothing on any other printer. Throws RuntimeError as
    /// PrintJob::finish does.
    void finishPrinting();

protected:
    void Form_Load() override;
    void Form_Resize() override;

private:
    RichTextBox *rtfTextBox;
    CommonDialog dlgCommonDialog3;
    std::unique_ptr<PrintJob> m_file; ///< the PDF file, from its first document until it is finished
};
