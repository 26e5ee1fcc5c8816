#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QSslConfiguration>
#include <QTcpServer>
#include <functional>

class QSslSocket;

/// The data connection of one client of an FtpServer: waits for it, then carries one transfer.
class FtpServerData : public QTcpServer
{
    Q_OBJECT

public:
    /// Listens on \a host. Encrypts where \a tls is not null. After \a cutAt bytes, unless that is -1, the
    /// connection is closed.
    FtpServerData(const QHostAddress &host, const QSslConfiguration &tls, qint64 cutAt);

    /// As FtpServer::setEndsAbruptly(), for what is small enough to be sent at once.
    void setEndsAbruptly(bool abruptly) { m_endsAbruptly = abruptly; }
    /// Sends what \a next gives, piece by piece, until it is empty.
    void send(std::function<QByteArray()> next);
    /// Hands each piece to \a take until the client has closed the connection.
    void receive(std::function<void(const QByteArray &)> take);

Q_SIGNALS:
    /// The connection is closed; \a cut where that was done before the end.
    void finished(bool cut);

protected:
    void incomingConnection(qintptr socket) override;

private:
    void begin();
    void sendMore();
    void receiveMore();
    void closeConnection(bool cut);

    QSslConfiguration m_tls;
    QSslSocket *m_socket = nullptr;
    std::function<QByteArray()> m_next;
    std::function<void(const QByteArray &)> m_take;
    qint64 m_left; // until the cut; negative for no cut
    bool m_cut = false;
    bool m_finished = false;
    bool m_endsAbruptly = false;
};
