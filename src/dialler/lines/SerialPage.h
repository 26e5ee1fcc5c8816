#pragma once

#include "LinePage.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

/// A modem on a serial port: where it is and how it is used.
class SerialPage : public LinePage
{
    Q_OBJECT

public:
    SerialPage();

    void show(const LineSettings &line) override;
    void read(LineSettings &line) const override;
    QString fault() const override;

private:
    QComboBox *cboPort;
    QComboBox *cboSpeed;
    QComboBox *cboMode;
    QCheckBox *chkPulses;
    QLineEdit *txtInitialisation;
};
