#include "SipTestAccount.h"

#include "Files.h"
#include "SilentSound.h"

#include <QDirIterator>

SipTestAccount::SipTestAccount(const QString &server)
{
    folder.addFile("silence.wav", silentSound());
    settings.kind = LineSettings::Kind::Sip;
    settings.label = QStringLiteral("Home");
    settings.user = QStringLiteral("alice");
    settings.password = QStringLiteral("se;cr et");
    settings.server = server;
    settings.registers = false;
    settings.microphone = QStringLiteral("aufile,") + folder.path() + QStringLiteral("/silence.wav");
    settings.loudspeaker = QStringLiteral("nullplay,none");
}

LineSettings SipTestAccount::registering() const
{
    LineSettings registered = settings;
    registered.registers = true;
    return registered;
}

QStringList SipTestAccount::files() const
{
    QStringList found;
    for (QDirIterator files(folder.path(), QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
        found.append(files.next());
    found.removeAll(folder.path() + QStringLiteral("/silence.wav"));
    return found;
}

quint16 SipTestAccount::controlPort() const
{
    const QString config = files().filter(QStringLiteral("/config")).value(0);
    const QByteArray text = Files::read(config);
    return text.mid(text.indexOf("ctrl_tcp_listen 127.0.0.1:") + 26).trimmed().toUShort();
}
