#pragma once

#include "LinePage.h"
#include "ModemList.h"

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
    void listModems();
    void choose(const QString &modem);

    ModemList m_modems;
    QComboBox *cboModem;
};
