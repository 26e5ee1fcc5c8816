#pragma once

#include <QList>
#include <netinet/in.h>
#include <sys/socket.h>

/// A numeric address and a port.
struct SocketAddress
{
    sockaddr_storage storage = {};
    socklen_t length = 0;

    int family() const { return storage.ss_family; }
    const sockaddr *address() const { return reinterpret_cast<const sockaddr *>(&storage); }

    /// The same host at another port.
    SocketAddress withPort(quint16 port) const;
};

using SocketAddresses = QList<SocketAddress>;
