#pragma once

#include "CommonDialog.h"
#include "Form.h"

class RichTextBox;

/// The hidden window that holds the report being printed and, for all documents of one run, the printer. It
/// is never shown.
class frmPrintDocument : public Form
{
    Q_OBJECT

public:
    frmPrintDocument();

    /// Loads the file \a path into the text. Throws RuntimeError as RichTextBox::LoadFile does.
    void setFileName(const QString &path);

    /// Asks the user for the printer; \a jobName names the job. Throws RuntimeError 32755 when the user
    /// cancels; there is then no printer.
    void choosePrinter(const QString &jobName);

    /// Prints the whole text on the chosen printer. Where that is a PDF file, each document after the first
    /// is a file of its own, numbered from 2, and replaces none. Does nothing without a printer. Throws
    /// RuntimeError as RichTextBox::SelPrint does.
    void print();

protected:
    void Form_Load() override;
    void Form_Resize() override;

private:
    RichTextBox *rtfTextBox;
    CommonDialog dlgCommonDialog3;
    QString m_firstFile;  ///< the PDF file that the user has chosen
    int m_nextNumber = 1; ///< of the document to be printed, among those on the chosen printer
};
