#pragma once

#include "LinePage.h"

class QComboBox;

/// Which mobile modem of this computer the line is.
class MobilePage : public LinePage
{
    Q_OBJECT

public:
    MobilePage();

    void show(const LineSettings &line) override;
    void read(LineSettings &line) const override;
    QString fault() const override;

private:
    QComboBox *cboModem;
};
