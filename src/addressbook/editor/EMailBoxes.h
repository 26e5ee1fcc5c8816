#pragma once

#include <QObject>
#include <QStringList>

class FieldGrid;
class ListBox;
class QLineEdit;
class QPushButton;

/// A contact's e-mail addresses: a box to type one, the list of all, and the buttons between them. Return in
/// the box adds, Delete in the list removes.
class EMailBoxes : public QObject
{
    Q_OBJECT

public:
    /// Adds its rows to \a grid and is owned by it.
    explicit EMailBoxes(FieldGrid &grid);

    QStringList addresses() const;
    void setAddresses(const QStringList &addresses);

private:
    void cmdAdd_Click();
    void cmdRemove_Click();
    void lstEMail_KeyDown(int key);

    QLineEdit *txtEMail;
    QPushButton *cmdAdd;
    ListBox *lstEMail;
    QPushButton *cmdRemove;
};
