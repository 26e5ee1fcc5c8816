#include "ControlConnection.h"

#include "EventGate.h"
#include "LoopbackConnection.h"

#include <QHostAddress>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int retryTime = 20;    // milliseconds
constexpr int listenTime = 5000; // milliseconds until the port has to listen

} // namespace

ControlConnection::ControlConnection(QObject *parent)
    : QObject(parent)
{
    m_retry.setSingleShot(true);
    on(&m_retry, &QTimer::timeout, this, &ControlConnection::connectNow);
    on(&m_socket, &QTcpSocket::connected, this, &ControlConnection::connected);
    on(&m_socket, &QTcpSocket::errorOccurred, this, &ControlConnection::failed);
    on(&m_socket, &QTcpSocket::readyRead, this, &ControlConnection::read);
}

void ControlConnection::open(quint16 port, qint64 process)
{
    close();
    m_port = port;
    m_process = process;
    m_time.start();
    connectNow();
}

void ControlConnection::close()
{
    m_isOpen = false;
    m_port = 0;
    m_retry.stop();
    m_reader = {};
    m_socket.abort();
}

void ControlConnection::connectNow()
{
    m_socket.abort();
    m_socket.connectToHost(QHostAddress(QHostAddress::LocalHost), m_port);
}

void ControlConnection::connected()
{
    if (!LoopbackConnection::isServedBy(m_process, m_port, m_socket.localPort())) {
        giveUp();
        return;
    }
    m_isOpen = true;
    Q_EMIT opened();
}

void ControlConnection::failed()
{
    if (m_port == 0)
        return; // closed
    if (!m_isOpen && !m_time.hasExpired(listenTime))
        m_retry.start(retryTime);
    else
        giveUp();
}

void ControlConnection::send(const QString &command, const QString &parameters, const QString &token)
{
    const QJsonObject message{{QStringLiteral("command"), command},
                              {QStringLiteral("params"), parameters},
                              {QStringLiteral("token"), token}};
    const QByteArray text = QJsonDocument(message).toJson(QJsonDocument::Compact);
    m_socket.write(QByteArray::number(text.size()) + ':' + text + ',');
}

void ControlConnection::read()
{
    for (const QByteArray &text : m_reader.add(m_socket.readAll())) {
        if (!m_isOpen)
            return; // closed by who heard of the text before
        take(QJsonDocument::fromJson(text).object());
    }
    if (m_reader.isBroken())
        giveUp();
}

void ControlConnection::take(const QJsonObject &message)
{
    if (message[QStringLiteral("response")].toBool())
        Q_EMIT replied(message[QStringLiteral("token")].toString(), message[QStringLiteral("ok")].toBool(),
                       message[QStringLiteral("data")].toString());
    else if (message[QStringLiteral("event")].toBool())
        Q_EMIT eventCame(message[QStringLiteral("type")].toString(),
                         message[QStringLiteral("direction")] == QStringLiteral("incoming"),
                         message[QStringLiteral("id")].toString(),
                         message[QStringLiteral("param")].toString());
}

void ControlConnection::giveUp()
{
    close();
    Q_EMIT lost();
}
