#include "frmUnzip.h"

#include "ArchiveRows.h"
#include "Ask.h"
#include "BoxItem.h"
#include "Forms.h"
#include "GCommonDialog.h"
#include "ListView.h"
#include "OverwriteReply.h"
#include "ShownText.h"
#include "StatusBar.h"
#include "StatusBarPanel.h"
#include "cBrowseForFolder.h"
#include "cUnzip.h"
#include "frmOverwrite.h"
#include "frmPassword.h"

#include <QAction>
#include <QCheckBox>
#include <QPushButton>

// ---- Load and unload

void frmUnzip::Form_Load()
{
    m_settings.read();
    // Intended: the check boxes and the marks of the menu do not follow.
    m_cUnzip->setUseFolderNames(m_settings.UseFolderNames);
    m_cUnzip->setPromptToOverwrite(m_settings.OverwritePrompt);
    showRecentFiles();
    enableActions();
    setStatus(QStringLiteral("Ready.."));
}

void frmUnzip::Form_Unload()
{
    // Intended: those of the last extraction.
    m_settings.UseFolderNames = m_cUnzip->UseFolderNames();
    m_settings.OverwritePrompt = m_cUnzip->PromptToOverwrite();
    m_settings.write();
}

// ---- Opening an archive

void frmUnzip::cmdOpen_Click()
{
    OpenFileName file{.Filter = QStringLiteral("Zip Files (*.ZIP)|*.ZIP|All Files (*.*)|*.*"),
                      .DlgTitle = QStringLiteral("Choose Zip FIle to Open"), // Intended: "FIle"
                      .DefaultExt = QStringLiteral("ZIP"),
                      .Owner = this};
    if (GCommonDialog().VBGetOpenFileName(file) && isLoaded())
        list(file.FileName);
}

void frmUnzip::mnuFileRecent_Click(int row)
{
    const QString path = m_settings.FileOpenMRU.item(row + 1);
    if (!path.isEmpty())
        list(path);
}

void frmUnzip::lvwZip_Drop(const QStringList &paths)
{
    if (!m_job.isRunning())
        list(paths.first());
}

void frmUnzip::list(const QString &path)
{
    lvwZip->ListItems().Clear(); // its rows are those of the table
    m_cUnzip->setZipFile(path);
    m_job.run([this] { m_cUnzip->Directory(); });
    if (!isLoaded())
        return;
    if (m_cUnzip->FileCount() >= 1) {
        m_settings.FileOpenMRU.Add(path);
        showRecentFiles();
    }
    enableActions();
    lvwZip->ListItems().setRows(std::make_unique<ArchiveRows>(*m_cUnzip, ilsIcons16));
}

/// The actions that need a listed file.
void frmUnzip::enableActions()
{
    const bool hasFiles = m_cUnzip->FileCount() > 0;
    for (QPushButton *button : {cmdExtract, cmdAll, cmdInvert})
        button->setEnabled(hasFiles);
    for (const char *item : {"mnuFile_1", "mnuEdit_0", "mnuEdit_1"})
        member<QAction>(QString::fromLatin1(item)).setEnabled(hasFiles);
}

void frmUnzip::showRecentFiles()
{
    const cMRU &recent = m_settings.FileOpenMRU;
    for (int row = 0; row < mostRecentRows; ++row) {
        const int number = row + 1;
        const bool isUsed = number <= recent.Count();
        m_recentRows[std::size_t(row)]->setVisible(isUsed);
        if (isUsed) // Intended: an "&" of the path is a mnemonic too
            m_recentRows[std::size_t(row)]->setText(u'&' + QString::number(number) + QStringLiteral(") ") +
                                                    ShownText::line(recent.item(number)));
    }
}

// ---- Selecting

void frmUnzip::cmdAll_Click()
{
    lvwZip->selectAll();
}

void frmUnzip::cmdInvert_Click()
{
    lvwZip->invertSelection();
}

// ---- Options

void frmUnzip::mnuusefolders_Click()
{
    BoxItem::toggle(member<QAction>(QStringLiteral("mnuusefolders")), *chkUseFolderNames);
}

void frmUnzip::mnuoverrideprompt_Click()
{
    BoxItem::toggle(member<QAction>(QStringLiteral("mnuoverrideprompt")), *chkOverwritePrompt);
}

void frmUnzip::chkUseFolderNames_Click()
{
    UseFolderNames = chkUseFolderNames->isChecked();
}

void frmUnzip::chkOverwritePrompt_Click()
{
    OverwritePrompt = chkOverwritePrompt->isChecked();
}

// ---- Extracting

void frmUnzip::cmdExtract_Click()
{
    const QString folder = askFolder();
    if (!isLoaded())
        return;
    markSelection();
    if (!folder.isEmpty())
        extractTo(folder);
    if (isLoaded())
        setStatus(QStringLiteral("UnZipping complete..")); // Intended: whatever came of it
}

QString frmUnzip::askFolder()
{
    cBrowseForFolder browse;
    browse.hwndOwner = this;
    browse.Title = QStringLiteral("Choose Folder for files to be extracted to..");
    browse.UseNewUI = true;
    browse.EditBox = true;
    browse.IncludeFiles = false;
    if (m_settings.ExtractToMRU.Count() > 0)
        browse.InitialDir = m_settings.ExtractToMRU.item(1);
    return browse.BrowseForFolder();
}

/// A row has the number of its record. No selected row means all records.
void frmUnzip::markSelection()
{
    const bool isAnySelected = lvwZip->hasSelection();
    for (int i = 1; i <= m_cUnzip->FileCount(); ++i)
        m_cUnzip->setFileSelected(i, !isAnySelected || lvwZip->Selected(i));
}

void frmUnzip::extractTo(const QString &folder)
{
    m_settings.ExtractToMRU.Add(folder);
    m_cUnzip->setUnzipFolder(folder);
    m_cUnzip->setPromptToOverwrite(chkOverwritePrompt->isChecked());
    m_cUnzip->setUseFolderNames(chkUseFolderNames->isChecked());
    m_job.run([this] { m_cUnzip->unzip(); });
}

// ---- What a job reports and asks

void frmUnzip::m_cUnzip_Progress(int, const QString &sMsg)
{
    setStatus(sMsg);
}

void frmUnzip::letEventsThrough(const QString &, bool &cancel)
{
    cancel = !m_job.letEventsThrough();
}

void frmUnzip::m_cUnzip_OverwritePrompt(const QString &sFile, int &eResponse)
{
    auto &question = Forms::refer<frmOverwrite>();
    question.setTheCaption(QStringLiteral("Do you want to overwrite the existing copy of ") + sFile + u'?');
    question.showModal(window());
    eResponse = OverwriteReply::of(question.Response(), question.ApplyToAll());
}

void frmUnzip::m_cUnzip_PasswordRequest(QString &sPassword, bool &bCancel)
{
    auto &question = Forms::refer<frmPassword>();
    question.showModal(window());
    if (question.Cancelled() || !isLoaded())
        bCancel = true;
    else
        sPassword = question.Password();
}

void frmUnzip::setStatus(const QString &status)
{
    sbrMain->Panels(1).setText(status);
}

void frmUnzip::mnuHelp_Click()
{
    Ask(QStringLiteral("Brindlecode UnZip Demonstration.\n\n"
                       "Archives are read by this suite's own reader. Files are decompressed by libdeflate, "
                       "written by Eric Biggers, and by zlib, written by Jean-loup Gailly and Mark Adler."),
        MsgBoxStyle::Information);
}
