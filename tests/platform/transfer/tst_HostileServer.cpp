#include "DeafPort.h"
#include "EventGate.h"
#include "FtpServer.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <QDir>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

class HostileServerTest : public testing::Test
{
protected:
    ScratchFolder remote;
    FtpServer server{remote.path()};
    TransferProbe probe{server};
};

} // namespace

TEST_F(HostileServerTest, DataGoesToTheHostOfTheControlConnectionAlone)
{
    QTcpServer stranger;
    ASSERT_TRUE(stranger.listen(QHostAddress(QStringLiteral("127.0.0.2"))));
    bool isVisited = false;
    QObject::connect(&stranger, &QTcpServer::newConnection, &stranger, [&] { isVisited = true; });
    remote.addFile("a");
    server.refuseEpsv();
    server.setPassiveHost("127,0,0,2");
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("a")});
    server.setPassivePort(stranger.serverPort());
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::CannotConnect);
    EXPECT_FALSE(isVisited);
}

TEST_F(HostileServerTest, NoOtherServiceIsReached)
{
    for (const int port : {1, 25, 1023}) {
        server.setPassivePort(quint16(port));
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::InvalidResponse) << port;
        server.refuseEpsv();
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::InvalidResponse) << port;
        server.forgetFault("EPSV");
        probe.session().Cancel();
    }
    EXPECT_EQ(server.commands("MLSD"), QByteArrayList());
}

TEST_F(HostileServerTest, AnExtendedReplyThatNamesNoPortLeavesThePlainOne)
{
    remote.addFile("a");
    for (const char *text : {"229 Entering", "229 (|||)", "229 (|||99999|)", "229 (||1|2000|)",
                             "229 (|||-2000|)", "229 (|||21|)"}) {
        server.reply("EPSV", text);
        EXPECT_EQ(probe.codeOf("DIR"), 0) << text;
        EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("a")});
        probe.session().Cancel();
    }
}

TEST_F(HostileServerTest, APassingRefusalOfTheExtendedPortIsForgotten)
{
    server.reply("EPSV", "425 No more ports.");
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(server.commands("PASV").size(), 1);
    server.forgetFault("EPSV");
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(server.commands("EPSV").size(), 2);
    EXPECT_EQ(server.commands("PASV").size(), 1);
}

TEST_F(HostileServerTest, PassiveRepliesThatNameNoPortAreRefused)
{
    server.refuseEpsv();
    for (const char *text :
         {"227 Entering", "227 (127,0,0,1,999,1)", "227 (127,0,0,1,4)", "227 (1,2,3,4,0,0)"}) {
        server.reply("PASV", text);
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::InvalidResponse) << text;
    }
    server.reply("PASV", "425 No.");
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::Refused);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(HostileServerTest, AnExtendedPortThatIsDeadLeavesThePlainOne)
{
    QTcpSocket closed; // it has the port, but does not listen
    ASSERT_TRUE(closed.bind(QHostAddress(QHostAddress::LocalHost)));
    const quint16 port = closed.localPort();
    remote.addFile("a");
    server.reply("EPSV", "229 Entering (|||" + QByteArray::number(port) + "|)");
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("a")});
    EXPECT_EQ(server.commands("PASV").size(), 1);

    probe.session().Cancel();
    for (const char *text : {"502 Unknown command.", "227 Entering"}) { // the port is what has failed
        server.reply("PASV", text);
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::CannotConnect) << text;
        probe.session().Cancel();
    }
}

TEST_F(HostileServerTest, AListWithoutAnEndIsCutOff)
{
    server.setEndlessListing("type=file; " + QByteArray(20000, 'n'));
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::InvalidResponse);
    EXPECT_EQ(probe.response(), QString());
    server.setEndlessListing(QByteArray(50, 'x')); // no row
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::InvalidResponse);
    EXPECT_EQ(probe.codeOf("CDUP"), 0);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(HostileServerTest, RepliesThatComeToNoEndAreCutOff)
{
    for (const char *line : {"150 Still here.\r\n", "\r\n"}) {
        server.reply("CDUP", QByteArray(line).repeated(200000) + "150 Still here.");
        EXPECT_EQ(probe.codeOf("CDUP"), TransferError::InvalidResponse);
        probe.session().Cancel();
    }
    server.reply("CDUP", QByteArray("150 Still here.\r\n").repeated(1000) + "250 Done.");
    EXPECT_EQ(probe.codeOf("CDUP"), 0);
}

