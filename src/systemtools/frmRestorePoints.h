#pragma once

#include "ChildForm.h"

class ListBox;
class QLineEdit;
class QPushButton;

/// Lists the system's restore points and makes new ones. While the service works its buttons wait, and the
/// window may be closed.
class frmRestorePoints : public ChildForm
{
    Q_OBJECT

public:
    frmRestorePoints();

    QList<QMenu *> menus() const override { return m_menus; }

    /// Makes a point with the description in the box, says so, and lists. A failure ends in a box.
    void CreatePoint();
    /// Throws as SystemRestore does; the list is then empty.
    void ListPoints();

protected:
    void Form_Load() override;

private:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    void layOut();

    QLineEdit *Text1;
    QPushButton *Command1;
    QPushButton *Command2;
    QPushButton *Command3;
    ListBox *listview2;
    QList<QMenu *> m_menus;
};
