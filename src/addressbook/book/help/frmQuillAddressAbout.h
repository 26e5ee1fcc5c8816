#pragma once

#include "Form.h"

class QPushButton;

/// Says what the address book is, and opens the desktop's information on the system where there is one.
class frmQuillAddressAbout : public Form
{
    Q_OBJECT

public:
    frmQuillAddressAbout();

private:
    void cmdOK_Click();
    void cmdSysInfo_Click();
    QWidget *buildTexts();

    QPushButton *cmdOK;
    QPushButton *cmdSysInfo;
};
