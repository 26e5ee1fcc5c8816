#pragma once

#include "Form.h"

class QLabel;
class QLineEdit;
class QPushButton;

/// Edits the rules by which numbers are dialled, and shows what becomes of an example.
class frmDialingRules : public Form
{
    Q_OBJECT

public:
    frmDialingRules();

    /// \a prefix reaches an outside line, \a number is the example.
    void edit(const QString &prefix, const QString &number);

    /// Counts only where isAccepted() is true.
    QString prefix() const;
    bool isAccepted() const { return m_isAccepted; }

private:
    void txtPrefix_Change();
    void cmdOK_Click();
    void cmdCancel_Click();

    QString m_number;
    QLineEdit *txtPrefix;
    QLabel *lblDialled;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
    bool m_isAccepted = false;
};
