#include "ConnectedSocket.h"
#include "DeafPort.h"
#include "FileNames.h"
#include "ScratchClock.h"
#include "SocketStream.h"
#include "TestCertificate.h"
#include "TlsContext.h"
#include "TransferProbe.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QSignalSpy>
#include <QSslSocket>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <array>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

SocketAddress loopback(quint16 port)
{
    SocketAddress address;
    auto &ip4 = reinterpret_cast<sockaddr_in &>(address.storage);
    ip4.sin_family = AF_INET;
    ip4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.length = sizeof ip4;
    return address.withPort(port);
}

quint16 portOf(const SocketAddress &address)
{
    return ntohs(reinterpret_cast<const sockaddr_in &>(address.storage).sin_port);
}

/// Accepts one connection, whose other end is a stream, and leaves its bytes in the kernel.
class BareServer : public QTcpServer
{
public:
    BareServer() { EXPECT_TRUE(listen(QHostAddress::LocalHost)); }
    ~BareServer() override { ::close(m_socket); }

    int socket() const { return m_socket; }

    void accept(SocketStream &stream)
    {
        QSignalSpy connected(&stream, &SocketStream::connected);
        stream.connectTo({loopback(serverPort())}, 10s);
        TransferProbe::waitFor([&] { return m_socket >= 0 && connected.count() == 1; });
    }

    /// The server's side of the handshake.
    void encrypt(SocketStream &stream, const TestCertificate &certificate, const TlsContext &context)
    {
        QSslSocket handshake;
        handshake.setSslConfiguration(certificate.configuration());
        EXPECT_TRUE(handshake.setSocketDescriptor(::dup(m_socket)));
        handshake.startServerEncryption();
        QSignalSpy encrypted(&stream, &SocketStream::encrypted);
        stream.encrypt(context, "127.0.0.1", nullptr);
        TransferProbe::waitFor([&] { return handshake.isEncrypted() && encrypted.count() == 1; });
    }

    /// The stream's own end of the connection.
    int socketOfStream() const { return socketConnectedTo(serverPort()); }

    /// All that comes until the stream's end.
    QByteArray readToEnd() const
    {
        QByteArray all;
        QByteArray piece(65536, Qt::Uninitialized);
        for (;;) {
            const ssize_t got = ::recv(m_socket, piece.data(), size_t(piece.size()), MSG_DONTWAIT);
            if (got == 0)
                return all;
            if (got > 0)
                all += piece.first(got);
            else
                QCoreApplication::processEvents();
        }
    }

    /// Closes without reading, so that the stream's next bytes meet nobody.
    void reset()
    {
        const linger noLinger = {1, 0};
        ::setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &noLinger, sizeof noLinger);
        ::close(std::exchange(m_socket, -1));
    }

protected:
    void incomingConnection(qintptr socket) override { m_socket = int(socket); }

private:
    int m_socket = -1;
};

/// Fills what the kernel keeps for the other side; how many bytes that took.
qsizetype fill(int socket)
{
    const QByteArray piece(65536, 'x');
    qsizetype all = 0;
    for (;;) {
        const ssize_t taken = ::send(socket, piece.constData(), size_t(piece.size()), MSG_DONTWAIT);
        if (taken < 0)
            return all;
        all += taken;
    }
}

/// Waits until \a socket knows that the other side is gone. What is written from then on raises the signal.
void awaitReset(int socket)
{
    int error = 0; // the system says it once
    TransferProbe::waitFor([&] {
        socklen_t size = sizeof error;
        return error == ECONNRESET ||
               (::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error != 0);
    });
    EXPECT_EQ(error, ECONNRESET);
}

