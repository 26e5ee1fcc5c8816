#include "SocketStream.h"

#include <QHostAddress>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <gtest/gtest.h>

namespace {

SocketAddress loopback(quint16 port)
{
    SocketAddress address;
    auto &ip4 = reinterpret_cast<sockaddr_in &>(address.storage);
    ip4.sin_family = AF_INET;
    ip4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.length = sizeof ip4;
    return address.withPort(port);
}

} // namespace

TEST(SocketStream, TriesOneAddressAfterTheOther)
{
    QTcpSocket closed; // it has the port, but does not listen
    ASSERT_TRUE(closed.bind(QHostAddress(QHostAddress::LocalHost)));
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));

    SocketStream stream;
    QSignalSpy connected(&stream, &SocketStream::connected);
    QSignalSpy failed(&stream, &SocketStream::connectFailed);
    stream.connectTo(
        {loopback(closed.localPort()), loopback(closed.localPort()), loopback(server.serverPort())});
    EXPECT_TRUE(connected.count() == 1 || connected.wait());
    EXPECT_EQ(failed.count(), 0);

    stream.connectTo({loopback(closed.localPort()), loopback(closed.localPort())});
    EXPECT_TRUE(failed.count() == 1 || failed.wait());
    EXPECT_EQ(connected.count(), 1);
    EXPECT_FALSE(stream.isOpen());
}
