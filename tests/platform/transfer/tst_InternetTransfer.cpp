#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "FtpServer.h"
#include "HostileNames.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

class InternetTransferTest : public testing::Test
{
protected:
    bool has(const QByteArray &name) const { return ::access(remote.file(name).constData(), F_OK) == 0; }

    ScratchFolder remote;
    FtpServer server{remote.path()};
    TransferProbe probe{server};
};

QList<int> repeated(QList<int> states, const QList<int> &more, int times)
{
    for (int i = 0; i < times; ++i)
        states += more;
    return states;
}

} // namespace

TEST_F(InternetTransferTest, ReportsItsStatesInOrder)
{
    remote.addFile("a", "x");
    EXPECT_EQ(probe.run("DIR"), InternetTransfer::ResponseCompleted);
    // Greeting, then USER, PASS, TYPE, OPTS, EPSV and MLSD.
    EXPECT_EQ(probe.states(), repeated({1, 2, 3, 4, 7, 8}, {5, 6, 7, 8}, 6) + QList<int>{12});
    EXPECT_EQ(server.commands(),
              (QByteArrayList{"USER tester", "PASS secret", "TYPE A", "OPTS MLST type;", "EPSV", "MLSD"}));

    probe.forgetStates();
    EXPECT_EQ(probe.run("DIR"), InternetTransfer::ResponseCompleted); // EPSV and MLSD
    EXPECT_EQ(probe.states(), repeated({}, {5, 6, 7, 8}, 2) + QList<int>{12});

    probe.forgetStates();
    EXPECT_EQ(probe.run("SIZE \"a\""), InternetTransfer::ResponseCompleted);
    EXPECT_EQ(probe.states(), repeated({}, {5, 6, 7, 8}, 2) + QList<int>{12});
    probe.forgetStates();
    EXPECT_EQ(probe.run("DELETE \"none\""), InternetTransfer::Error);
    EXPECT_EQ(probe.states(), (QList<int>{5, 6, 7, 8, 11}));
    probe.forgetStates();
    EXPECT_EQ(probe.run("CLOSE"), InternetTransfer::ResponseCompleted);
    EXPECT_EQ(probe.states(), (QList<int>{9, 10, 12}));
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(InternetTransferTest, EveryCommandActsInTheCurrentFolder)
{
    EXPECT_EQ(probe.codeOf("MKDIR \"a b\""), 0);
    EXPECT_EQ(probe.codeOf("CD \"a b/\""), 0);
    EXPECT_EQ(probe.codeOf("MKDIR \"inner\""), 0);
    EXPECT_TRUE(has("a b/inner"));
    remote.addFile("a b/file", "12345");
    EXPECT_EQ(probe.codeOf("SIZE \"file\""), 0);
    EXPECT_EQ(probe.response(), QStringLiteral("5"));
    EXPECT_EQ(probe.codeOf("RENAME \"file\" \"new file\""), 0);
    EXPECT_EQ(probe.codeOf("RENAME \"inner/\" \"i\""), 0);
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), QStringList({QStringLiteral("i/"), QStringLiteral("new file")}));
    EXPECT_EQ(probe.codeOf("DELETE \"new file\""), 0);
    EXPECT_EQ(probe.codeOf("RMDIR \"i/\""), 0);
    EXPECT_EQ(probe.codeOf("CDUP"), 0);
    EXPECT_EQ(probe.response(), QString());
    EXPECT_EQ(probe.codeOf("RMDIR \"a b/\""), 0);
    EXPECT_FALSE(has("a b"));
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.response(), QString());
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(InternetTransferTest, ARefusalHasTheServersWholeReply)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    server.reply("DELE", "550-No.\r\n %s %1 <b>\r\n550 Not at all.");
    EXPECT_EQ(probe.codeOf("DELETE \"a\""), TransferError::Refused);
    EXPECT_EQ(probe.session().ResponseInfo(), QStringLiteral("550-No.\r\n %s %1 <b>\r\n550 Not at all."));
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.session().ResponseInfo(), QString());
    server.reply("RNFR", "450 Busy.");
    EXPECT_EQ(probe.codeOf("RENAME \"a\" \"b\""), TransferError::Refused);
    EXPECT_EQ(server.commands("RNTO"), QByteArrayList());
    server.reply("CWD", QByteArray("550 a\0b\x1b\xff", 9));
    EXPECT_EQ(probe.codeOf("CD \"x\""), TransferError::Refused);
    EXPECT_EQ(probe.session().ResponseInfo().size(), 9);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(InternetTransferTest, TheResponseComesInPieces)
{
    for (int i = 10; i < 40; ++i)
        remote.addFile("file" + QByteArray::number(i));
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.session().GetChunk(0), QString());
    EXPECT_EQ(probe.session().GetChunk(10), QStringLiteral("file10\r\nfi"));
    EXPECT_EQ(probe.response(7).size(), 30 * 8 - 10);
    EXPECT_EQ(probe.session().GetChunk(4096), QString());
}

