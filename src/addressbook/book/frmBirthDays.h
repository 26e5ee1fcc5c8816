#pragma once

#include "Form.h"

class DateBox;
class QPushButton;

/// The search for birthdays: picks a day, and has the address book show the contacts born on it in any year.
class frmBirthDays : public Form
{
    Q_OBJECT

public:
    frmBirthDays();

protected:
    void Form_Load() override;

private:
    void cmdOK_Click();
    void cmdCancel_Click();

    DateBox *dtFrom;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
};
