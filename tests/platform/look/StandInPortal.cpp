#include "StandInPortal.h"

#include <QDBusConnection>

namespace {

const QString connectionName = QStringLiteral("portal");

} // namespace

StandInPortal::StandInPortal(uint scheme)
    : m_scheme(scheme)
{
    moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(
        this,
        [this] {
            QDBusConnection bus = QDBusConnection::connectToBus(
                qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), connectionName);
            bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
            bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
        },
        Qt::BlockingQueuedConnection);
}

StandInPortal::~StandInPortal()
{
    QDBusConnection::disconnectFromBus(connectionName);
    m_thread.quit();
    m_thread.wait();
}

QDBusVariant StandInPortal::Read(const QString &, const QString &) const
{
    return QDBusVariant(QVariant::fromValue(QDBusVariant(m_scheme)));
}

void StandInPortal::turnTo(uint scheme)
{
    QMetaObject::invokeMethod(this, [this, scheme] {
        Q_EMIT SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("accent-color"),
                              QDBusVariant(0u));
        Q_EMIT SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                              QDBusVariant(scheme));
    });
}