TEST_F(HostileServerTest, ListsOfAllKindsArrive)
{
    server.setListing(QByteArray("type=file; name\r\n").repeated(200000));
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows().size(), 200000);
    server.setListing("type=file; " + QByteArray(1 << 20, 'x') +
                      "\r\ntype=file; same\r\ntype=file; same\r\n"
                      "type=file; no line end");
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(),
              QStringList({QStringLiteral("same"), QStringLiteral("same"), QStringLiteral("no line end")}));
}

TEST_F(HostileServerTest, TheEndOfTheSessionInTheMiddleOfAListIsReported)
{
    remote.addFile("a");
    server.reply(FtpServer::EndOfData, "421 Shutting down.");
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::ConnectionLost);
    EXPECT_EQ(probe.response(), QString());
    EXPECT_EQ(probe.states().mid(probe.states().size() - 2), (QList<int>{10, 11}));
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::ConnectionLost);
}

TEST_F(HostileServerTest, TheEndOfTheSessionInPlaceOfAReplyIsALostConnection)
{
    remote.addFile("a");
    const ScratchFolder local;
    local.addFile("b");
    const struct
    {
        const char *stage;
        QString command;
    } cases[] = {
        {"SIZE", QStringLiteral("SIZE \"a\"")},
        {"RETR", QStringLiteral("GET \"a\" \"%1\\a\"").arg(local.path())},
        {"STOR", QStringLiteral("PUT \"%1\\b\" \"b\"").arg(local.path())},
        {"CWD", QStringLiteral("CD \"a\"")},
        {"OPTS", QStringLiteral("DIR")},
        {"EPSV", QStringLiteral("DIR")},
    };
    for (const auto &row : cases) {
        probe.session().Cancel();
        EXPECT_EQ(probe.codeOf("CDUP"), 0);
        server.reply(row.stage, "421 Shutting down.");
        EXPECT_EQ(probe.codeOf(row.command), TransferError::ConnectionLost) << row.stage;
        EXPECT_EQ(probe.session().ResponseInfo(), TransferError::text(TransferError::ConnectionLost));
        EXPECT_EQ(probe.states().mid(probe.states().size() - 2), (QList<int>{10, 11}));
        EXPECT_EQ(probe.codeOf("CDUP"), TransferError::ConnectionLost) << row.stage;
        server.forgetFault(row.stage);
    }
}

TEST_F(HostileServerTest, AnExtendedPortThatNeverAnswersLeavesThePlainOne)
{
    const DeafPort deaf;
    remote.addFile("a");
    server.reply("EPSV", "229 Entering (|||" + QByteArray::number(deaf.number()) + "|)");
    probe.session().setRequestTimeout(2);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(probe.codeOf("DIR"), 0);
        EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("a")});
    }
    EXPECT_EQ(server.commands("EPSV").size(), 1);
    EXPECT_EQ(server.commands("PASV").size(), 2);
}

TEST_F(HostileServerTest, PortsThatNeverAnswerTimeOut)
{
    const DeafPort deaf;
    server.setPassivePort(deaf.number());
    probe.session().setRequestTimeout(1);
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::TimedOut);
    EXPECT_EQ(server.commands("PASV").size(), 1);
}

