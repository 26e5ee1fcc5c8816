#include "FreeUdpPort.h"

#include "Files.h"

#include <QUdpSocket>

quint16 freeUdpPort()
{
    QUdpSocket socket;
    socket.bind(QHostAddress::LocalHost, 0);
    return socket.localPort();
}

/// Looked up, as binding the port to try would keep it from a server that starts at this moment.
bool isFree(quint16 port)
{
    const QByteArray end = ':' + QByteArray::number(port, 16).rightJustified(4, '0').toUpper();
    for (const QByteArray &line : Files::read(QStringLiteral("/proc/net/udp")).split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.value(1).endsWith(end))
            return false;
    }
    return true;
}
