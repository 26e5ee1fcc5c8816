#include "SerialPage.h"

#include "Named.h"
#include "SerialPort.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace {

constexpr int mostCharacters = 100;

const QStringList modes = {QStringLiteral("Dial for the telephone beside the modem"),
                           QStringLiteral("Keep the call in the modem (voice modem)")};

/// The names that stay where a modem is plugged into another socket come first.
QStringList ports()
{
    QStringList found;
    const QDir byIdentity(QStringLiteral("/dev/serial/by-id"));
    for (const QString &name : byIdentity.entryList(QDir::System | QDir::Files))
        found.append(byIdentity.filePath(name));
    const QDir devices(QStringLiteral("/dev"));
    for (const QString &name : devices.entryList(
             {QStringLiteral("ttyACM*"), QStringLiteral("ttyUSB*"), QStringLiteral("ttyS*")}, QDir::System))
        found.append(devices.filePath(name));
    return found;
}

} // namespace

SerialPage::SerialPage()
    : cboPort(named<QComboBox>("cboPort", QStringLiteral("Port")))
    , cboSpeed(named<QComboBox>("cboSpeed", QStringLiteral("Speed")))
    , cboMode(named<QComboBox>("cboMode", QStringLiteral("Use")))
    , chkPulses(named<QCheckBox>("chkPulses", QStringLiteral("Dial by pu&lses")))
    , txtInitialisation(named<QLineEdit>("txtInitialisation", QStringLiteral("Initialisation")))
{
    cboPort->setEditable(true);
    cboPort->addItems(ports());
    for (const int speed : SerialPort::speeds())
        cboSpeed->addItem(QString::number(speed), speed);
    cboMode->addItems(modes);
    txtInitialisation->setMaxLength(mostCharacters);
    txtInitialisation->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[ -~]*")), txtInitialisation));

    auto *rows = new QFormLayout(this);
    rows->setContentsMargins({});
    rows->addRow(QStringLiteral("&Port:"), cboPort);
    rows->addRow(QStringLiteral("&Speed:"), cboSpeed);
    rows->addRow(QStringLiteral("&Use:"), cboMode);
    rows->addRow(QStringLiteral("&Initialisation: AT"), txtInitialisation);
    rows->addRow(chkPulses);
}

void SerialPage::show(const LineSettings &line)
{
    cboPort->setEditText(line.port);
    cboSpeed->setCurrentIndex(cboSpeed->findData(line.speed));
    cboMode->setCurrentIndex(int(line.mode));
    chkPulses->setChecked(line.dialsByPulses);
    txtInitialisation->setText(line.initialisation);
}

void SerialPage::read(LineSettings &line) const
{
    line.port = cboPort->currentText().trimmed();
    line.speed = cboSpeed->currentData().toInt();
    line.mode = LineSettings::SerialMode(cboMode->currentIndex());
    line.dialsByPulses = chkPulses->isChecked();
    line.initialisation = txtInitialisation->text();
}

QString SerialPage::fault() const
{
    if (!cboPort->currentText().trimmed().startsWith(u'/'))
        return QStringLiteral("Please enter the port of the modem, such as /dev/ttyUSB0.");
    return cboSpeed->currentIndex() < 0 ? QStringLiteral("Please choose the speed of the port.") : QString();
}
