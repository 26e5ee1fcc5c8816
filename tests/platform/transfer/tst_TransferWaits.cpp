#include "EventGate.h"
#include "FailingCalls.h"
#include "FtpServer.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "RowName.h"
#include "RuntimeError.h"
#include "ScratchClock.h"
#include "ScratchFolder.h"
#include "SlowLookUp.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <QDir>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <gtest/gtest.h>
#include <sys/socket.h>

namespace {

using namespace std::chrono_literals;
using State = InternetTransfer::State;

class TransferWaitsTest : public testing::Test
{
protected:
    TransferWaitsTest()
    {
        remote.addFile("a", QByteArray(2'000'000, 'x'));
        local.addFile("b", QByteArray(20'000'000, 'x'));
    }

    QString get() const { return QStringLiteral("GET \"a\" \"%1\\a\"").arg(local.path()); }
    QString put() const { return QStringLiteral("PUT \"%1\\b\" \"b\"").arg(local.path()); }
    int localCount() const
    {
        return int(
            QDir(local.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size());
    }
    void runPendingEvents()
    {
        for (int i = 0; i < 20; ++i)
            processPendingEvents();
    }
    /// Waits until a server that was silent for a second is given up by another session.
    void outlastTimeOut()
    {
        ScratchFolder folder;
        FtpServer silent(folder.path());
        silent.keepSilent(FtpServer::Greeting);
        TransferProbe other(silent);
        other.session().setRequestTimeout(1);
        EXPECT_EQ(other.codeOf("DIR"), TransferError::TimedOut);
    }
    /// A file has come, and the disk takes its time.
    void receiveOnSlowDisk(FailingCalls &calls)
    {
        const int before = calls.syncs();
        calls.holdSync(true);
        probe.session().Execute({}, get());
        QTimer looks; // it is another thread that gets there
        looks.start(1);
        probe.waitFor([&] { return calls.syncs() > before; });
    }
    /// A command has begun to look for the server, which takes its time.
    void beginLookUp(const SlowLookUp &lookUps)
    {
        probe.session().setRemoteHost(QStringLiteral("localhost:%1").arg(server.port()));
        probe.start("DIR");
        awaitLookUps(lookUps, 1);
    }
    static void awaitLookUps(const SlowLookUp &lookUps, int count)
    {
        QTimer looks; // it is another thread that gets there
        looks.start(1);
        TransferProbe::waitFor([&] { return lookUps.waiting() == count; });
    }
    template<class Handler>
    void onState(Handler handler)
    {
        on(&probe.session(), &InternetTransfer::StateChanged, &probe.session(), handler);
    }

    ScratchClock clock;
    ScratchFolder remote;
    ScratchFolder local;
    FtpServer server{remote.path()};
    TransferProbe probe{server};
};

/// The stage of the server at which a command is held up.
struct HeldStage
{
    const char *name;
    const char *stage;
    char command; ///< of "L" for DIR, "G" for GET, "P" for PUT
};

class CancelAtStage : public TransferWaitsTest, public testing::WithParamInterface<HeldStage>
{
protected:
    QString command() const
    {
        return GetParam().command == 'L' ? QStringLiteral("DIR") : GetParam().command == 'G' ? get() : put();
    }
};

} // namespace

TEST_P(CancelAtStage, EndsAtOnceAndLeavesNothing)
{
    server.hold(GetParam().stage);
    probe.session().Execute({}, command());
    probe.waitFor([this] { return server.isHolding(); });
    const int localBefore = GetParam().command == 'G' ? localCount() - 1 : localCount();
    EXPECT_TRUE(probe.session().StillExecuting());
    probe.session().Cancel();
    EXPECT_FALSE(probe.session().StillExecuting());
    EXPECT_EQ(localCount(), localBefore);

    probe.forgetStates();
    server.release();
    probe.waitFor([this] { return server.openConnections() == 0; });
    runPendingEvents();
    EXPECT_TRUE(probe.states().isEmpty());
    EXPECT_EQ(probe.session().ResponseCode(), 0);
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

INSTANTIATE_TEST_SUITE_P(Stages, CancelAtStage,
                         testing::Values(HeldStage{"Greeting", FtpServer::Greeting, 'L'},
                                         HeldStage{"User", "USER", 'L'}, HeldStage{"Password", "PASS", 'L'},
                                         HeldStage{"Type", "TYPE", 'L'}, HeldStage{"Facts", "OPTS", 'L'},
                                         HeldStage{"Passive", "EPSV", 'L'}, HeldStage{"List", "MLSD", 'L'},
                                         HeldStage{"ListEnd", FtpServer::EndOfData, 'L'},
                                         HeldStage{"Size", "SIZE", 'G'}, HeldStage{"Receive", "RETR", 'G'},
                                         HeldStage{"ReceiveEnd", FtpServer::EndOfData, 'G'},
                                         HeldStage{"Send", "STOR", 'P'},
                                         HeldStage{"SendEnd", FtpServer::EndOfData, 'P'}),
                         RowName());

TEST_F(TransferWaitsTest, CancelWithinEachStateIsTheEnd)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    const QList<int> all = probe.states();
    for (qsizetype count = 1; count <= all.size(); ++count) {
        TransferProbe other(server);
        qsizetype seen = 0;
        on(&other.session(), &InternetTransfer::StateChanged, &other.session(), [&] {
            if (++seen == count)
                other.session().Cancel();
        });
        other.start("DIR");
        other.wait();
        runPendingEvents();
        EXPECT_EQ(other.states(), all.first(count));
        EXPECT_EQ(other.response(), QString());
        EXPECT_EQ(other.codeOf("CDUP"), 0);
    }
}

TEST_F(TransferWaitsTest, ASessionMayBeDeletedWithinEachState)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    const qsizetype all = probe.states().size();
    for (qsizetype count = 1; count <= all; ++count) {
        TransferProbe other(server);
        qsizetype seen = 0;
        on(&other.session(), &InternetTransfer::StateChanged, &server, [&] {
            if (++seen == count)
                other.destroy();
        });
        other.start("DIR");
        probe.waitFor([&] { return seen == count; });
        runPendingEvents();
        EXPECT_EQ(seen, count);
    }
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(server.openConnections(), 1);
}

