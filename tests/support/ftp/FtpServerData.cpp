#include "FtpServerData.h"

#include <QSslSocket>
#include <gtest/gtest.h>
#include <sys/socket.h>

namespace {

constexpr qint64 fullBuffer = 262144;

} // namespace

FtpServerData::FtpServerData(const QHostAddress &host, const QSslConfiguration &tls, qint64 cutAt)
    : m_tls(tls)
    , m_left(cutAt)
{
    EXPECT_TRUE(listen(host)) << qPrintable(errorString());
}

void FtpServerData::send(std::function<QByteArray()> next)
{
    m_next = std::move(next);
    begin();
}

void FtpServerData::receive(std::function<void(const QByteArray &)> take)
{
    m_take = std::move(take);
    begin();
}

void FtpServerData::incomingConnection(qintptr socket)
{
    if (m_socket) {
        QSslSocket second;
        second.setSocketDescriptor(socket);
        return;
    }
    m_socket = new QSslSocket(this);
    m_socket->setSocketDescriptor(socket);
    connect(m_socket, &QSslSocket::bytesWritten, this, &FtpServerData::sendMore);
    connect(m_socket, &QSslSocket::readyRead, this, &FtpServerData::receiveMore);
    connect(m_socket, &QSslSocket::encrypted, this, &FtpServerData::sendMore);
    connect(m_socket, &QSslSocket::disconnected, this, [this] {
        if (!std::exchange(m_finished, true))
            Q_EMIT finished(m_cut);
    });
    begin();
}

void FtpServerData::begin()
{
    if (!m_socket || (!m_next && !m_take))
        return;
    if (!m_tls.isNull() && m_socket->mode() == QSslSocket::UnencryptedMode) {
        m_socket->setSslConfiguration(m_tls);
        m_socket->startServerEncryption();
        return;
    }
    if (m_socket->state() != QAbstractSocket::ConnectedState)
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT finished(m_cut); }, Qt::QueuedConnection);
    else if (m_next)
        sendMore();
    else
        receiveMore();
}

void FtpServerData::sendMore()
{
    if (!m_tls.isNull() && !m_socket->isEncrypted())
        return;
    while (m_next && m_socket->bytesToWrite() < fullBuffer) {
        QByteArray piece = m_next();
        const bool cuts = m_left >= 0 && piece.size() >= m_left;
        if (cuts)
            piece.truncate(m_left);
        if (m_left >= 0)
            m_left -= piece.size();
        m_socket->write(piece);
        if (piece.isEmpty() || cuts)
            closeConnection(cuts);
    }
}

void FtpServerData::receiveMore()
{
    if (!m_take)
        return;
    QByteArray piece = m_socket->readAll();
    const bool cuts = m_left >= 0 && piece.size() >= m_left;
    if (cuts)
        piece.truncate(m_left);
    if (m_left >= 0)
        m_left -= piece.size();
    m_take(piece);
    if (cuts)
        closeConnection(true);
}

void FtpServerData::closeConnection(bool cut)
{
    m_cut = cut;
    m_next = nullptr;
    m_take = nullptr;
    if (!m_endsAbruptly) {
        m_socket->disconnectFromHost();
        return;
    }
    m_socket->flush();
    ::shutdown(int(m_socket->socketDescriptor()), SHUT_WR);
}
