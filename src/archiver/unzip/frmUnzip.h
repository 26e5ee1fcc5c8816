#pragma once

#include "ArchiverForm.h"
#include "FileIcons.h"
#include "UnzipSettings.h"

#include <array>

class ListView;
class QCheckBox;
class cUnzip;

/// The unzip window: lists an archive and extracts the selected files, all of them where none is selected.
/// It knows nothing of archives; its cUnzip does the work. Two options and the recent archives and folders
/// are kept in the registry.
class frmUnzip : public ArchiverForm
{
    Q_OBJECT

public:
    frmUnzip();

    /// What the check boxes say since they have been clicked.
    bool OverwritePrompt = false;
    bool UseFolderNames = false;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    static constexpr int mostRecentRows = 4;

    void cmdOpen_Click();
    void cmdExtract_Click();
    void cmdAll_Click();
    void cmdInvert_Click();
    void mnuFileRecent_Click(int row);
    void mnuusefolders_Click();
    void mnuoverrideprompt_Click();
    void mnuHelp_Click();
    void chkUseFolderNames_Click();
    void chkOverwritePrompt_Click();
    void lvwZip_Drop(const QStringList &paths);
    void m_cUnzip_Progress(int lCount, const QString &sMsg);
    void m_cUnzip_OverwritePrompt(const QString &sFile, int &eResponse);
    void m_cUnzip_PasswordRequest(QString &sPassword, bool &bCancel);
    void letEventsThrough(const QString &name, bool &cancel);

    void list(const QString &path);
    void showRecentFiles();
    void enableActions();
    QString askFolder();
    void markSelection();
    void extractTo(const QString &folder);
    void setStatus(const QString &status);

    void buildContent();
    QLayout *buildButtons();
    QLayout *buildOptions();
    void findRecentRows();
    void buildList();
    void bind();

    QPushButton *cmdOpen;
    QPushButton *cmdExtract;
    QPushButton *cmdAll;
    QPushButton *cmdInvert;
    QCheckBox *chkUseFolderNames;
    QCheckBox *chkOverwritePrompt;
    ListView *lvwZip;
    std::array<QAction *, mostRecentRows> m_recentRows;
    FileIcons ilsIcons16;
    UnzipSettings m_settings;
    cUnzip *m_cUnzip;
};