TEST_F(TransferWaitsTest, ASessionMayBeDeletedInAWaitOfItsHandler)
{
    bool waits = false;
    on(&probe.session(), &InternetTransfer::StateChanged, &server, [&](int state) {
        if (state != State::Requesting || std::exchange(waits, true))
            return;
        probe.destroy();
        processPendingEvents();
    });
    probe.session().Execute({}, get());
    probe.waitFor([&] { return waits; });
    runPendingEvents();
    EXPECT_EQ(localCount(), 1);
    probe.waitFor([this] { return server.openConnections() == 0; });
}

TEST_F(TransferWaitsTest, DeletingASessionRemovesWhatItReceives)
{
    server.hold(FtpServer::EndOfData);
    probe.session().Execute({}, get());
    probe.waitFor([this] { return server.isHolding(); });
    EXPECT_EQ(localCount(), 2);
    probe.destroy();
    EXPECT_EQ(localCount(), 1);
}

TEST_F(TransferWaitsTest, AHandlerThatWaitsGetsTheFollowingStates)
{
    onState([&](int state) {
        if (state == State::Connecting)
            probe.waitFor([&] { return probe.states().constLast() == State::ResponseCompleted; });
    });
    probe.start("DIR");
    probe.wait();
    EXPECT_EQ(probe.states().first(4), (QList<int>{1, 2, 3, 4}));
    EXPECT_EQ(probe.states().constLast(), State::ResponseCompleted);
}

TEST_F(TransferWaitsTest, ItExecutesUntilItsLastHandlerHasReturned)
{
    QString response;
    int refused = 0;
    onState([&](int state) {
        if (state != State::ResponseCompleted)
            return;
        EXPECT_TRUE(probe.session().StillExecuting());
        response += probe.session().GetChunk(1);
        processPendingEvents();
        try {
            probe.start("CDUP"); // as a click in the middle of the loop over the pieces
        } catch (const RuntimeError &error) {
            refused = error.number();
        }
        response += probe.session().GetChunk(4096);
    });
    probe.start("SIZE \"a\"");
    probe.wait();
    EXPECT_EQ(refused, TransferError::InProgress);
    EXPECT_EQ(response, QStringLiteral("2000000"));
    EXPECT_FALSE(probe.session().StillExecuting());
}

