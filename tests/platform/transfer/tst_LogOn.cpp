#include "ConnectedSocket.h"
#include "FtpServer.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchFolder.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <gtest/gtest.h>
#include <netinet/tcp.h>

namespace {

struct Refusal
{
    const char *name;
    const char *stage;
    const char *reply;
    int code;
};

class LogOnTest : public testing::Test
{
protected:
    ScratchFolder remote;
    FtpServer server{remote.path()};
    TransferProbe probe{server};
};

class RefusedLogOn : public LogOnTest, public testing::WithParamInterface<Refusal>
{};

} // namespace

TEST_P(RefusedLogOn, HasItsCode)
{
    server.reply(GetParam().stage, GetParam().reply);
    EXPECT_EQ(probe.codeOf("DIR"), GetParam().code);
    if (GetParam().code == TransferError::Refused)
        EXPECT_EQ(probe.session().ResponseInfo(), QString::fromUtf8(GetParam().reply));
    else
        EXPECT_EQ(probe.session().ResponseInfo(), TransferError::text(GetParam().code));
    EXPECT_EQ(server.commands("MLSD"), QByteArrayList());

    server.forgetFault(GetParam().stage);
    EXPECT_EQ(probe.codeOf("DIR"), 0); // nobody was logged on, so nothing is lost
    EXPECT_EQ(server.connections(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RefusedLogOn,
    testing::Values(Refusal{"Greeting421", FtpServer::Greeting, "421 Too many users.",
                            TransferError::SessionAborted},
                    Refusal{"Greeting500", FtpServer::Greeting, "500 No.", TransferError::Refused},
                    Refusal{"OtherProtocol", FtpServer::Greeting, "SSH-2.0-OpenSSH", TransferError::Refused},
                    Refusal{"User530", "USER", "530 No.", TransferError::WrongUserName},
                    Refusal{"User421", "USER", "421 Bye.", TransferError::SessionAborted},
                    Refusal{"User500", "USER", "500 No.", TransferError::LogOnFailed},
                    Refusal{"Account", "PASS", "332 Account?", TransferError::LogOnFailed},
                    Refusal{"Password530", "PASS", "530 No.", TransferError::WrongPassword},
                    Refusal{"Password500", "PASS", "500 No.", TransferError::LogOnFailed}),
    RowName());

TEST_F(LogOnTest, WrongNamesAreRefused)
{
    probe.session().setPassword(QStringLiteral("wrong"));
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::WrongPassword);
    EXPECT_EQ(probe.states().mid(probe.states().size() - 2), (QList<int>{10, 11}));
    probe.session().setUserName(QStringLiteral("anonymous"));
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

TEST_F(LogOnTest, NoPasswordIsSentWhereNoneIsAskedFor)
{
    server.reply("USER", "230 Come in.");
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::Refused); // the server knows better
    EXPECT_EQ(server.commands("PASS"), QByteArrayList());
    EXPECT_EQ(server.commands("CDUP").size(), 1);
}

TEST_F(LogOnTest, AServerMayAskForPatience)
{
    server.reply(FtpServer::Greeting, "120 In 1 minute.\r\n220 Ready.");
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

TEST_F(LogOnTest, ALongGreetingIsRead)
{
    server.reply(FtpServer::Greeting, QByteArray("220-line\r\n").repeated(5000) + "220 Ready.");
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

TEST_F(LogOnTest, AFloodOfGreetingsIsRefused)
{
    server.reply(FtpServer::Greeting, QByteArray("220-line\r\n").repeated(1000000));
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::InvalidResponse);
    server.reply(FtpServer::Greeting, "220 " + QByteArray(10 << 20, 'x'));
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::InvalidResponse);
}

TEST_F(LogOnTest, AnUnknownHostIsReported)
{
    probe.session().setRemoteHost(QStringLiteral("no-such-host.invalid"));
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::NameNotResolved);
    EXPECT_EQ(probe.states(), (QList<int>{1, 11}));
}

TEST_F(LogOnTest, AHostIsFoundByItsName)
{
    probe.session().setRemoteHost(QStringLiteral("localhost:%1").arg(server.port()));
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

/// Else a router in between forgets it during a long transfer, in which nothing is sent on it.
TEST_F(LogOnTest, TheConnectionIsKeptAlive)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    const int socket = socketConnectedTo(server.port());
    const auto valueOf = [socket](int level, int option) {
        int value = -1;
        socklen_t size = sizeof value;
        EXPECT_EQ(::getsockopt(socket, level, option, &value, &size), 0);
        return value;
    };
    EXPECT_EQ(valueOf(SOL_SOCKET, SO_KEEPALIVE), 1);
    EXPECT_EQ(valueOf(IPPROTO_TCP, TCP_KEEPIDLE), 30);
    EXPECT_EQ(valueOf(IPPROTO_TCP, TCP_KEEPINTVL), 10);
}

TEST_F(LogOnTest, AServerThatHangsUpBeforeTheLogOnHasResetTheConnection)
{
    for (const char *stage : {FtpServer::Greeting, "USER", "PASS"}) {
        server.dropBefore(stage);
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::ConnectionReset) << stage;
        server.forgetFault(stage);
    }
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}
