#pragma once

#include "ChildForm.h"
#include "LogOnNotice.h"

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

/// Title and text of the notice that the computer shows before the log-on. What fails here is passed over.
class frmSystemMessage : public ChildForm
{
    Q_OBJECT

public:
    /// Tests give the places of \a notice.
    explicit frmSystemMessage(const LogOnNotice &notice = LogOnNotice());

    QList<QMenu *> menus() const override { return m_menus; }

protected:
    void Form_Load() override;

private:
    void cmdActivate_Click();
    void cmdDeActivate_Click();
    void cmdClose_Click();

    void layOut();

    QLineEdit *txtTitle;
    QPlainTextEdit *txtMessage;
    QPushButton *cmdActivate;
    QPushButton *cmdDeActivate;
    QPushButton *cmdClose;
    QList<QMenu *> m_menus;
    LogOnNotice m_notice;
};
