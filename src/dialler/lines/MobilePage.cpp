#include "MobilePage.h"

#include "EventGate.h"
#include "Named.h"
#include "ShownText.h"

#include <QComboBox>
#include <QFormLayout>

MobilePage::MobilePage()
    : cboModem(named<QComboBox>("cboModem", QStringLiteral("Modem")))
{
    auto *rows = new QFormLayout(this);
    rows->setContentsMargins({});
    rows->addRow(QStringLiteral("&Modem:"), cboModem);
    on(&m_modems, &ModemList::changed, this, &MobilePage::listModems);
}

/// The one that is chosen stays so.
void MobilePage::listModems()
{
    const QString chosen = cboModem->currentData().toString();
    cboModem->clear();
    for (const MobileModem &modem : m_modems.modems())
        cboModem->addItem(ShownText::line(modem.maker + u' ' + modem.model + u' ' + modem.number),
                          modem.identifier);
    choose(chosen);
}

/// A modem that is not there at present is listed nevertheless.
void MobilePage::choose(const QString &modem)
{
    if (!modem.isEmpty() && cboModem->findData(modem) < 0)
        cboModem->addItem(ShownText::line(modem), modem);
    cboModem->setCurrentIndex(cboModem->findData(modem));
}

void MobilePage::show(const LineSettings &line)
{
    choose(line.modem);
}

void MobilePage::read(LineSettings &line) const
{
    line.modem = cboModem->currentData().toString();
}

QString MobilePage::fault() const
{
    return cboModem->currentIndex() < 0 ? QStringLiteral("Please choose the modem of the line.") : QString();
}
