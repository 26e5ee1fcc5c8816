#include "Files.h"
#include "FtpServer.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <QHostAddress>
#include <QTcpServer>
#include <gtest/gtest.h>

namespace {

class Ip6SessionTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QTcpServer probed;
        if (!probed.listen(QHostAddress::LocalHostIPv6))
            GTEST_SKIP() << "this machine has no ::1: " << qPrintable(probed.errorString());
        server.emplace(remote.path(), QHostAddress::LocalHostIPv6);
        probe.emplace(*server);
        remote.addFile("a", "theirs");
    }
    void TearDown() override
    {
        if (server) {
            EXPECT_EQ(server->commands("PASV"), QByteArrayList()); // its reply has no room for the address
        }
    }

    /// DIR ends with \a code, and works as soon as the server does.
    void expectPassingFailure(int code)
    {
        EXPECT_EQ(probe->codeOf("DIR"), code);
        server->forgetFault("EPSV");
        EXPECT_EQ(probe->codeOf("DIR"), 0);
        EXPECT_EQ(probe->rows(), QStringList{QStringLiteral("a")});
        EXPECT_EQ(server->connections(), 1);
    }

    ScratchFolder remote;
    std::optional<FtpServer> server;
    std::optional<TransferProbe> probe;
};

} // namespace

TEST_F(Ip6SessionTest, FilesGoBothWays)
{
    const ScratchFolder local;
    local.addFile("b", "mine");
    EXPECT_EQ(probe->codeOf(QStringLiteral("GET \"a\" \"%1\\a\"").arg(local.path())), 0);
    EXPECT_EQ(Files::read(local.path() + QStringLiteral("/a")), "theirs");
    EXPECT_EQ(probe->codeOf(QStringLiteral("PUT \"%1\\b\" \"b\"").arg(local.path())), 0);
    EXPECT_EQ(Files::read(remote.path() + QStringLiteral("/b")), "mine");
}

TEST_F(Ip6SessionTest, ARefusalOfThePortPasses)
{
    for (const char *text : {"425 No more ports.", "500 Unknown command.", "522 Use (1)"}) {
        server->reply("EPSV", text);
        expectPassingFailure(TransferError::Refused);
    }
}

TEST_F(Ip6SessionTest, APortThatIsDeadPasses)
{
    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHostIPv6));
    const QByteArray port = QByteArray::number(closed.serverPort());
    closed.close();
    server->reply("EPSV", "229 Entering (|||" + port + "|)");
    expectPassingFailure(TransferError::CannotConnect);
}

TEST_F(Ip6SessionTest, AReplyWithoutAPortPasses)
{
    server->reply("EPSV", "229 Entering");
    expectPassingFailure(TransferError::InvalidResponse);
}
