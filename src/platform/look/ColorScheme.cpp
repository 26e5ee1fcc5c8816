#include "ColorScheme.h"

#include "EventGate.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
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

} // namespace

ColorScheme::ColorScheme(QObject *parent)
    : QObject(parent)
{
    if (hasSessionBus())
        QDBusConnection::sessionBus().connect(service, path, portal, QStringLiteral("SettingChanged"), this,
                                              SLOT(settingChanged(QDBusMessage)));
}

bool ColorScheme::prefersDark() const
{
    if (!hasSessionBus())
        return false;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(service).value())
        return false;
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, portal, QStringLiteral("Read"));
    question << appearance << colorScheme;
    const QDBusMessage answer = bus.call(question, QDBus::Block, patience);
    return answer.type() == QDBusMessage::ReplyMessage && meansDark(answer.arguments().value(0));
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
