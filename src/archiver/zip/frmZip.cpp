#include "frmZip.h"

#include "Ask.h"
#include "BoxItem.h"
#include "GCommonDialog.h"
#include "InputBox.h"
#include "ListBox.h"
#include "Paths.h"
#include "StatusBar.h"
#include "StatusBarPanel.h"
#include "ZipTexts.h"
#include "cZip.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>

// ---- The files and the archive

void frmZip::cmdSingleFile_Click()
{
    OpenFileName file{.Filter = QStringLiteral("All Files (*.*)|*.*"),
                      .DlgTitle = QStringLiteral("Choose File to Add to Zip"),
                      .Owner = this};
    if (GCommonDialog().VBGetOpenFileName(file))
        addFile(file.FileName);
}

void frmZip::FileList1_Drop(const QStringList &paths)
{
    if (m_job.isRunning())
        return;
    for (const QString &path : paths)
        addFile(path);
}

void frmZip::addFile(const QString &path)
{
    FileList1->AddItem(path);
}

void frmZip::cmdzipfolder_Click()
{
    OpenFileName file{.FileMustExist = false,
                      .Filter = QStringLiteral("Zip Files (*.zip)|*.zip"),
                      .DlgTitle = QStringLiteral(
                          "Choose Folder and File to Zip to, or select directory and Type New File Name.."),
                      .DefaultExt = QStringLiteral(".zip"),
                      .Owner = this};
    if (GCommonDialog().VBGetOpenFileName(file))
        setTarget(file.FileName);
}

void frmZip::txtzipfolder_Drop(const QStringList &paths)
{
    setTarget(paths.first());
}

void frmZip::setTarget(const QString &path)
{
    txtzipfolder->setText(path);
}

// ---- Jobs

void frmZip::cmdCreateZip_Click()
{
    if (FileList1->ListCount() == 0) {
        Ask(QStringLiteral("You have not selected any files!"), MsgBoxStyle::Critical,
            QStringLiteral("No Files to Zip.."));
        return;
    }
    if (txtzipfolder->text().isEmpty() || txtzipfolder->text() == ZipTexts::targetPrompt) {
        Ask(QStringLiteral("You have not selected the destination file!"), MsgBoxStyle::Critical,
            QStringLiteral("No Destination File to Zip to.."));
        return;
    }
    m_cZ->setEncrypt(chkEncrypt->isChecked());
    m_cZ->setAddComment(chkAddComment->isChecked());
    m_cZ->setZipFile(txtzipfolder->text());
    m_cZ->setStoreFolderNames(chkFolders->isChecked());
    m_cZ->setStoreDirectories(chkDirectories->isChecked());
    m_cZ->setRecurseSubDirs(false);
    m_cZ->ClearFileSpecs();
    for (int row = 0; row < FileList1->ListCount(); ++row)
        m_cZ->AddFileSpec(FileList1->List(row));
    if (!runJob())
        return;
    if (m_cZ->Success())
        Ask(ZipTexts::zipped(FileList1->ListCount(), m_cZ->ZipFile()), MsgBoxStyle::Information);
    else
        Ask(QStringLiteral("Zip Failed."), MsgBoxStyle::Exclamation);
}

/// A fixed job, whatever the list and the box of the archive say.
void frmZip::cmdRecurse_Click()
{
    m_cZ->setZipFile(Paths::native(Paths::appPath() + QStringLiteral("\\Test_Rec.zip")));
    m_cZ->setEncrypt(chkEncrypt->isChecked());
    m_cZ->setAddComment(chkAddComment->isChecked());
    m_cZ->setBasePath(Paths::appPath()); // Intended: the process stays in this folder
    m_cZ->ClearFileSpecs();
    for (const char *pattern : {"*.fr*", "*.cls", "*.bas"})
        m_cZ->AddFileSpec(QString::fromLatin1(pattern));
    m_cZ->setStoreFolderNames(true);
    m_cZ->setRecurseSubDirs(true);
    if (!runJob())
        return;
    if (m_cZ->Success())
        Ask(ZipTexts::zippedBelow(m_cZ->BasePath(), m_cZ->ZipFile()), MsgBoxStyle::Information);
    else
        Ask(QStringLiteral("Zipping failed."), MsgBoxStyle::Exclamation);
}

/// Returns false where the window was closed meanwhile, which ends the job.
bool frmZip::runJob()
{
    m_job.run([this] { m_cZ->zip(); });
    return isLoaded();
}

// ---- Options

void frmZip::mnuencrypt_Click()
{
    BoxItem::toggle(member<QAction>(QStringLiteral("mnuencrypt")), *chkEncrypt);
}

void frmZip::mnustorefolders_Click()
{
    BoxItem::toggle(member<QAction>(QStringLiteral("mnustorefolders")), *chkFolders);
}

// ---- What a job reports and asks

void frmZip::m_cZ_Progress(int, const QString &sMsg)
{
    sbrMain->Panels(1).setText(sMsg);
    lstLog->AddItem(sMsg);
    lstLog->setListIndex(lstLog->ListCount() - 1);
}

void frmZip::letEventsThrough(const QString &, bool &cancel)
{
    cancel = !m_job.letEventsThrough();
}

void frmZip::m_cZ_PasswordRequest(QString &sPassword, int, bool bConfirm, bool &bCancel)
{
    ask(bConfirm ? QStringLiteral("Confirm password:") : QStringLiteral("Enter password:"), sPassword,
        bCancel);
}

void frmZip::m_cZ_CommentRequest(QString &sComment, bool &bCancel)
{
    ask(QStringLiteral("Enter comment:"), sComment, bCancel);
}

void frmZip::ask(const QString &prompt, QString &answer, bool &cancel) const
{
    const QString typed = InputBox(prompt, {}, answer).trimmed();
    if (typed.isEmpty() || !isLoaded())
        cancel = true;
    else
        answer = typed;
}
