#pragma once

#include "Form.h"

/// Says which version the image viewer has.
class frmImageAbout : public Form
{
    Q_OBJECT

public:
    frmImageAbout();

private:
    void cmdClose_Click();
};
