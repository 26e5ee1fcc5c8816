#pragma once

#include "LocalNetwork.h"

#include <QHostAddress>
#include <QNetworkInterface>

/// Where the devices of WS-Discovery listen; tests have places of their own.
struct WsDiscoveryPlace
{
    QList<QNetworkInterface> interfaces = LocalNetwork::interfaces();
    QHostAddress group = QHostAddress(QStringLiteral("239.255.255.250"));
    quint16 port = 3702;
    quint16 devicePort = 5357;
};
