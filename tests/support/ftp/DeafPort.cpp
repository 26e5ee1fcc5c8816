#include "DeafPort.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

DeafPort::DeafPort()
    : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    , m_waiting(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    EXPECT_EQ(::bind(m_listener, generic, length), 0);
    EXPECT_EQ(::listen(m_listener, 0), 0);
    EXPECT_EQ(::getsockname(m_listener, generic, &length), 0);
    EXPECT_EQ(::connect(m_waiting, generic, length), 0); // nobody accepts it: the queue is full
    m_number = ntohs(address.sin_port);
}

DeafPort::~DeafPort()
{
    ::close(m_waiting);
    ::close(m_listener);
}
