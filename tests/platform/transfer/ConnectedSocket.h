#pragma once

#include <QtGlobal>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

/// This process's end of a connection to \a port over IPv4; -1 where there is none.
inline int socketConnectedTo(quint16 port)
{
    for (int candidate = 3; candidate < 1024; ++candidate) {
        sockaddr_in remote = {};
        socklen_t length = sizeof remote;
        if (::getpeername(candidate, reinterpret_cast<sockaddr *>(&remote), &length) == 0 &&
            remote.sin_family == AF_INET && ntohs(remote.sin_port) == port)
            return candidate;
    }
    return -1;
}
