#include "FreeUdpPort.h"

#include <QUdpSocket>

quint16 freeUdpPort()
{
    QUdpSocket socket;
    socket.bind(QHostAddress::LocalHost, 0);
    return socket.localPort();
}

bool isFree(quint16 port)
{
    QUdpSocket socket;
    return socket.bind(QHostAddress::LocalHost, port, QUdpSocket::DontShareAddress);
}
