#pragma once

#include "Form.h"

class QCheckBox;
class QLabel;

/// Asks whether a file that exists may be overwritten. The caller sets the question before showModal() and
/// reads the answer after it.
class frmOverwrite : public Form
{
    Q_OBJECT

public:
    frmOverwrite();

    QString TheCaption() const { return m_caption; }
    /// The question; names in it may hold any characters.
    void setTheCaption(const QString &caption);
    /// MsgBoxReply::Yes or No, or another number.
    int Response() const { return m_response; }
    bool ApplyToAll() const;

private:
    void cmdYes_Click();
    void cmdNo_Click();
    void cmdCancel_Click();
    void answer(int response);

    QLabel *lblCaption;
    QCheckBox *chkAllFiles;
    QString m_caption;
    int m_response;
};
