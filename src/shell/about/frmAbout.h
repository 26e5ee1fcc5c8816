#pragma once

#include "Form.h"
#include "RegistryStore.h"

class QPushButton;

/// Says what the suite is and which version, and opens the desktop's information on the system where there is
/// one.
class frmAbout : public Form
{
    Q_OBJECT

public:
    frmAbout();

    /// Starts the program that the registry names. A box says so where there is none.
    void StartSysInfo();
    /// As SystemInformation::GetKeyValue.
    static bool GetKeyValue(RegistryStore::Root root, const QString &keyName, const QString &valueName,
                            QString &result);

protected:
    void Form_Load() override;

private:
    void cmdOK_Click();
    void cmdSysInfo_Click();

    QLayout *buildTexts();

    QLabel *lblDescription;
    QLabel *lblVersion;
    QLabel *lblDisclaimer;
    QPushButton *cmdOK;
    QPushButton *cmdSysInfo;
};
