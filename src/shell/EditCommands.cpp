#include "EditCommands.h"

#include "ErrorReports.h"
#include "Keystroke.h"
#include "RichTextBox.h"
#include "frmMain.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {

void assignClipboard(const frmMain &frame)
{
    const QString text = QGuiApplication::clipboard()->text();
    RichTextBox &document = frame.activeText();
    if (!document.Locked())
        document.setSelRTF(text.toUtf8());
}

} // namespace

void EditCommands::mnuEditUndo_Click()
{
    Keystroke::sendControl(Qt::Key_Z);
}

void EditCommands::mnuEditCut_Click()
{
    Keystroke::sendControl(Qt::Key_X);
}

void EditCommands::mnuEditCopy_Click()
{
    Keystroke::sendControl(Qt::Key_C);
}

void EditCommands::mnuEditPaste_Click(frmMain &frame)
{
    ignoreErrors([&] { assignClipboard(frame); });
    Keystroke::sendControl(Qt::Key_V);
}

void EditCommands::mnupasteimage_Click()
{
    Keystroke::sendControl(Qt::Key_V);
}
