#pragma once

#include "Form.h"

class QLabel;
class QLineEdit;
class QPushButton;

/// The dialog that adds or renames a state or a group, one of which configure() or configureEdit() sets
/// before it is shown.
class frmRegister : public Form
{
    Q_OBJECT

public:
    frmRegister();

    /// For a new row. \a entityType is "State" or "Group".
    void configure(const QString &entityType);
    /// For a change of the row \a id. Throws RuntimeError where there is none.
    void configureEdit(const QString &entityType, qint16 id);

    QString EditMode; ///< "New" or "Modify"; empty after Ok

private:
    void cmdOK_Click();
    void cmdCancel_Click();

    void setEntity(const QString &editMode, const QString &entityType);
    bool store(); ///< false where there is a row of this name

    QLabel *lblDisp;
    QLineEdit *txtEntity;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
    QString EntityType;
    qint16 CurrentEntityId = 0;
};
