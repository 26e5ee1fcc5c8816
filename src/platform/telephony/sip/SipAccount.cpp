#include "SipAccount.h"

#include "FileNames.h"
#include "PhoneNumber.h"

#include <QHostAddress>
#include <QRegularExpression>

namespace {

/// Where the system keeps the authorities that it trusts.
const QString systemCertificates = QStringLiteral("/etc/ssl/certs/ca-certificates.crt");
constexpr int registrationTime = 600; // seconds, after which it is renewed

bool matches(const QString &text, const QString &pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

bool isUser(const QString &user)
{
    return matches(user, QStringLiteral("[A-Za-z0-9._~!$&'*+=%-]{1,128}"));
}

bool isServer(const QString &server)
{
    return matches(server, QStringLiteral("([A-Za-z0-9.-]{1,253}|\\[[0-9A-Fa-f:.]{2,45}\\])(:[0-9]{1,5})?"));
}

bool isPassword(const QString &password)
{
    return matches(password, QStringLiteral("[\\x20\\x21\\x23-\\x3B\\x3D-\\x7E]{0,128}")); // not " and <
}

/// With one of the modules for sound: others would make a server of baresip, among other things.
bool isAudioDevice(const QString &device)
{
    return matches(device,
                   QStringLiteral("(alsa|pulse|pipewire|jack|oss|portaudio|sndio|aufile|ausine|nullplay),"
                                  "[\\x21-\\x7E]{0,256}"));
}

bool isFileName(const QString &name)
{
    return matches(name, QStringLiteral("(/[^\\x00-\\x20\\x7F]*)?"));
}

QByteArray moduleOf(const QString &device)
{
    return device.section(u',', 0, 0).toLatin1();
}

} // namespace

bool SipAccount::isValid() const
{
    return isUser(m_settings.user) && isServer(m_settings.server) && isPassword(m_settings.password) &&
           isAudioDevice(m_settings.microphone) && isAudioDevice(m_settings.loudspeaker) &&
           isFileName(m_settings.certificate);
}

QString SipAccount::transportParameter() const
{
    switch (m_settings.transport) {
    case LineSettings::Transport::Udp:
        return {};
    case LineSettings::Transport::Tcp:
        return QStringLiteral(";transport=tcp");
    case LineSettings::Transport::Tls:
        return QStringLiteral(";transport=tls");
    }
    Q_UNREACHABLE();
}

QString SipAccount::soundParameter() const
{
    if (m_settings.transport != LineSettings::Transport::Tls)
        return {};
    switch (m_settings.soundEncryption) {
    case LineSettings::SoundEncryption::None:
        return {};
    case LineSettings::SoundEncryption::Offered:
        return QStringLiteral(";mediaenc=srtp");
    case LineSettings::SoundEncryption::Required:
        return QStringLiteral(";mediaenc=srtp-mand");
    }
    Q_UNREACHABLE();
}

QByteArray SipAccount::accountLine() const
{
    QString line =
        QStringLiteral("<sip:") + m_settings.user + u'@' + m_settings.server + transportParameter() + u'>';
    if (!m_settings.password.isEmpty())
        line += QStringLiteral(";auth_user=") + m_settings.user + QStringLiteral(";auth_pass=\"") +
                m_settings.password + u'"';
    line += QStringLiteral(";regint=") + QString::number(m_settings.registers ? registrationTime : 0);
    line += QStringLiteral(";answermode=manual") + soundParameter();
    return line.toLatin1() + '\n';
}

QByteArrayList SipAccount::audioModules() const
{
    QByteArrayList modules{moduleOf(m_settings.microphone)};
    if (const QByteArray player = moduleOf(m_settings.loudspeaker); !modules.contains(player))
        modules.append(player);
    return modules;
}

QString SipAccount::trustedCertificates() const
{
    return m_settings.certificate.isEmpty() ? systemCertificates : m_settings.certificate;
}

/// The loopback address of a server on this computer, which is used only where that is asked for; empty for
/// any other server.
QString SipAccount::loopbackAddress() const
{
    QString host = m_settings.server;
    host.remove(QRegularExpression(QStringLiteral(":[0-9]{1,5}$")));
    if (host == QStringLiteral("localhost"))
        return QStringLiteral("127.0.0.1");
    const QHostAddress address(host.remove(u'[').remove(u']'));
    return address.isLoopback() ? address.toString() : QString();
}

/// This version of baresip never asks for a verified server by itself. It still does not compare the server's
/// name with that in its certificate.
QByteArray SipAccount::encryptionConfiguration()
{
    return "openssl_conf = suite\n"
           "[suite]\n"
           "ssl_conf = modules\n"
           "[modules]\n"
           "system_default = encryption\n"
           "[encryption]\n"
           "VerifyMode = Peer\n"
           "MinProtocol = TLSv1.2\n";
}

QByteArray SipAccount::configuration(quint16 controlPort, const QString &moduleFolder) const
{
    QByteArray text = "poll_method epoll\n"
                      "sip_listen 0.0.0.0:0\n"
                      "call_max_calls 1\n"
                      "call_local_timeout 120\n"
                      "statmode_default off\n"
                      "audio_path /usr/share/baresip\n";
    if (m_settings.transport == LineSettings::Transport::Tls)
        text += "sip_cafile " + FileNames::toBytes(trustedCertificates()) + "\nsip_verify_server yes\n";
    text += "audio_source " + m_settings.microphone.toLatin1() + '\n';
    text += "audio_player " + m_settings.loudspeaker.toLatin1() + '\n';
    text += "audio_alert " + m_settings.loudspeaker.toLatin1() + '\n';
    if (const QString address = loopbackAddress(); !address.isEmpty())
        text += "net_interface " + address.toLatin1() + '\n';
    text += "module_path " + FileNames::toBytes(moduleFolder) + '\n';
    for (const QByteArray &module : audioModules())
        text += "module " + module + ".so\n";
    text += "module g711.so\n"
            "module srtp.so\n"
            "module_tmp account.so\n"
            "module_app menu.so\n"
            "module_app ctrl_tcp.so\n";
    text += "ctrl_tcp_listen 127.0.0.1:" + QByteArray::number(controlPort) + '\n';
    return text;
}

QString SipAccount::addressOf(const PhoneNumber &number) const
{
    QString user = number.dialled();
    user.replace(u'#', QStringLiteral("%23"));
    return QStringLiteral("sip:") + user + u'@' + m_settings.server + transportParameter();
}
