#pragma once

#include "Form.h"
#include "FtpProfileFile.h"

class ListBox;
class QLineEdit;
class QPushButton;
class WindowIcons;

/// The account profiles: edits the table in the profile file and connects to the profile on show.
class frmFTPAccounts : public Form
{
    Q_OBJECT

public:
    frmFTPAccounts();

protected:
    void Form_Load() override;

private:
    void List1_Click();
    void cmdSave_Click();
    void OKButton_Click();
    void CancelButton_Click();

    void readProfiles();
    void showProfile(const FtpProfile &profile);

    QWidget *buildProfiles();
    QWidget *buildFields();
    QWidget *buildButtons();

    QLineEdit *txtAccount;
    QLineEdit *txtServer;
    QLineEdit *txtUserName;
    QLineEdit *txtPassword;
    ListBox *List1;
    QPushButton *cmdSave;
    QPushButton *OKButton;
    QPushButton *CancelButton;
    WindowIcons *m_icons;
    FtpProfileFile::Table m_profiles;
    int CurrentRecord = 0; ///< the record that cmdSave writes to
};
