#include "ColorScheme.h"

#include "EventGate.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QFileInfo>

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portal = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
constexpr int patience = 50; // milliseconds
constexpr uint darkScheme = 1;

/// Asking for a bus where none runs would start one.
bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

/// The portal wraps the answer of this call in a second variant.
bool meansDark(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt() == darkScheme;
}

QDBusMessage question()
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, portal, QStringLiteral("Read"));
    message << appearance << colorScheme;
    return message;
}

bool isAnswer(const QDBusMessage &message)
{
    return message.type() == QDBusMessage::ReplyMessage;
}

} // namespace

ColorScheme::ColorScheme(QObject *parent)
    : QObject(parent)
{
    if (hasSessionBus())
        QDBusConnection::sessionBus().connect(service, path, portal, QStringLiteral("SettingChanged"), this,
                                              SLOT(settingChanged(QDBusMessage)));
}

bool ColorScheme::prefersDark()
{
    if (!hasSessionBus())
        return false;
    const QDBusMessage answer = QDBusConnection::sessionBus().call(question(), QDBus::Block, patience);
    if (QDBusError(answer).type() == QDBusError::NoReply)
        askAgain();
    return isAnswer(answer) && meansDark(answer.arguments().value(0));
}

void ColorScheme::askAgain()
{
    auto *call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question()), this);
    on(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusMessage answer = call->reply();
        if (isAnswer(answer))
            Q_EMIT changed(meansDark(answer.arguments().value(0)));
    });
}

// The whole message: a slot with the arguments of this signal is refused by this version of QtDBus.
void ColorScheme::settingChanged(const QDBusMessage &message)
{
    run([&] {
        const QVariantList arguments = message.arguments();
        if (arguments.value(0) == appearance && arguments.value(1) == colorScheme)
            Q_EMIT changed(meansDark(arguments.value(2)));
    });
}