TEST_F(TransferWaitsTest, AHandlerMayCancelAndLogOnAgain)
{
    bool again = false;
    onState([&](int state) {
        if (state != State::ResponseCompleted || std::exchange(again, true))
            return;
        probe.session().Cancel();
        EXPECT_FALSE(probe.session().StillExecuting());
        probe.start("SIZE \"a\"");
    });
    probe.start("DIR");
    probe.waitFor([&] { return again && !probe.session().StillExecuting(); });
    EXPECT_EQ(probe.response(), QStringLiteral("2000000"));
    EXPECT_EQ(server.connections(), 2);
}

TEST_F(TransferWaitsTest, CancelKeepsTheCodeAndDropsTheResponse)
{
    EXPECT_EQ(probe.codeOf("CD \"none\""), TransferError::Refused);
    probe.session().Cancel();
    EXPECT_EQ(probe.session().ResponseCode(), TransferError::Refused);
    EXPECT_EQ(probe.session().ResponseInfo(), QStringLiteral("550 Failed."));
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    probe.session().Cancel();
    EXPECT_EQ(probe.response(), QString());
    probe.session().Cancel();
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

TEST_F(TransferWaitsTest, AConnectionDroppedInBetweenStaysLostUntilCancel)
{
    remote.addFolder("sub");
    remote.addFile("sub/a");
    EXPECT_EQ(probe.codeOf("CD \"sub\""), 0);
    probe.forgetStates();
    server.dropConnections();
    probe.waitFor([this] { return !probe.states().isEmpty(); });
    EXPECT_EQ(probe.states(), QList<int>{State::Disconnected});
    server.forgetCommands();
    for (const char *command : {"DELETE \"a\"", "DIR", "DELETE \"a\""}) {
        EXPECT_EQ(probe.codeOf(command), TransferError::ConnectionLost) << command;
        EXPECT_EQ(probe.states().constLast(), State::Error);
    }
    EXPECT_EQ(server.commands(), QByteArrayList());
    EXPECT_EQ(server.connections(), 1);
    probe.session().Cancel();
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), QStringList({QStringLiteral("a"), QStringLiteral("sub/")}));
}

TEST_F(TransferWaitsTest, CloseMakesAWayForANewLogOnToo)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    server.dropConnections("421 Idle for too long.");
    probe.waitFor([this] { return probe.states().constLast() == State::Disconnected; });
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::ConnectionLost);
    probe.forgetStates();
    EXPECT_EQ(probe.codeOf("CLOSE"), 0);
    EXPECT_EQ(probe.states(), QList<int>{State::ResponseCompleted});
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.codeOf("CLOSE"), 0);
    probe.waitFor([this] { return server.openConnections() == 0; });
    EXPECT_EQ(server.commands("QUIT").size(), 1);
}

TEST_F(TransferWaitsTest, ADropInTheMiddleIsReportedWithTheState)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    for (const char *stage : {"CDUP", "OPTS", "MLSD"}) {
        probe.session().Cancel();
        EXPECT_EQ(probe.codeOf("SIZE \"a\""), 0);
        probe.forgetStates();
        server.dropBefore(stage);
        EXPECT_EQ(probe.codeOf(QByteArray(stage) == "CDUP" ? "CDUP" : "DIR"), TransferError::ConnectionLost);
        EXPECT_EQ(probe.states().mid(probe.states().size() - 2), (QList<int>{10, 11}));
        server.forgetFault(stage);
    }
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::ConnectionLost);
}

TEST_F(TransferWaitsTest, AServerThatClosesAfterItsReplyHasReplied)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    server.dropAfter("CDUP");
    EXPECT_EQ(probe.codeOf("CDUP"), 0);
    probe.waitFor([this] { return probe.states().constLast() == State::Disconnected; });
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::ConnectionLost);
}

