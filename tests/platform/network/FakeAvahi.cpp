#include "FakeAvahi.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <gtest/gtest.h>

namespace {

const QString connectionName = QStringLiteral("fake Avahi");
const QString busName = QStringLiteral("org.freedesktop.Avahi");
const QString browserPath = QStringLiteral("/Client1/ServiceBrowser");

QDBusMessage signal(const QString &browser, const QString &name, const QVariantList &arguments = {})
{
    QDBusMessage message =
        QDBusMessage::createSignal(browser, busName + QStringLiteral(".ServiceBrowser"), name);
    message.setArguments(arguments);
    return message;
}

} // namespace

FakeAvahi::FakeAvahi()
    : m_bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS"), connectionName))
{
    qDBusRegisterMetaType<QList<QByteArray>>();
    EXPECT_TRUE(m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath));
    EXPECT_TRUE(m_bus.registerService(busName));
}

FakeAvahi::~FakeAvahi()
{
    m_bus.unregisterService(busName);
    QDBusConnection::disconnectFromBus(connectionName);
}

bool FakeAvahi::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    calls << message.member();
    if (message.member() == QLatin1String("ServiceBrowserPrepare")) {
        m_types << message.arguments().at(2).toString();
        m_bus.send(message.createReply(
            QVariant::fromValue(QDBusObjectPath(browserPath + QString::number(m_types.size() - 1)))));
    } else if (message.member() == QLatin1String("Start")) {
        start(message.path());
    } else if (message.member() == QLatin1String("ResolveService")) {
        resolve(message);
    }
    return true;
}

void FakeAvahi::start(const QString &browser)
{
    const QString type = m_types.value(browser.mid(browserPath.size()).toInt());
    for (const Service &service : services.value(type))
        m_bus.send(signal(browser, QStringLiteral("ItemNew"),
                          {2, 0, service.name, type, QStringLiteral("local"), 4u}));
    if (dies)
        m_bus.unregisterService(busName);
    else if (fails)
        m_bus.send(signal(browser, QStringLiteral("Failure"), {QStringLiteral("no")}));
    else
        m_bus.send(signal(browser, QStringLiteral("AllForNow")));
}

void FakeAvahi::resolve(const QDBusMessage &message)
{
    const QVariantList question = message.arguments();
    for (const Service &service : services.value(question.at(3).toString())) {
        if (service.name != question.at(2).toString() || service.host.isEmpty())
            continue;
        m_bus.send(message.createReply(QVariantList{
            2, 0, service.name, question.at(3), question.at(4), service.host, 0, service.address,
            QVariant::fromValue(quint16(9)), QVariant::fromValue(QList<QByteArray>{"a=b"}), 4u}));
        return;
    }
    m_bus.send(
        message.createErrorReply(QStringLiteral("org.freedesktop.Avahi.TimeoutError"), QStringLiteral("no")));
}
