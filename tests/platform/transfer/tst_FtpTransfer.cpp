#include "DataSink.h"
#include "FtpServer.h"
#include "FtpTransfer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TransferProbe.h"

#include <QSignalSpy>
#include <gtest/gtest.h>
#include <sys/socket.h>

namespace {

using namespace std::chrono_literals;

constexpr int pieceCount = 100;
constexpr qsizetype pieceSize = 65536;

/// Moves data as fast as it can: with each piece the other side is ready for the next one.
class FastTransfer : public FtpTransfer
{
public:
    FastTransfer(bool receives, const DataSink &sink)
        : FtpTransfer(receives ? Direction::Receive : Direction::Send)
        , m_sink(sink)
        , m_verb(receives ? "RETR x" : "STOR x")
    {}

    int pieces() const { return m_pieces; }
    void feed() const
    {
        const QByteArray bytes(pieceSize, 'x');
        ::send(m_sink.socket(), bytes.constData(), size_t(bytes.size()), MSG_DONTWAIT);
    }

protected:
    void start() override { transfer(m_verb); }
    void take(QByteArrayView) override
    {
        if (++m_pieces < pieceCount)
            feed();
        else
            ::shutdown(m_sink.socket(), SHUT_WR);
    }
    QByteArray give() override
    {
        QByteArray bytes(pieceSize, 'x');
        while (::recv(m_sink.socket(), bytes.data(), size_t(bytes.size()), MSG_DONTWAIT) > 0) {
        }
        return ++m_pieces < pieceCount ? bytes : QByteArray();
    }
    void done() override { Q_EMIT finished({}); }

private:
    const DataSink &m_sink;
    QByteArray m_verb;
    int m_pieces = 0;
};

} // namespace

TEST(FtpTransfer, AFastStreamLeavesTurnsToOthers)
{
    const ScratchFolder remote;
    FtpServer server(remote.path());
    FtpConnection connection(ServerAddress::parse(server.address()), "tester", "secret", {}, 10s);
    connection.logOn();
    TransferProbe::waitFor([&] { return connection.isLoggedOn(); });
    for (const bool receives : {true, false}) {
        DataSink sink;
        server.setPassivePort(sink.serverPort());
        server.hold(receives ? "RETR" : "STOR");
        server.reply(receives ? "RETR" : "STOR", "150 Go on.\r\n226 Done.");
        FastTransfer job(receives, sink);
        QSignalSpy finished(&job, &FtpJob::finished);
        job.run(connection);
        TransferProbe::waitFor([&] { return sink.isConnected() && server.isHolding(); });
        if (receives)
            job.feed();
        server.release();

        int before = 0;
        int mostInTurn = 0;
        TransferProbe::waitFor([&] {
            mostInTurn = qMax(mostInTurn, job.pieces() - before);
            before = job.pieces();
            return finished.count() == 1;
        });
        EXPECT_EQ(job.pieces(), pieceCount);
        EXPECT_LE(mostInTurn, 10) << receives;
        job.cleanUp();
    }
}
