#pragma once

#include "Form.h"

class ChoiceBox;
class QLineEdit;
class QPushButton;

/// The dialog that adds a city or changes one: its name and the state it is in.
class frmRegCity : public Form
{
    Q_OBJECT

public:
    frmRegCity();

    /// For a change of the city \a cityId; the window is loaded already. Throws RuntimeError where there is
    /// none.
    void configureEdit(qint16 cityId);

    QString EditMode; ///< "New", which the caller sets, or "Modify"; empty once finished

protected:
    void Form_Load() override;
    void changeEvent(QEvent *event) override;

private:
    void Form_Activate();
    void cmbStates_LostFocus();
    void cmdOK_Click();
    void cmdCancel_Click();

    bool store(); ///< false where there is a city of this name

    QLineEdit *txtCity;
    ChoiceBox *cmbStates;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
    qint16 CurrentCityId = 0; ///< of the city that is changed
};
