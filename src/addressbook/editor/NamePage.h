#pragma once

#include "NameRow.h"

#include <QWidget>

class ChoiceBox;
class EMailBoxes;
class FieldGrid;
class QLineEdit;

/// The page of the name, the group, the birth date, the e-mail addresses and the comment. The functions throw
/// RuntimeError.
class NamePage : public QWidget
{
    Q_OBJECT

public:
    NamePage();

    /// Fills the lists; no group is chosen.
    void fill();
    void setRow(const NameRow &row);
    /// Group 0 where the text names none; what is no date is no birth date.
    NameRow row() const;
    void setEMails(const QStringList &addresses);
    QStringList eMails() const;

    /// False for a name of blanks.
    bool hasName() const;
    QLineEdit &nameBox() const { return *txtName; }
    void requireGroup();

private:
    void cmbSalute_LostFocus();
    void cmbGroups_LostFocus();
    void txtBDate_LostFocus();

    void buildPerson(FieldGrid &grid);
    void buildComment(FieldGrid &grid);
    void bind();

    ChoiceBox *cmbSalute;
    QLineEdit *txtName;
    QLineEdit *txtNick;
    ChoiceBox *cmbGroups;
    QLineEdit *txtBDate;
    EMailBoxes *m_eMails;
    QLineEdit *txtComment;
};
