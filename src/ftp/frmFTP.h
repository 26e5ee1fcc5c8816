#pragma once

#include "ChildForm.h"

class DirListBox;
class DriveListBox;
class FileListBox;
class InternetTransfer;
class ListBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class WindowIcons;

/// The FTP window: the local disk on the left, the names in the server's folder on the right, and a button
/// for each command. It knows nothing of the protocol: a command is a text that the transfer session runs in
/// the background, while the window waits and stays usable.
class frmFTP : public ChildForm
{
    Q_OBJECT

public:
    frmFTP();

    QList<QMenu *> menus() const override { return m_menus; }

    /// Logs on as the four boxes say and lists the server's folder. Closes the window of the profiles first.
    void cmdLogOn_Click();

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void cmdLogOff_Click();
    void cmdAccounts_Click();
    void cmdNewFolder_Click();
    void cmdUpFolder_Click();
    void cmdDelete_Click();
    void cmdSize_Click();
    void cmdRename_Click();
    void cmdsend_Click();
    void cmdreceive_Click();
    void drvLocalDrive_Change();
    void dirLocalDir_Change();
    void lstRemoteFile_DblClick();
    void lstRemoteFile_KeyDown(int key);
    void ITC_StateChanged(int state);

    bool FTPIsIdle(bool ShowMessage);
    bool waitUntilIdle();
    void execute(const QString &command);
    void change(const QString &command);
    void refresh();
    void logOn();
    bool mayOverwrite(const QString &name);
    bool existsHere(const QString &name) const;
    void showError();
    void showResponse();
    QString selectedRow() const;
    void setStatus(const QString &status);
    QList<QWidget *> connectionControls() const;
    void setConnected(bool connected);
    void setDisconnected();
    bool parkFocus();
    bool isFocusParked() const;

    QToolButton *image(const char *name, const QString &toolTip, const QString &icon);
    QWidget *buildLoginInfo();
    QWidget *buildStatus();
    QWidget *buildLocalFiles();
    QWidget *buildControls();
    QWidget *buildRemoteFiles();
    void layOut();
    void bind();

    QLineEdit *txtAccount;
    QLineEdit *txtServer;
    QLineEdit *txtUserName;
    QLineEdit *txtPassword;
    QPushButton *cmdLogOn;
    QPushButton *cmdLogOff;
    QPushButton *cmdAccounts;
    QLabel *lblStatus;
    DriveListBox *drvLocalDrive;
    DirListBox *dirLocalDir;
    FileListBox *filLocalFile;
    ListBox *lstRemoteFile;
    QPushButton *cmdNewFolder;
    QPushButton *cmdUpFolder;
    QPushButton *cmdDelete;
    QPushButton *cmdSize;
    QPushButton *cmdRename;
    QPushButton *cmdsend;
    QPushButton *cmdreceive;
    WindowIcons *m_icons;
    QList<QMenu *> m_menus;
    InternetTransfer *ITC;
    bool GettingSize = false; ///< the response that comes next is a size
};