/// Another program has taken the port and says what it likes; the server itself has sent nothing.
TEST_F(HostileServerTest, DataOfAListenerThatTookThePortIsNotUsed)
{
    QTcpServer stranger;
    ASSERT_TRUE(stranger.listen(QHostAddress::LocalHost));
    int visits = 0;
    QObject::connect(&stranger, &QTcpServer::newConnection, &stranger, [&] {
        ++visits;
        QTcpSocket *socket = stranger.nextPendingConnection();
        socket->write("type=file; ../x\r\ntype=dir; <b>y</b>\r\n");
        socket->disconnectFromHost();
    });
    const ScratchFolder local;
    server.setPassivePort(stranger.serverPort());
    for (const char *reply : {"425 Cannot open the data connection.", "150 Go on.\r\n426 Nobody has come."}) {
        server.reply("MLSD", reply);
        server.reply("RETR", reply);
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::Refused) << reply;
        EXPECT_EQ(probe.response(), QString());
        EXPECT_EQ(probe.codeOf(QStringLiteral("GET \"a\" \"%1\\a\"").arg(local.path())),
                  TransferError::Refused);
        EXPECT_EQ(QDir(local.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  QStringList());
    }
    EXPECT_EQ(visits, 4);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(HostileServerTest, AnEmptyFolderMayBeARefusal)
{
    for (const char *text : {"450 No files found", "550 No files found."}) {
        server.reply("MLSD", text);
        EXPECT_EQ(probe.codeOf("DIR"), 0) << text;
        EXPECT_EQ(probe.response(), QString());
    }
    for (const char *text : {"550 Permission denied.", "450 Folder is busy."}) {
        server.reply("MLSD", text);
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::Refused) << text;
    }
    EXPECT_EQ(server.commands("LIST"), QByteArrayList());
}

TEST_F(HostileServerTest, AListIsWholeOrNone)
{
    remote.addFile("a");
    server.keepSilent(FtpServer::EndOfData);
    probe.session().setRequestTimeout(1);
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::TimedOut);
    EXPECT_EQ(probe.response(), QString());
    server.forgetFault(FtpServer::EndOfData);
    probe.session().Cancel();
    server.setReplyBeforeData(true);
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("a")});
}

TEST_F(HostileServerTest, RepliesThatNobodyAskedForAreNoAnswers)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    server.sendUnasked("250 Done.\r\n550 Failed.\r\n");
    QTimer looks; // nothing tells when the system has delivered it
    looks.start(1);
    probe.waitFor([this] { return server.isDelivered(); });
    processPendingEvents(); // it is read
    EXPECT_EQ(probe.codeOf("CD \"none\""), TransferError::Refused);
    EXPECT_EQ(probe.codeOf("CDUP"), 0);
    server.sendUnasked(QByteArray("220-line\r\n").repeated(100000));
    probe.waitFor([this] { return probe.states().constLast() == InternetTransfer::Disconnected; });
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::ConnectionLost);
}

TEST_F(HostileServerTest, ASecondReplyToOneRequestIsNoAnswerToTheNext)
{
    remote.addFile("a", "12345");
    server.reply("TYPE", "200 Done.\r\n213 99");
    EXPECT_EQ(probe.codeOf("SIZE \"a\""), 0);
    EXPECT_EQ(probe.response(), QStringLiteral("5"));
}

TEST_F(HostileServerTest, AFloodBehindAReplyEndsTheConnection)
{
    server.reply("TYPE", "200 Done." + QByteArray("\r\n213 99").repeated(250'000));
    EXPECT_EQ(probe.codeOf("SIZE \"a\""), TransferError::InvalidResponse);
    EXPECT_EQ(server.commands("SIZE"), QByteArrayList());
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::ConnectionLost);
}

TEST_F(HostileServerTest, AFloodInsteadOfAReplyEndsTheConnection)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    server.reply("CDUP", QByteArray("250-line\r\n").repeated(1000000));
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::InvalidResponse);
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::ConnectionLost);
}

TEST_F(HostileServerTest, AReplyThatIsNoneIsRefused)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    for (const char *text : {"Hello", "99 x", "350 More?", "600 x"}) {
        server.reply("CDUP", text);
        EXPECT_EQ(probe.codeOf("CDUP"), TransferError::Refused) << text;
        EXPECT_EQ(probe.session().ResponseInfo(), QString::fromUtf8(text));
    }
}

TEST_F(HostileServerTest, TheSizeIsShownAsItCame)
{
    remote.addFile("a");
    server.reply("SIZE", "213 12 %1 <b>");
    EXPECT_EQ(probe.codeOf("SIZE \"a\""), 0);
    EXPECT_EQ(probe.response(), QStringLiteral("12 %1 <b>"));
    server.reply("SIZE", "213");
    EXPECT_EQ(probe.codeOf("SIZE \"a\""), 0);
    EXPECT_EQ(probe.response(), QString());
}
