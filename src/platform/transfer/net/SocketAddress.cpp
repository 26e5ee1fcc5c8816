#include "SocketAddress.h"

#include <QtEndian>

SocketAddress SocketAddress::withPort(quint16 port) const
{
    SocketAddress other = *this;
    if (family() == AF_INET6)
        reinterpret_cast<sockaddr_in6 *>(&other.storage)->sin6_port = qToBigEndian(port);
    else
        reinterpret_cast<sockaddr_in *>(&other.storage)->sin_port = qToBigEndian(port);
    return other;
}
