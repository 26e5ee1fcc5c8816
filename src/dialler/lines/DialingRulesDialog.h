#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;

/// Edits the rules by which numbers are dialled, and shows what becomes of an example.
class DialingRulesDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a prefix reaches an outside line.
    DialingRulesDialog(const QString &prefix, const QString &number, QWidget *owner);

    QString prefix() const;

private:
    void txtPrefix_Change();

    QString m_number;
    QLineEdit *txtPrefix;
    QLabel *lblDialled;
};