TEST_F(TransferWaitsTest, ASilentServerTimesOut)
{
    probe.session().setRequestTimeout(1);
    for (const char *stage : {FtpServer::Greeting, "PASS", "OPTS", "EPSV"}) {
        server.keepSilent(stage);
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::TimedOut) << stage;
        server.forgetFault(stage);
        probe.session().Cancel();
    }
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    server.keepSilent("CDUP");
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::TimedOut);
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::ConnectionLost);
}

/// The end of a data connection that is not read yet is no sign of the server.
TEST_F(TransferWaitsTest, ASilentServerWhoseDataHasEndedTimesOut)
{
    QTcpServer data;
    ASSERT_TRUE(data.listen(QHostAddress::LocalHost));
    QObject::connect(&data, &QTcpServer::newConnection, [&] { data.nextPendingConnection()->close(); });
    server.setPassivePort(data.serverPort());
    server.keepSilent("MLSD");
    probe.session().setRequestTimeout(1);
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::TimedOut);
}

/// Data that does not go on is no sign of the server either, and what has come of it is not used.
TEST_F(TransferWaitsTest, ASilentServerInTheMiddleOfItsDataTimesOut)
{
    QTcpServer data;
    ASSERT_TRUE(data.listen(QHostAddress::LocalHost));
    QObject::connect(&data, &QTcpServer::newConnection,
                     [&] { data.nextPendingConnection()->write("type=file; name\r\n"); });
    server.setPassivePort(data.serverPort());
    probe.session().setRequestTimeout(1);
    for (const auto &[stage, command] :
         {std::pair("MLSD", QStringLiteral("DIR")), std::pair("RETR", get())}) {
        server.reply(stage, "150 Here it comes.");
        EXPECT_EQ(probe.codeOf(command), TransferError::TimedOut) << stage;
        EXPECT_EQ(probe.response(), QString());
        EXPECT_EQ(localCount(), 1);
        probe.session().Cancel();
    }
}

/// A slow line takes long to empty what the kernel keeps of an upload; nothing else is heard meanwhile.
TEST_F(TransferWaitsTest, AnUploadThatIsTakenSlowlyGoesOn)
{
    constexpr int size = 600'000;
    local.addFile("b", QByteArray(size, 'x'));
    QTcpServer data;
    ASSERT_TRUE(data.listen(QHostAddress::LocalHost));
    const int window = 8192;
    ::setsockopt(int(data.socketDescriptor()), SOL_SOCKET, SO_RCVBUF, &window, sizeof window);
    server.setPassivePort(data.serverPort());
    server.reply("STOR", "150 Go on.");

    int taken = 0;
    QTimer slow;
    QObject::connect(&data, &QTcpServer::newConnection, [&] {
        QTcpSocket *socket = data.nextPendingConnection();
        socket->setReadBufferSize(window);
        QObject::connect(&slow, &QTimer::timeout, socket, [&, socket] {
            taken += int(socket->read(window).size());
            if (taken == size)
                server.sendUnasked("226 Done.\r\n");
        });
        slow.start(4 * 1000 * window / size); // four times the time-out
    });
    probe.session().setRequestTimeout(1);
    EXPECT_EQ(probe.codeOf(put()), 0);
    EXPECT_EQ(taken, size);
}

TEST_F(TransferWaitsTest, CancelDoesNotWaitForALookUp)
{
    SlowLookUp lookUps;
    beginLookUp(lookUps);
    probe.session().Cancel();
    EXPECT_FALSE(probe.session().StillExecuting());
    EXPECT_EQ(lookUps.waiting(), 1);
    probe.forgetStates();
    lookUps.release();
    awaitLookUps(lookUps, 0);
    runPendingEvents();
    EXPECT_TRUE(probe.states().isEmpty());
    EXPECT_EQ(server.connections(), 0);
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

TEST_F(TransferWaitsTest, ASlowLookUpTimesOut)
{
    SlowLookUp lookUps;
    probe.session().setRequestTimeout(1);
    beginLookUp(lookUps);
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), TransferError::TimedOut);
    EXPECT_EQ(probe.states(), (QList<int>{State::ResolvingHost, State::Error}));
    lookUps.release();
    awaitLookUps(lookUps, 0);
    runPendingEvents();
    EXPECT_EQ(probe.states().size(), 2);
    EXPECT_EQ(server.connections(), 0);
    EXPECT_EQ(probe.codeOf("DIR"), 0); // nobody was logged on, so nothing is lost
}