void writeToConnectionsThatHaveGone()
{
    ::signal(SIGPIPE, SIG_DFL); // Qt may have switched it off
    const TestCertificate certificate;
    const TlsContext context(FileNames::toBytes(certificate.file()));
    for (const bool isEncrypted : {false, true}) {
        BareServer server;
        SocketStream stream;
        server.accept(stream);
        if (isEncrypted)
            server.encrypt(stream, certificate, context);
        const int socket = server.socketOfStream();
        server.reset();
        awaitReset(socket);
        EXPECT_EQ(stream.write("x", 1), StreamResult::Broken);
    }
    std::exit(testing::Test::HasFailure() ? 1 : 0);
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
        {loopback(closed.localPort()), loopback(closed.localPort()), loopback(server.serverPort())}, 10s);
    EXPECT_TRUE(connected.count() == 1 || connected.wait());
    EXPECT_EQ(failed.count(), 0);

    stream.connectTo({loopback(closed.localPort()), loopback(closed.localPort())}, 10s);
    EXPECT_TRUE(failed.count() == 1 || failed.wait());
    EXPECT_EQ(connected.count(), 1);
    EXPECT_FALSE(stream.isOpen());
}

TEST(SocketStream, AddressesThatNeverAnswerShareTheTime)
{
    ScratchClock clock;
    const std::array<DeafPort, 3> deaf;
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const quint16 last = server.serverPort();
    SocketStream stream;
    QSignalSpy connected(&stream, &SocketStream::connected);
    stream.connectTo(
        {loopback(deaf[0].number()), loopback(deaf[1].number()), loopback(deaf[2].number()), loopback(last)},
        8s);
    for (const quint16 next : {deaf[1].number(), deaf[2].number(), last}) {
        clock.advance(1s);
        QCoreApplication::processEvents();
        EXPECT_NE(portOf(stream.remote()), next);
        clock.advance(1500ms); // a quarter of the time is over
        QCoreApplication::processEvents();
        EXPECT_EQ(portOf(stream.remote()), next);
    }
    TransferProbe::waitFor([&] { return connected.count() == 1; });
}

TEST(SocketStream, AnAddressThatNeverAnswersIsLeftSoon)
{
    ScratchClock clock;
    const DeafPort deaf;
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    SocketStream stream;
    QSignalSpy connected(&stream, &SocketStream::connected);
    stream.connectTo({loopback(deaf.number()), loopback(server.serverPort())}, 1h);
    clock.advance(4s);
    QCoreApplication::processEvents();
    EXPECT_EQ(portOf(stream.remote()), deaf.number());
    clock.advance(2s);
    TransferProbe::waitFor([&] { return connected.count() == 1; });
}

/// More is sent before all is acknowledged, and nothing counts back.
TEST(SocketStream, CountsWhatTheOtherSideHasAcknowledged)
{
    SocketStream stream;
    EXPECT_EQ(stream.acknowledged(), 0u);
    BareServer server;
    server.accept(stream);
    const quint64 atFirst = stream.acknowledged();
    const QByteArray data(1 << 20, 'x');
    quint64 sent = 0;
    for (int round = 1; round <= 3; ++round) {
        qint64 taken;
        while ((taken = stream.write(data.constData(), data.size())) > 0)
            sent += quint64(taken);
        const quint64 before = stream.acknowledged();
        EXPECT_LT(before - atFirst, sent);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            QByteArray piece(1 << 20, '\0');
            ::recv(server.socket(), piece.data(), size_t(piece.size()), MSG_DONTWAIT);
            return stream.acknowledged() >= before + (1 << 20);
        }));
    }
}

TEST(SocketStream, TheEndOfEncryptedDataWaitsForRoom)
{
    constexpr char alert = 21; // the type of the record that says so
    const TestCertificate certificate;
    const TlsContext context(FileNames::toBytes(certificate.file()));
    BareServer server;
    SocketStream stream;
    server.accept(stream);
    server.encrypt(stream, certificate, context);

    const qsizetype filled = fill(server.socketOfStream());
    EXPECT_GT(filled, 0);
    stream.finishWriting();
    const QByteArray end = server.readToEnd().mid(filled);
    ASSERT_FALSE(end.isEmpty());
    EXPECT_EQ(end.front(), alert);
}

/// In a process of its own, in which nothing has switched the signal off.
TEST(SocketStream, AConnectionThatHasGoneIsAnErrorAndNoSignal)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(writeToConnectionsThatHaveGone(), testing::ExitedWithCode(0), "");
}
