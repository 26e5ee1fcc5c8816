#include "PrintCommands.h"

#include "Ask.h"
#include "DocumentText.h"
#include "ErrorReports.h"
#include "Form.h"
#include "RichTextBox.h"
#include "frmMain.h"

namespace {

constexpr int jobFlags = CommonDialog::ReturnDevice | CommonDialog::NoPageNumbers;

} // namespace

PrintCommands::PrintCommands(frmMain &frame)
    : m_frame(frame)
{}

void PrintCommands::prepareDialog(int flags)
{
    const Form *active = m_frame.ActiveForm(); // may have been closed while an error box was up
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    dialog.DialogTitle = QStringLiteral("Print");
    dialog.PrintJobName = active ? active->Caption() : QString();
    dialog.CancelError = true;
    dialog.Flags = flags;
}

void PrintCommands::print()
{
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    resumeNext([&] { dialog.ShowPrinter(); });
    resumeNext([&] { DocumentText::ofActiveForm().SelPrint(dialog.hDC()); });
}

void PrintCommands::printall_Click()
{
    if (!m_frame.ActiveForm())
        return;
    resumeNext([&] { DocumentText::ofActiveForm().setSelLength(0); });
    prepareDialog(jobFlags | CommonDialog::NoSelection);
    print();
}

void PrintCommands::printselected_Click()
{
    if (!m_frame.ActiveForm())
        return;
    prepareDialog(jobFlags);
    bool isEmpty = false;
    resumeNext([&] { isEmpty = DocumentText::ofActiveForm().SelLength() == 0; });
    if (isEmpty) {
        reportNoSelection();
        return;
    }
    m_frame.dlgCommonDialog().Flags |= CommonDialog::NoSelection;
    print();
}

void PrintCommands::reportNoSelection()
{
    Ask(QStringLiteral("You have not selected any text!"), MsgBoxStyle::Information,
        QStringLiteral("No text selected.."));
}

void PrintCommands::mnuFilePageSetup_Click()
{
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    dialog.DialogTitle = QStringLiteral("Page Setup");
    dialog.Flags = CommonDialog::PrintSetup;
    dialog.CancelError = true;
    resumeNext([&] { dialog.ShowPrinter(); });
}
