#include "FileCommands.h"

#include "Ask.h"
#include "DocumentFiles.h"
#include "DocumentText.h"
#include "ErrorReports.h"
#include "Forms.h"
#include "Globals.h"
#include "Paths.h"
#include "RichTextBox.h"
#include "frmMain.h"

#include <algorithm>

FileCommands::FileCommands(frmMain &frame)
    : m_frame(frame)
{}

bool FileCommands::refuseOpenFile(const QString &name)
{
    const QList<Form *> &forms = Forms::loaded();
    if (std::none_of(forms.cbegin(), forms.cend(), [&](const Form *form) { return form->Caption() == name; }))
        return false;
    Ask(name + QStringLiteral(" is already open. Cannot load the same file twice!"), MsgBoxStyle::Critical,
        QStringLiteral("File already open..."));
    return true;
}

void FileCommands::mnuFileNew_Click()
{
    m_frame.LoadNewDoc();
    freshDocument = true;
    m_frame.checkForDocument();
}

void FileCommands::mnuFileOpen_Click()
{
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    dialog.DialogTitle = QStringLiteral("Open");
    dialog.FileName.clear();
    dialog.InitDir = Paths::appPath() + QStringLiteral("\\docs\\");
    dialog.CancelError = true;
    dialog.DefaultExt = QStringLiteral("rtf");
    dialog.Filter = QStringLiteral("Rtf Files (*.rtf)|*.rtf|Text Files (*.txt)|*.txt|All Files (*.*)|*.*");
    resumeNext([&] { dialog.ShowOpen(); });
    if (!dialog.FileName.isEmpty())
        open(QString(dialog.FileName));
}

void FileCommands::open(const QString &name)
{
    if (refuseOpenFile(name))
        return;
    resumeNext([&] { m_frame.LoadNewDoc(); });
    Form *document = m_frame.ActiveForm();
    if (!document)
        return;
    resumeNext([&] { DocumentFiles::load(DocumentText::of(*document), name); });
    document->setCaption(name);
    resumeNext([&] { document->call(QStringLiteral("doclengthupdate")); });
    freshDocument = true;
    m_frame.checkForDocument();
}

void FileCommands::mnuFileClose_Click()
{
    if (Form *active = m_frame.ActiveForm())
        active->unload();
}

void FileCommands::SaveCurrentDocument()
{
    Form *active = m_frame.ActiveForm();
    if (!active)
        return;
    const QString caption = active->Caption();
    if (caption.left(8) != QLatin1String("Document")) {
        const bool isRtf = caption.right(3).toUpper() == QLatin1String("RTF");
        DocumentFiles::save(DocumentText::of(*active), caption,
                            isRtf ? RichTextFile::Format::Rtf : RichTextFile::Format::Text);
        active->call(QStringLiteral("unDirty"));
        active->call(QStringLiteral("doclengthupdate"));
        return;
    }
    const int reply = Ask(QStringLiteral("Save as RTF or Text, Yes for RTF, No for Text"),
                          MsgBoxStyle::Question | MsgBoxStyle::YesNo, QStringLiteral("Save as What..."));
    if (reply == MsgBoxReply::No)
        mnuFileSaveAs_Click();
    else
        mnuFileSave_Click();
}

void FileCommands::mnuFileSave_Click()
{
    if (!m_frame.ActiveForm())
        return;
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    dialog.DialogTitle = QStringLiteral("Save As RTF");
    dialog.InitDir.clear();
    dialog.DefaultExt = QStringLiteral("rtf");
    dialog.Filter = QStringLiteral("Rich Text Format (*.rtf)|*.rtf");
    saveAs(RichTextFile::Format::Rtf);
}

void FileCommands::mnuFileSaveAs_Click()
{
    const int reply =
        Ask(QStringLiteral("Saving as Text will remove all formatting, continue?"),
            MsgBoxStyle::Question | MsgBoxStyle::YesNo, QStringLiteral("Confirm Save As Text..."));
    if (reply == MsgBoxReply::No || !m_frame.ActiveForm())
        return;
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    dialog.DialogTitle = QStringLiteral("Save As TXT");
    dialog.InitDir = Paths::appPath() + QStringLiteral("\\docs");
    dialog.DefaultExt = QStringLiteral("txt");
    dialog.Filter = QStringLiteral("Text Files (*.txt;*.bat;*.dat;*.log;*.ini)|*.txt;*.bat;*.dat;*.log;*.ini"
                                   "|Al Files (*.*)|*.*"); // Intended: "Al"
    saveAs(RichTextFile::Format::Text);
}

void FileCommands::saveAs(RichTextFile::Format format)
{
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    dialog.CancelError = true;
    dialog.Flags = CommonDialog::OverwritePrompt | CommonDialog::HideReadOnly;
    dialog.FileName.clear();
    resumeNext([&] { dialog.ShowSave(); });
    Form *active = m_frame.ActiveForm();
    if (dialog.FileName.isEmpty() || !active)
        return;
    active->setCaption(dialog.FileName);
    resumeNext([&] {
        DocumentFiles::save(DocumentText::of(*active), dialog.FileName, format);
        active->call(QStringLiteral("doclengthupdate")); // not reached when the file was not written
    });
}
