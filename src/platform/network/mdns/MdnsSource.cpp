#include "MdnsSource.h"

#include "EventGate.h"
#include "LocalNetwork.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QHostAddress>
#include <utility>

namespace {

constexpr int answerPatience = 2000; // milliseconds
constexpr qsizetype mostServices = 1000;
constexpr int anyInterface = -1;
constexpr int anyProtocol = -1;
constexpr int onlyIPv4 = 0;
constexpr uint noFlags = 0;

const QString avahi = QStringLiteral("org.freedesktop.Avahi");
const QString serverInterface = avahi + QStringLiteral(".Server");
const QString browserInterface = avahi + QStringLiteral(".ServiceBrowser");
const QString workstation = QStringLiteral("_workstation._tcp");
const QString fileServer = QStringLiteral("_smb._tcp");

QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                  const QVariantList &arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(avahi, path, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

/// A workstation's service is named "host [hardware address]".
QString hostNameIn(const QString &serviceName)
{
    return serviceName.section(QStringLiteral(" ["), 0, 0);
}

/// What a stranger says of an address beyond this network is not believed.
QString localAddress(const QString &address)
{
    return LocalNetwork::contains(QHostAddress(address)) ? address : QString();
}

} // namespace

MdnsSource::MdnsSource(QObject *parent)
    : ComputerSource(parent)
    , m_bus(QDBusConnection::systemBus())
{}

MdnsSource::~MdnsSource()
{
    for (const QString &browser : std::as_const(m_browsers))
        m_bus.send(call(browser, browserInterface, QStringLiteral("Free")));
}

void MdnsSource::start()
{
    if (!m_bus.isConnected()) {
        finish();
        return;
    }
    auto *service = new QDBusServiceWatcher(avahi, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    on(service, &QDBusServiceWatcher::serviceUnregistered, this, &MdnsSource::finish);
    browse(workstation);
    browse(fileServer);
}

/// Runs \a step with the answer, which may be an error.
template<class Step>
void MdnsSource::ask(const QDBusMessage &question, Step &&step)
{
    ++m_open;
    auto *answer = new QDBusPendingCallWatcher(m_bus.asyncCall(question, answerPatience), this);
    on(answer, &QDBusPendingCallWatcher::finished, this, [answer, step = std::forward<Step>(step), this] {
        answer->deleteLater();
        step(answer->reply());
        settle();
    });
}

void MdnsSource::browse(const QString &type)
{
    ask(call(QStringLiteral("/"), serverInterface + u'2', QStringLiteral("ServiceBrowserPrepare"),
             {anyInterface, anyProtocol, type, QString(), noFlags}),
        [this](const QDBusMessage &reply) {
            const QDBusPendingReply<QDBusObjectPath> browser = reply;
            if (browser.isValid())
                listenTo(browser.value().path());
        });
}

void MdnsSource::listenTo(const QString &browser)
{
    m_hasAsked = true;
    m_browsers << browser;
    ++m_open; // until all are told
    m_bus.connect(avahi, browser, browserInterface, QStringLiteral("ItemNew"), this,
                  SLOT(itemNew(int, int, QString, QString, QString, uint)));
    m_bus.connect(avahi, browser, browserInterface, QStringLiteral("AllForNow"), this, SLOT(allForNow()));
    m_bus.connect(avahi, browser, browserInterface, QStringLiteral("Failure"), this, SLOT(failure(QString)));
    m_bus.send(call(browser, browserInterface, QStringLiteral("Start")));
}

void MdnsSource::itemNew(int interface, int protocol, const QString &name, const QString &type,
                         const QString &domain, uint)
{
    run([&] { resolve({interface, protocol, name, type, domain}); });
}

void MdnsSource::allForNow()
{
    run([&] { settle(); });
}

void MdnsSource::failure(const QString &)
{
    run([&] { settle(); });
}

/// A service may have any name; its host has the computer's.
void MdnsSource::resolve(const Service &service)
{
    const QString key = service.name + u'\n' + service.type;
    if (m_isFinished || m_seen.size() >= mostServices || m_seen.contains(key))
        return;
    m_seen << key;
    ask(call(QStringLiteral("/"), serverInterface, QStringLiteral("ResolveService"),
             {service.interface, service.protocol, service.name, service.type, service.domain, onlyIPv4,
              noFlags}),
        [this, name = service.name](const QDBusMessage &reply) {
            const QVariantList values = reply.arguments();
            if (reply.type() == QDBusMessage::ReplyMessage &&
                reply.signature() == QLatin1String("iissssisqaayu"))
                Q_EMIT found(values.at(5).toString(), localAddress(values.at(7).toString()));
            else
                Q_EMIT found(hostNameIn(name), {});
        });
}

void MdnsSource::settle()
{
    if (--m_open == 0)
        finish();
}

void MdnsSource::finish()
{
    if (!std::exchange(m_isFinished, true))
        Q_EMIT finished(m_hasAsked);
}
