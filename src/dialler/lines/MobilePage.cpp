#include "MobilePage.h"

#include "MobileModem.h"
#include "Named.h"
#include "ShownText.h"

#include <QComboBox>
#include <QFormLayout>

MobilePage::MobilePage()
    : cboModem(named<QComboBox>("cboModem", QStringLiteral("Modem")))
{
    for (const MobileModem &modem : MobileModem::all())
        cboModem->addItem(ShownText::line(modem.maker + u' ' + modem.model + u' ' + modem.number),
                          modem.identifier);
    auto *rows = new QFormLayout(this);
    rows->setContentsMargins({});
    rows->addRow(QStringLiteral("&Modem:"), cboModem);
}

/// A modem that is not there at present stays the line's own.
void MobilePage::show(const LineSettings &line)
{
    if (!line.modem.isEmpty() && cboModem->findData(line.modem) < 0)
        cboModem->addItem(ShownText::line(line.modem), line.modem);
    cboModem->setCurrentIndex(cboModem->findData(line.modem));
}

void MobilePage::read(LineSettings &line) const
{
    line.modem = cboModem->currentData().toString();
}

QString MobilePage::fault() const
{
    return cboModem->currentIndex() < 0 ? QStringLiteral("Please choose the modem of the line.") : QString();
}
