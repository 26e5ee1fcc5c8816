#pragma once

#include "Form.h"

class PasswordBox;
class QPushButton;

/// Asks for the password of an archive. The caller reads the answer after showModal().
class frmPassword : public Form
{
    Q_OBJECT

public:
    frmPassword();

    /// Without blanks at its ends; empty where the dialog was cancelled.
    QString Password() const { return m_password; }
    bool Cancelled() const { return m_cancelled; }

private:
    void cmdOK_Click();
    void cmdCancel_Click();

    PasswordBox *txtPassword;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
    QString m_password;
    bool m_cancelled = true;
};
