#pragma once

#include "ArchiveJob.h"
#include "ChildForm.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class ListBox;
class StatusBar;
class WindowIcons;
class cZip;

/// The zip window: a list of single files, an archive that they go into, and a log of what happens. It knows
/// nothing of archives; its cZip does the work.
class frmZip : public ChildForm
{
    Q_OBJECT

public:
    frmZip();

    QList<QMenu *> menus() const override { return m_menus; }
    QSize sizeHint() const override;

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

    QPushButton *button(const char *name, const QString &caption, const QString &icon);
    QWidget *buildContent();
    QWidget *buildFiles();
    QWidget *buildTarget();
    QWidget *buildOptions();
    QWidget *buildProgress();
    void layOut();
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
    StatusBar *sbrMain;
    WindowIcons *m_icons;
    QList<QMenu *> m_menus;
    cZip *m_cZ;
    ArchiveJob m_job;
};
