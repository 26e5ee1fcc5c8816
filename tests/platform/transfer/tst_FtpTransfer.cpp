#include "DataSink.h"
#include "FtpServer.h"
#include "FtpTransfer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TransferProbe.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <gtest/gtest.h>
#include <sys/socket.h>

namespace {

constexpr int pieceCount = 100;
constexpr qsizetype fedSize = 65536;

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
        const QByteArray bytes(fedSize, 'x');
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
        QByteArray bytes(fedSize, 'x');
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

/// Sends without an end.
class EndlessUpload : public FtpTransfer
{
public:
    EndlessUpload()
        : FtpTransfer(Direction::Send)
    {}

    int pieces() const { return m_pieces; }

protected:
    void start() override { transfer("STOR x"); }
    QByteArray give() override
    {
        ++m_pieces;
        return QByteArray(fedSize, 'x');
    }
    void done() override {}

private:
    int m_pieces = 0;
};

/// Until the system keeps as much as it can, and all acknowledgements of that are noticed.
void fillSystem(EndlessUpload &job)
{
    constexpr int mostTurns = 100'000;
    int before = -1;
    for (int i = 0; before != job.pieces() || job.hasNewAcknowledgement(); ++i) {
        ASSERT_LT(i, mostTurns);
        before = job.pieces();
        QCoreApplication::processEvents();
    }
}

} // namespace

TEST(FtpTransfer, AFastStreamLeavesTurnsToOthers)
{
    const ScratchFolder remote;
    FtpServer server(remote.path());
    FtpConnection connection(TransferProbe::logOnTo(server));
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

/// What the other side takes of the data that the system keeps is a sign of it, each time once.
TEST(FtpTransfer, AnUploadHearsOfItsAcknowledgements)
{
    const ScratchFolder remote;
    FtpServer server(remote.path());
    server.reply("STOR", "150 Go on.");
    DataSink sink;
    server.setPassivePort(sink.serverPort());
    FtpConnection connection(TransferProbe::logOnTo(server));
    connection.logOn();
    TransferProbe::waitFor([&] { return connection.isLoggedOn(); });
    EndlessUpload job;
    job.run(connection);
    TransferProbe::waitFor([&] { return job.pieces() > 0; });
    fillSystem(job);
    sink.readToEnd();
    bool isHeard = false;
    TransferProbe::waitFor([&] { return isHeard = isHeard || job.hasNewAcknowledgement(); });
    job.cleanUp();
    EXPECT_FALSE(job.hasNewAcknowledgement());
}