TEST_F(InternetTransferTest, DotRowsComeAsTheyAreSent)
{
    server.setDotRows(true);
    remote.addFolder("sub");
    const QStringList rows = {QStringLiteral("./"), QStringLiteral("../"), QStringLiteral("sub/")};
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), rows);
    probe.session().Cancel();
    server.refuseMlsd();
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), rows);
    EXPECT_EQ(probe.codeOf("CD \"../\""), 0);
    EXPECT_EQ(server.commands("CWD"), QByteArrayList{"CWD .."});
}

TEST_F(InternetTransferTest, WhatTheServerLacksIsRememberedForItsConnectionAlone)
{
    server.refuseMlsd();
    server.refuseEpsv();
    remote.addFile("a");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(probe.codeOf("DIR"), 0);
        EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("a")});
    }
    EXPECT_EQ(server.commands("MLSD").size(), 1);
    EXPECT_EQ(server.commands("EPSV").size(), 1);
    EXPECT_EQ(server.commands("LIST").size(), 2);
    EXPECT_EQ(server.commands("OPTS").size(), 1);
    EXPECT_EQ(server.commands("TYPE").size(), 1);

    FtpServer other(remote.path());
    probe.session().Cancel();
    probe.session().setRemoteHost(other.address());
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(other.commands("MLSD").size(), 1);
    EXPECT_EQ(other.commands("EPSV").size(), 1);
    EXPECT_EQ(other.commands("LIST").size(), 0);
}

TEST_F(InternetTransferTest, AServerMayRefuseToLeaveFactsAway)
{
    remote.addFolder("sub");
    for (const char *reply :
         {"500 Unknown command.", "501 No such option.", "451 Not now.", "332 Account?"}) {
        server.forgetCommands();
        server.reply("OPTS", reply);
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(probe.codeOf("DIR"), 0) << reply;
            EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("sub/")});
        }
        EXPECT_EQ(server.commands("OPTS"), QByteArrayList{"OPTS MLST type;"}) << reply;
        EXPECT_EQ(server.commands("MLSD").size(), 2);
        probe.session().Cancel();
    }
}

/// Its MLSD would list folders like files.
TEST_F(InternetTransferTest, AServerThatLeavesTheTypeAwayIsAskedByList)
{
    remote.addFolder("sub");
    for (const char *reply : {"200 MLST OPTS", "200 MLST OPTS size;modify;"}) {
        server.forgetCommands();
        server.reply("OPTS", reply);
        server.setListing(" sub\r\n");
        EXPECT_EQ(probe.codeOf("DIR"), 0) << reply;
        EXPECT_EQ(server.commands("MLSD").size(), 0) << reply;
        EXPECT_EQ(server.commands("LIST").size(), 1) << reply;
        probe.session().Cancel();
    }
    server.reply("OPTS", "200 MLST OPTS Type;");
    server.setListing({});
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("sub/")});
}