TEST_F(TransferWaitsTest, NothingTimesOutAfterCancel)
{
    probe.session().setRequestTimeout(1);
    server.keepSilent("MLSD");
    probe.start("DIR");
    probe.waitFor([this] { return !server.commands("MLSD").isEmpty(); });
    probe.session().Cancel();
    probe.forgetStates();
    outlastTimeOut();
    EXPECT_TRUE(probe.states().isEmpty());
}

TEST_F(TransferWaitsTest, ASlowDiskDoesNotTimeOut)
{
    FailingCalls calls;
    probe.session().setRequestTimeout(1);
    receiveOnSlowDisk(calls);
    outlastTimeOut();
    EXPECT_TRUE(probe.session().StillExecuting());
    calls.holdSync(false);
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), 0);
    EXPECT_EQ(localCount(), 2);
    EXPECT_EQ(probe.codeOf("CDUP"), 0);
}

TEST_F(TransferWaitsTest, AFileThatHasComeNeedsNoConnection)
{
    FailingCalls calls;
    receiveOnSlowDisk(calls);
    server.dropConnections();
    probe.waitFor([this] { return probe.states().constLast() == State::Disconnected; });
    EXPECT_TRUE(probe.session().StillExecuting());
    calls.holdSync(false);
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), 0);
    EXPECT_EQ(localCount(), 2);
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::ConnectionLost);
}

/// The program itself was too busy to read it: it comes in the same turn of the event loop as the time-out.
TEST_F(TransferWaitsTest, AReplyThatWaitsToBeReadIsInTime)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    probe.session().setRequestTimeout(1);
    server.keepSilent("CDUP");
    probe.start("CDUP");
    probe.waitFor([this] { return !server.commands("CDUP").isEmpty(); });
    QTimer::singleShot(1, &server, [this] { server.sendUnasked("250 Done.\r\n"); });
    clock.advance(2s);
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), 0);
}

TEST_F(TransferWaitsTest, AServerThatTakesNoDataTimesOut)
{
    probe.session().setRequestTimeout(1);
    server.hold("STOR");
    EXPECT_EQ(probe.codeOf(put()), TransferError::TimedOut);
}

TEST_F(TransferWaitsTest, TheSessionNeverHoldsUpTheEventLoop)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    server.hold(FtpServer::EndOfData); // the reply that the other side has to be asked for again and again
    for (const QString &command : {get(), put(), QStringLiteral("DIR")}) {
        probe.session().Execute({}, command);
        probe.waitFor([this] { return server.isHolding(); });
        runPendingEvents();
        EXPECT_TRUE(probe.session().StillExecuting());
        server.release();
        server.hold(FtpServer::EndOfData);
        probe.wait();
        EXPECT_EQ(probe.session().ResponseCode(), 0);
    }
}

/// The server sends something each half a minute, which is no silence.
TEST_F(TransferWaitsTest, AListThatTakesTooLongEnds)
{
    using namespace std::chrono_literals;
    for (const auto &[minutes, code] : {std::pair(9, 0), std::pair(11, int(TransferError::TimedOut))}) {
        server.setListing("type=file; a\r\n");
        server.hold("MLSD");
        probe.start("DIR");
        probe.waitFor([this] { return server.isHolding(); });
        for (int i = 0; i < 2 * minutes; ++i) {
            server.sendUnasked("150-wait\r\n");
            probe.waitFor([this] { return server.isDelivered(); });
            runPendingEvents();
            clock.advance(30s);
        }
        server.release();
        probe.wait();
        EXPECT_EQ(probe.session().ResponseCode(), code) << minutes;
        probe.session().Cancel();
        probe.forgetStates();
    }
}
