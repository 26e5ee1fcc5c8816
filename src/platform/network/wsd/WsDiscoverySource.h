#pragma once

#include "ComputerSource.h"
#include "WsDiscoveryMessage.h"
#include "WsDiscoveryPlace.h"

#include <QNetworkAccessManager>
#include <QSet>
#include <QTimer>
#include <QUdpSocket>

class QNetworkReply;

/// Computers that answer to WS-Discovery: all are asked who is there, who has not said it is asked for its
/// web service's address, and that service for the computer's name. A service is asked only at the address
/// that has answered, at its own port, without following it elsewhere.
class WsDiscoverySource : public ComputerSource
{
    Q_OBJECT

public:
    explicit WsDiscoverySource(const WsDiscoveryPlace &place = {}, QObject *parent = nullptr);

    void start() override;

private:
    bool send(const QByteArray &message);
    void receive();
    void take(const WsDiscoveryMessage::Match &match, const QHostAddress &sender);
    QUrl serviceOf(const WsDiscoveryMessage::Match &match, const QHostAddress &sender) const;
    void get(const QUrl &service, const QString &endpoint);
    void take(QNetworkReply &reply);
    void finishIfQuiet();

    WsDiscoveryPlace m_place;
    QUdpSocket m_socket;
    QNetworkAccessManager m_web;
    QTimer m_quiet;        ///< runs out when nobody has answered for a while
    QSet<QString> m_seen;  ///< endpoints that have been asked for their addresses
    QSet<QString> m_asked; ///< endpoints that have been asked for their names
    int m_open = 0;        ///< names that are still to come
    bool m_isFinished = false;
};