TEST_F(InternetTransferTest, NoNameBecomesASecondCommand)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    server.forgetCommands();
    for (const char *command :
         {"DELETE \"a\r\nDELE b\"", "CD \"a\nDELE b\"", "MKDIR \"a\rb\"", "RMDIR \"\"",
          "RENAME \"a\" \"b\r\nDELE c\"", "SIZE \"\"", "NOOP", "GET \"a\nb\" \"/tmp\\a\nb\""}) {
        EXPECT_EQ(probe.codeOf(command), TransferError::InvalidParameter) << command;
    }
    EXPECT_EQ(server.commands(), QByteArrayList());
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(InternetTransferTest, NoPropertyBecomesASecondCommand)
{
    for (const QString &bad : {QStringLiteral("a\r\nDELE b"), QStringLiteral("a\nb"), QStringLiteral("a\rb"),
                               QStringLiteral("a") + QChar(u'\0') + u'b'}) {
        TransferProbe user(server);
        user.session().setUserName(bad);
        EXPECT_EQ(user.codeOf("DIR"), TransferError::InvalidParameter);
        TransferProbe password(server);
        password.session().setPassword(bad);
        EXPECT_EQ(password.codeOf("DIR"), TransferError::InvalidParameter);
        EXPECT_EQ(errorNumberOf([&] { user.session().setRemoteHost(bad); }), TransferError::InvalidUrl);
    }
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(InternetTransferTest, HostileNamesReachTheServerByteForByte)
{
    for (const HostileName &name : HostileNames::files()) {
        if (name.bytes.contains('\n') || name.bytes.contains('\r'))
            continue;
        remote.addFile(name.bytes, "12");
        EXPECT_EQ(probe.codeOf("DIR"), 0);
        EXPECT_EQ(probe.rows(), QStringList{name.text()}) << name.what;
        EXPECT_EQ(probe.codeOf(QStringLiteral("SIZE \"") + name.text() + u'"'), 0) << name.what;
        EXPECT_EQ(probe.response(), QStringLiteral("2"));
        EXPECT_EQ(probe.codeOf(QStringLiteral("RENAME \"") + name.text() + QStringLiteral("\" \"x\"")), 0);
        EXPECT_EQ(probe.codeOf(QStringLiteral("RENAME \"x\" \"") + name.text() + u'"'), 0);
        EXPECT_EQ(probe.codeOf(QStringLiteral("DELETE \"") + name.text() + u'"'), 0) << name.what;
        EXPECT_FALSE(has(name.bytes)) << name.what;
    }
}

TEST_F(InternetTransferTest, FoldersOfOddNamesOpen)
{
    for (const char *name :
         {"a\"b", "a\\b", " leading", "trailing ", "a -> b", "caf\xe9", "\xff", "-rf", "a\" \"b"}) {
        remote.addFolder(name);
        EXPECT_EQ(probe.codeOf("DIR"), 0);
        const QStringList rows = probe.rows();
        ASSERT_EQ(rows.size(), 1) << name;
        EXPECT_EQ(probe.codeOf(QStringLiteral("CD \"") + rows.constFirst() + u'"'), 0) << name;
        EXPECT_EQ(probe.codeOf("CDUP"), 0);
        EXPECT_EQ(probe.codeOf(QStringLiteral("RMDIR \"") + rows.constFirst() + u'"'), 0) << name;
        EXPECT_FALSE(has(name)) << name;
    }
}

TEST_F(InternetTransferTest, AServerThatCannotBeReadIsRefusedAndLeavesNone)
{
    const struct
    {
        const char *text;
        int number;
    } cases[] = {
        {"two words", TransferError::InvalidUrl},
        {"http://127.0.0.1/", TransferError::UnknownScheme},
        {"ftp://", TransferError::InvalidUrl},
        {" ", TransferError::InvalidUrl},
    };
    for (const auto &row : cases) {
        TransferProbe other(server);
        EXPECT_EQ(errorNumberOf([&] { other.session().setRemoteHost(QString::fromUtf8(row.text)); }),
                  row.number);
        EXPECT_EQ(other.session().RemoteHost(), QString());
        for (const char *command : {"DIR", "PUT \"/tmp\\a\" \"a\"", "DELETE \"\"", "CLOSE"}) {
            EXPECT_EQ(errorNumberOf([&] { other.start(command); }), 0) << command;
            EXPECT_TRUE(other.session().StillExecuting());
            other.wait();
            EXPECT_EQ(other.session().ResponseCode(), TransferError::ConnectionLost) << command;
        }
        EXPECT_EQ(other.states(), QList<int>(4, InternetTransfer::Error));
        other.session().setRemoteHost(server.address());
        EXPECT_EQ(other.codeOf("DIR"), 0);
    }
}

TEST_F(InternetTransferTest, AServerThatCannotBeReadLeavesTheConnectionThatThereIs)
{
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(errorNumberOf([&] { probe.session().setRemoteHost(QStringLiteral("two words")); }),
              TransferError::InvalidUrl);
    EXPECT_EQ(probe.codeOf("CDUP"), 0);
    probe.session().Cancel();
    EXPECT_EQ(probe.codeOf("CDUP"), TransferError::ConnectionLost);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(InternetTransferTest, AServerThatRefusesConnectionsIsReported)
{
    probe.session().setRemoteHost(QStringLiteral("ftp://127.0.0.1:1/"));
    probe.start("DIR");
    EXPECT_TRUE(probe.session().StillExecuting());
    EXPECT_TRUE(probe.states().isEmpty());
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), TransferError::CannotConnect);
    EXPECT_EQ(probe.states(), (QList<int>{1, 2, 3, 11}));
}

