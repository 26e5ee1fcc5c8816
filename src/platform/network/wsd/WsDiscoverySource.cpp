#include "WsDiscoverySource.h"

#include "EventGate.h"

#include <QNetworkDatagram>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr auto quietTime = 700ms; // devices wait up to half a second, so that not all answer at once
constexpr auto webPatience = 1500ms;
constexpr qsizetype mostDevices = 500;
constexpr qsizetype longestEndpoint = 200;    // characters
constexpr qsizetype longestReply = 64 * 1024; // bytes
constexpr int httpOk = 200;

} // namespace

WsDiscoverySource::WsDiscoverySource(const WsDiscoveryPlace &place, QObject *parent)
    : ComputerSource(parent)
    , m_place(place)
{
    m_web.setProxy(QNetworkProxy::NoProxy);
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(quietTime);
    on(&m_quiet, &QTimer::timeout, this, &WsDiscoverySource::finishIfQuiet);
    on(&m_socket, &QUdpSocket::readyRead, this, &WsDiscoverySource::receive);
}

void WsDiscoverySource::start()
{
    if (m_socket.bind(QHostAddress(QHostAddress::AnyIPv4), 0) && send(WsDiscoveryMessage::probe()))
        m_quiet.start();
    else
        Q_EMIT finished(false);
}

/// False where no interface took it.
bool WsDiscoverySource::send(const QByteArray &message)
{
    bool isSent = false;
    for (const QNetworkInterface &interface : std::as_const(m_place.interfaces)) {
        m_socket.setMulticastInterface(interface);
        isSent |= m_socket.writeDatagram(message, m_place.group, m_place.port) == message.size();
    }
    return isSent;
}

void WsDiscoverySource::receive()
{
    while (m_socket.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = m_socket.receiveDatagram();
        if (m_isFinished || !LocalNetwork::contains(datagram.senderAddress()))
            continue;
        m_quiet.start();
        for (const WsDiscoveryMessage::Match &match : WsDiscoveryMessage::matches(datagram.data()))
            take(match, datagram.senderAddress());
    }
}

void WsDiscoverySource::take(const WsDiscoveryMessage::Match &match, const QHostAddress &sender)
{
    if (match.endpoint.isEmpty() || match.endpoint.size() > longestEndpoint ||
        m_asked.contains(match.endpoint) || m_seen.size() + m_asked.size() >= mostDevices)
        return;
    if (const QUrl service = serviceOf(match, sender); !service.isEmpty()) {
        m_asked << match.endpoint;
        get(service, match.endpoint);
    } else if (match.addresses.isEmpty() && !m_seen.contains(match.endpoint)) {
        m_seen << match.endpoint;
        send(WsDiscoveryMessage::resolve(match.endpoint));
    }
}

/// The first web service of \a match that is the sender's own; an empty address where there is none.
QUrl WsDiscoverySource::serviceOf(const WsDiscoveryMessage::Match &match, const QHostAddress &sender) const
{
    for (const QString &address : match.addresses) {
        const QUrl url(address, QUrl::StrictMode);
        if (url.scheme() == QLatin1String("http") && url.userInfo().isEmpty() &&
            url.port() == m_place.devicePort && QHostAddress(url.host()) == sender)
            return url;
    }
    return {};
}

void WsDiscoverySource::get(const QUrl &service, const QString &endpoint)
{
    QNetworkRequest request(service);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/soap+xml"));
    request.setRawHeader("Accept-Encoding", "identity"); // nothing that grows when it is read
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setTransferTimeout(webPatience / 1ms);
    ++m_open;
    QNetworkReply *reply = m_web.post(request, WsDiscoveryMessage::get(endpoint));
    reply->setReadBufferSize(longestReply + 1);
    on(reply, &QNetworkReply::readyRead, this, [reply] {
        if (reply->bytesAvailable() > longestReply)
            reply->abort();
    });
    on(reply, &QNetworkReply::finished, this, [this, reply] {
        reply->deleteLater();
        --m_open;
        take(*reply);
        finishIfQuiet();
    });
}

void WsDiscoverySource::take(QNetworkReply &reply)
{
    if (reply.error() != QNetworkReply::NoError ||
        reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != httpOk)
        return;
    const QString name = WsDiscoveryMessage::computer(reply.readAll());
    if (!name.isEmpty())
        Q_EMIT found(name, reply.url().host());
}

void WsDiscoverySource::finishIfQuiet()
{
    if (m_open == 0 && !m_quiet.isActive() && !std::exchange(m_isFinished, true))
        Q_EMIT finished(true);
}
