#pragma once

#include "Form.h"
#include "LineSettings.h"

#include <array>

class LinePage;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;

/// Edits the user's telephone lines: the list of them, and the fields of the one that is selected.
class frmLines : public Form
{
    Q_OBJECT

public:
    frmLines();

    /// Puts the lines into the window, which begins with the line \a selected, if there is such a one.
    void edit(const QList<LineSettings> &lines, qsizetype selected);

    /// What the user has made of them; counts only where isAccepted() is true.
    const QList<LineSettings> &lines() const { return m_lines; }
    bool isAccepted() const { return m_isAccepted; }

private:
    void lstLines_Click();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cboKind_Click();
    void txtLabel_Change();
    void cmdOK_Click();
    void cmdCancel_Click();

    QWidget *buildList();
    QWidget *buildFields();
    void alignLabels();
    QLayout *layOutButtons();
    void bind();
    LinePage &page() const;
    void readFields();
    void showLine(int row);
    bool areFieldsRight();

    QList<LineSettings> m_lines;
    int m_shown = -1; ///< the line in the fields; -1 for none
    bool m_isAccepted = false;
    QListWidget *lstLines;
    QPushButton *cmdAdd;
    QPushButton *cmdRemove;
    QWidget *fields;
    QLineEdit *txtLabel;
    QComboBox *cboKind;
    QStackedWidget *pages;
    std::array<LinePage *, 3> m_pages; ///< by kind
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
};
