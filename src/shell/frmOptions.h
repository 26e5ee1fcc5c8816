#pragma once

#include "Form.h"

class QCheckBox;
class QPushButton;

/// The options dialog: whether the splash shows at start.
class frmOptions : public Form
{
    Q_OBJECT

public:
    frmOptions();

protected:
    void Form_Load() override;

private:
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdApply_Click();

    QWidget *buildDefaults();
    QWidget *buildHelp();
    QWidget *buildButtons();
    void buildSamples();

    QCheckBox *chkSplashTime;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
    QPushButton *cmdApply;
};
