#include "frmFileOperations.h"

#include "Ask.h"
#include "AttributeWords.h"
#include "CommonDialog.h"
#include "ErrorReports.h"
#include "FileAttributes.h"
#include "FileDetails.h"
#include "FileOperations.h"
#include "GetFileSize.h"
#include "ReportFileError.h"
#include "ShownText.h"

#include <QCheckBox>
#include <QLocale>
#include <QPushButton>

void frmFileOperations::Form_Load()
{
    reportingFileErrors([&] {
        m_viewerFile = m_viewerDialog.FileName;
        m_currentFile = m_viewerFile;
        if (!m_currentFile.isEmpty()) {
            GetFileInfo();
        } else {
            lblName->setText(QStringLiteral("No File Loaded!"));
            ToggleEnabled(false);
        }
    });
}

// ---- The file on show

void frmFileOperations::GetFileInfo()
{
    lblName->setText(ShownText::line(m_currentFile));
    GetFileAttributes();
    GetTextAttributes();
    lblModified->setText(QLocale().toString(FileDetails::of(m_currentFile).modified, QLocale::ShortFormat));
    lblSize->setText(GetFileSize(m_currentFile));
}

/// Intended: boxes are only set here, and keep what the file before had.
void frmFileOperations::GetFileAttributes()
{
    if (m_currentFile.isEmpty())
        return;
    const int bits = FileAttributes::of(m_currentFile);
    for (const auto &[box, bit] : boxes()) {
        if (bits & bit)
            box->setChecked(true);
    }
}

void frmFileOperations::GetTextAttributes()
{
    if (!m_currentFile.isEmpty())
        lblAttr->setText(AttributeWords::of(FileAttributes::of(m_currentFile)));
}

QList<std::pair<QCheckBox *, int>> frmFileOperations::boxes() const
{
    return {{chkReadOnly, FileAttributes::ReadOnly},
            {chkArchive, FileAttributes::Archive},
            {chkSystem, FileAttributes::System},
            {chkHidden, FileAttributes::Hidden},
            {chkTemporary, FileAttributes::Temporary}};
}

void frmFileOperations::Uncheck()
{
    for (const auto &[box, bit] : boxes())
        box->setChecked(false);
}

void frmFileOperations::ToggleEnabled(bool Enabled)
{
    for (QWidget *control : QList<QWidget *>{cmdMove, cmdCopy, cmdDelete, cmdApply, chkNormal, chkReadOnly,
                                             chkHidden, chkArchive, chkSystem, chkTemporary})
        control->setEnabled(Enabled);
}

bool frmFileOperations::requireFile() const
{
    if (m_currentFile.isEmpty())
        Ask(QStringLiteral("No file loaded."), MsgBoxStyle::Exclamation, QStringLiteral("Error"));
    return !m_currentFile.isEmpty();
}

void frmFileOperations::showNoFile()
{
    m_currentFile.clear();
    lblName->setText(QStringLiteral("No File Loaded"));
    Uncheck();
    chkNormal->setChecked(false);
    lblModified->setText(QStringLiteral("--/--/---- --:--:-- --"));
    lblSize->setText(QStringLiteral("0 Bytes"));
    lblAttr->setText(QStringLiteral("No File Loaded"));
    ToggleEnabled(false);
}

// ---- Dialogs

QString frmFileOperations::choose(void (CommonDialog::*showDialog)(), const QString &title, int flags)
{
    CommonDialog dialog(this); // above this window, which is in front of the image window
    dialog.DialogTitle = title;
    dialog.FileName = m_viewerDialog.FileName;
    dialog.Filter = QStringLiteral("All Files (*.*)|*.*");
    dialog.Flags = flags;
    dialog.CancelError = true;
    (dialog.*showDialog)();
    m_viewerDialog.FileName = dialog.FileName;
    return dialog.FileName;
}

QString frmFileOperations::chooseTarget(const QString &title)
{
    return choose(&CommonDialog::ShowSave, title, CommonDialog::OverwritePrompt);
}

void frmFileOperations::cmdLoad_Click()
{
    reportingFileErrors([&] {
        m_currentFile = choose(&CommonDialog::ShowOpen, QStringLiteral("Open"), 0);
        GetFileInfo();
        ToggleEnabled(true);
    });
}

// ---- Attributes

void frmFileOperations::cmdApply_Click()
{
    int bits = 0;
    for (const auto &[box, bit] : boxes())
        bits |= box->isChecked() ? bit : 0;
    ignoreErrors([&] { FileAttributes::set(m_currentFile, bits); }); // the label shows the outcome
    reportingFileErrors([&] { GetTextAttributes(); });
}

void frmFileOperations::chkNormal_Click()
{
    if (!requireFile() || !chkNormal->isChecked())
        return;
    Uncheck();
    ignoreErrors([&] { FileAttributes::set(m_currentFile, 0); });
}

// ---- Copying, moving, deleting

void frmFileOperations::copyTo(const QString &target)
{
    setCursor(Qt::WaitCursor);
    try {
        FileOperations::copy(m_currentFile, target);
    } catch (...) {
        unsetCursor();
        throw;
    }
    unsetCursor();
}

void frmFileOperations::cmdCopy_Click()
{
    if (!requireFile())
        return;
    reportingFileErrors([&] { copyTo(chooseTarget(QStringLiteral("Copy to\u2026"))); });
}

void frmFileOperations::cmdMove_Click()
{
    if (!requireFile())
        return;
    reportingFileErrors([&] {
        const QString target = chooseTarget(QStringLiteral("Move to..."));
        copyTo(target);
        FileOperations::remove(m_currentFile);
        m_currentFile = target;
        GetFileInfo();
    });
}

void frmFileOperations::cmdDelete_Click()
{
    if (!requireFile())
        return;
    if (Ask(QStringLiteral("Are you sure you want to delete this file?"),
            MsgBoxStyle::YesNo | MsgBoxStyle::Question, QStringLiteral("Question")) != MsgBoxReply::Yes)
        return;
    reportingFileErrors([&] {
        FileOperations::remove(m_currentFile);
        if (m_currentFile == m_viewerFile)
            m_viewerFile.clear();
        if (m_viewerFile.isEmpty()) {
            showNoFile();
        } else {
            m_currentFile = m_viewerFile;
            GetFileInfo();
            ToggleEnabled(true);
        }
    });
}

void frmFileOperations::cmdOK_Click()
{
    unload();
}
