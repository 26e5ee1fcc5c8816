#pragma once

#include "ArchiverForm.h"

class QCheckBox;
class QLineEdit;
class ListBox;
class cZip;

/// The zip window: a list of single files, an archive that they go into, and a log of what happens. It knows
/// nothing of archives; its cZip does the work.
class frmZip : public ArchiverForm
{
    Q_OBJECT

public:
    frmZip();

private:
    void cmdSingleFile_Click();
    void cmdzipfolder_Click();
    void cmdCreateZip_Click();
    void cmdRecurse_Click();
    void mnuencrypt_Click();
    void mnustorefolders_Click();
    void FileList1_Drop(const QStringList &paths);
    void txtzipfolder_Drop(const QStringList &paths);
    void m_cZ_Progress(int lCount, const QString &sMsg);
    void m_cZ_PasswordRequest(QString &sPassword, int lMaxPasswordLength, bool bConfirm, bool &bCancel);
    void m_cZ_CommentRequest(QString &sComment, bool &bCancel);
    void letEventsThrough(const QString &name, bool &cancel);

    void addFile(const QString &path);
    void setTarget(const QString &path);
    bool runJob();
    void ask(const QString &prompt, QString &answer, bool &cancel) const;

    void buildContent();
    QWidget *buildFiles();
    QWidget *buildTarget();
    QWidget *buildOptions();
    QWidget *buildProgress();
    void bind();

    ListBox *FileList1;
    QPushButton *cmdSingleFile;
    QLineEdit *txtzipfolder;
    QPushButton *cmdzipfolder;
    QCheckBox *chkEncrypt;
    QCheckBox *chkAddComment;
    QCheckBox *chkDirectories;
    QCheckBox *chkFolders;
    QPushButton *cmdCreateZip;
    QPushButton *cmdRecurse;
    ListBox *lstLog;
    cZip *m_cZ;
};
