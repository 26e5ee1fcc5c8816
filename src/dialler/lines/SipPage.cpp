#include "SipPage.h"

#include "CommonDialog.h"
#include "EventGate.h"
#include "Named.h"
#include "PasswordBox.h"
#include "SipAccount.h"
#include "SoundDevices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QStringList transports = {QStringLiteral("UDP"), QStringLiteral("TCP"),
                                QStringLiteral("TLS (encrypted)")};

const QStringList soundEncryptions = {QStringLiteral("Not encrypted"),
                                      QStringLiteral("Encrypted where the other side can"),
                                      QStringLiteral("Always encrypted")};

/// A box whose list is an offer.
QComboBox *deviceBox(const ControlName &name, const QString &spoken)
{
    auto *box = named<QComboBox>(name, spoken);
    box->setEditable(true);
    box->addItems(SoundDevices::names());
    return box;
}

} // namespace

SipPage::SipPage()
    : txtServer(named<QLineEdit>("txtServer", QStringLiteral("Server")))
    , txtUser(named<QLineEdit>("txtUser", QStringLiteral("User name")))
    , txtPassword(named<PasswordBox>("txtPassword", QStringLiteral("Password")))
    , cboTransport(named<QComboBox>("cboTransport", QStringLiteral("Connection")))
    , txtCertificate(named<QLineEdit>("txtCertificate", QStringLiteral("Certificate")))
    , cmdCertificate(named<QPushButton>("cmdCertificate", QStringLiteral("&Browse...")))
    , lblTrust(named<QLabel>("lblTrust",
                             QStringLiteral("The host name in the server's certificate is not compared.")))
    , cboSound(named<QComboBox>("cboSound", QStringLiteral("Sound of calls")))
    , chkRegister(
          named<QCheckBox>("chkRegister", QStringLiteral("Lo&g on to the server, which reaches telephones")))
    , cboMicrophone(deviceBox("cboMicrophone", QStringLiteral("Microphone")))
    , cboLoudspeaker(deviceBox("cboLoudspeaker", QStringLiteral("Loudspeaker")))
{
    cboTransport->addItems(transports);
    cboSound->addItems(soundEncryptions);
    lblTrust->setWordWrap(true);
    txtServer->setPlaceholderText(QStringLiteral("sip.example.org"));
    txtCertificate->setPlaceholderText(QStringLiteral("those that the system trusts"));

    auto *rows = new QFormLayout(this);
    rows->setContentsMargins({});
    rows->addRow(QStringLiteral("&Server:"), txtServer);
    rows->addRow(QStringLiteral("&User name:"), txtUser);
    rows->addRow(QStringLiteral("&Password:"), txtPassword);
    rows->addRow(QStringLiteral("C&onnection:"), cboTransport);
    QWidget *certificate = layOutCertificate();
    rows->addRow(QStringLiteral("Cer&tificate:"), certificate);
    static_cast<QLabel *>(rows->labelForField(certificate))
        ->setBuddy(txtCertificate); // a key opens no container
    rows->addRow(QString(), lblTrust);
    rows->addRow(QStringLiteral("Soun&d:"), cboSound);
    rows->addRow(chkRegister);
    rows->addRow(QStringLiteral("&Microphone:"), cboMicrophone);
    rows->addRow(QStringLiteral("&Loudspeaker:"), cboLoudspeaker);

    on(cboTransport, &QComboBox::currentIndexChanged, this, &SipPage::cboTransport_Click);
    on(cmdCertificate, &QPushButton::clicked, this, &SipPage::cmdCertificate_Click);
    cboTransport_Click();
}

QWidget *SipPage::layOutCertificate()
{
    auto *both = new QWidget;
    both->setFocusProxy(txtCertificate);
    auto *row = new QHBoxLayout(both);
    row->setContentsMargins({});
    row->addWidget(txtCertificate, 1);
    row->addWidget(cmdCertificate);
    return both;
}

void SipPage::show(const LineSettings &line)
{
    txtServer->setText(line.server);
    txtUser->setText(line.user);
    txtPassword->setText(line.password);
    cboTransport->setCurrentIndex(int(line.transport));
    txtCertificate->setText(line.certificate);
    cboSound->setCurrentIndex(int(line.soundEncryption));
    chkRegister->setChecked(line.registers);
    cboMicrophone->setEditText(line.microphone);
    cboLoudspeaker->setEditText(line.loudspeaker);
}

void SipPage::read(LineSettings &line) const
{
    line.server = txtServer->text().trimmed();
    line.user = txtUser->text().trimmed();
    line.password = txtPassword->text();
    line.transport = LineSettings::Transport(cboTransport->currentIndex());
    line.certificate = txtCertificate->text();
    line.soundEncryption = LineSettings::SoundEncryption(cboSound->currentIndex());
    line.registers = chkRegister->isChecked();
    line.microphone = cboMicrophone->currentText().trimmed();
    line.loudspeaker = cboLoudspeaker->currentText().trimmed();
}

QString SipPage::fault() const
{
    LineSettings line;
    read(line);
    if (SipAccount(line).isValid())
        return {};
    return QStringLiteral(
        "The account cannot be used. Server and user name are needed, as one word each, the password "
        "may not have a \" or <, a certificate is a file whose path has no blank, and a sound device is "
        "written like \"alsa,default\".");
}

/// Only an encrypted connection has a certificate, and keys for the sound that nobody else reads.
void SipPage::cboTransport_Click()
{
    const bool isEncrypted =
        LineSettings::Transport(cboTransport->currentIndex()) == LineSettings::Transport::Tls;
    for (QWidget *control :
         std::initializer_list<QWidget *>{txtCertificate, cmdCertificate, lblTrust, cboSound})
        control->setEnabled(isEncrypted);
}

void SipPage::cmdCertificate_Click()
{
    CommonDialog dialog(this);
    dialog.DialogTitle = QStringLiteral("Certificate of the Server");
    dialog.Filter = QStringLiteral("Certificates (*.pem;*.crt)|*.pem;*.crt|All Files (*.*)|*.*");
    dialog.ShowOpen();
    if (!dialog.FileName.isEmpty())
        txtCertificate->setText(dialog.FileName);
}
