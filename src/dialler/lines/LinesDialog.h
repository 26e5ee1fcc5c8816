#pragma once

#include "LineSettings.h"

#include <QDialog>
#include <array>

class LinePage;
class QComboBox;
class QDialogButtonBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;

/// Edits the user's telephone lines: the list of them, and the fields of the one that is selected.
class LinesDialog : public QDialog
{
    Q_OBJECT

public:
    /// Begins with the line \a selected, if there is such a one.
    LinesDialog(const QList<LineSettings> &lines, qsizetype selected, QWidget *owner);

    const QList<LineSettings> &lines() const { return m_lines; }

    void accept() override;

private:
    void lstLines_Click();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cboKind_Click();
    void txtLabel_Change();

    QWidget *buildList();
    QWidget *buildFields();
    void bind();
    LinePage &page() const;
    void readFields();
    void showLine(int row);
    bool acceptFields();

    QList<LineSettings> m_lines;
    int m_shown = -1; ///< the line in the fields; -1 for none
    QListWidget *lstLines;
    QPushButton *cmdAdd;
    QPushButton *cmdRemove;
    QWidget *fields;
    QLineEdit *txtLabel;
    QComboBox *cboKind;
    QStackedWidget *pages;
    std::array<LinePage *, 3> m_pages; ///< by kind
    QDialogButtonBox *buttons;
};
