#include "StandInPortal.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QTimer>

namespace {

const QString connectionName = QStringLiteral("portal");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

} // namespace

StandInPortal::StandInPortal(uint scheme, int delay)
    : m_scheme(scheme)
    , m_delay(delay)
{
    moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(
        this,
        [this] {
            QDBusConnection bus = QDBusConnection::connectToBus(
                qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), connectionName);
            bus.registerObject(path, this, QDBusConnection::ExportAllSlots);
            bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
        },
        Qt::BlockingQueuedConnection);
}

StandInPortal::~StandInPortal()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            QDBusConnection(connectionName).unregisterObject(path);
            moveToThread(qApp->thread());
        },
        Qt::BlockingQueuedConnection);
    QDBusConnection::disconnectFromBus(connectionName);
    m_thread.quit();
    m_thread.wait();
}

QDBusVariant StandInPortal::Read(const QString &, const QString &, const QDBusMessage &question)
{
    question.setDelayedReply(true);
    const auto value = QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(m_scheme))));
    QTimer::singleShot(m_delay, this, [reply = question.createReply(value)] {
        QDBusConnection(connectionName).send(reply);
    });
    return {};
}

void StandInPortal::turnTo(uint scheme)
{
    announce(QStringLiteral("accent-color"), 0);
    announce(QStringLiteral("color-scheme"), scheme);
}

void StandInPortal::announce(const QString &key, uint value)
{
    QDBusMessage change = QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.portal.Settings"),
                                                     QStringLiteral("SettingChanged"));
    change << QStringLiteral("org.freedesktop.appearance") << key << QVariant::fromValue(QDBusVariant(value));
    QDBusConnection(connectionName).send(change);
}