TEST_F(InternetTransferTest, WithoutAServerThereIsNoConnection)
{
    InternetTransfer session;
    QList<int> states;
    on(&session, &InternetTransfer::StateChanged, &session, [&](int state) { states.append(state); });
    session.Execute({}, QStringLiteral("PUT \"/tmp\\a\" \"a\""));
    EXPECT_TRUE(states.isEmpty());
    EXPECT_TRUE(session.StillExecuting());
    while (session.StillExecuting())
        processPendingEvents();
    EXPECT_EQ(states, QList<int>{InternetTransfer::Error});
    EXPECT_EQ(session.ResponseCode(), TransferError::ConnectionLost);
}

TEST_F(InternetTransferTest, OneCommandAtATime)
{
    probe.start("DIR");
    EXPECT_EQ(errorNumberOf([&] { probe.start("DIR"); }), TransferError::InProgress);
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), 0);
    EXPECT_EQ(errorNumberOf([&] { probe.session().Execute(QStringLiteral("x"), QStringLiteral("DIR")); }),
              ErrorNumber::InvalidProcedureCall);
}

TEST_F(InternetTransferTest, PropertiesKeepTheirValues)
{
    InternetTransfer session;
    EXPECT_EQ(session.Protocol(), InternetTransfer::icFTP);
    EXPECT_EQ(errorNumberOf([&] { session.setProtocol(4); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(session.RequestTimeout(), 60);
    session.setRequestTimeout(40);
    EXPECT_EQ(errorNumberOf([&] { session.setRequestTimeout(0); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(session.RequestTimeout(), 40);
    session.setRemoteHost(QStringLiteral(" ftp://Host "));
    EXPECT_EQ(session.RemoteHost(), QStringLiteral(" ftp://Host "));
    session.setUserName(QStringLiteral("u"));
    EXPECT_EQ(session.UserName(), QStringLiteral("u"));
    session.setPassword(QStringLiteral("p"));
    EXPECT_EQ(session.Password(), QStringLiteral("p"));
}

TEST_F(InternetTransferTest, TwoSessionsDoNotMeet)
{
    remote.addFolder("a");
    remote.addFile("a/inner");
    TransferProbe second(server);
    probe.start("CD \"a\"");
    second.start("DIR");
    probe.wait();
    second.wait();
    EXPECT_EQ(second.rows(), QStringList{QStringLiteral("a/")});
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("inner")});
    second.session().Cancel();
    EXPECT_EQ(probe.codeOf("CDUP"), 0);
    EXPECT_EQ(server.connections(), 2);
}
