#include "RemoteShutdown.h"

#include "ErrorNumberOf.h"
#include "PrintQt.h"
#include "ScratchHome.h"
#include "ScratchPrograms.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using RemoteShutdown::Order;

const Computer hostB = {QStringLiteral("HOSTB"), QStringLiteral("10.78.0.2")};

struct RemoteShutdownTest : testing::Test
{
    RemoteShutdownTest()
    {
        programs.addRecorder("net");
        QDir().mkpath(QFileInfo(RemoteShutdown::loginFile()).path());
    }
    QByteArray arguments(const QByteArray &program = "net") const
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !programs.content(program + ".calls").isEmpty(); }, 30000));
        return programs.content(program + ".calls").replace('\n', '|');
    }
    void addLogin(QFile::Permissions permissions) const
    {
        QFile file(RemoteShutdown::loginFile());
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write("username = a\npassword = secret\n");
        file.setPermissions(permissions);
    }

    ScratchHome home;
    ScratchPrograms programs;
};

const QByteArray safely = "--use-kerberos=desired|--client-protection=sign|--option=clientminprotocol=SMB2|";

} // namespace

TEST_F(RemoteShutdownTest, ShutsDown)
{
    RemoteShutdown::send(Order::ShutDown, hostB, QStringLiteral("A \"remote\" $(shutdown) -r"));
    EXPECT_EQ(arguments(),
              "rpc|shutdown|--force|--timeout|30|--comment|A \"remote\" $(shutdown) -r|--server|HOSTB|"
              "--ipaddress|10.78.0.2|--no-pass|" +
                  safely);
}

TEST_F(RemoteShutdownTest, Restarts)
{
    RemoteShutdown::send(Order::Restart, {QStringLiteral("HOSTB"), {}}, QStringLiteral("A comment."));
    EXPECT_EQ(arguments(),
              "rpc|shutdown|--force|--timeout|30|--comment|A comment.|--reboot|--server|HOSTB|--no-pass|" +
                  safely);
}

TEST_F(RemoteShutdownTest, Aborts)
{
    RemoteShutdown::send(Order::Abort, hostB, QStringLiteral("no comment"));
    EXPECT_EQ(arguments(), "rpc|abortshutdown|--server|HOSTB|--ipaddress|10.78.0.2|--no-pass|" + safely);
}

TEST_F(RemoteShutdownTest, ThePasswordIsNotAmongTheArguments)
{
    addLogin(QFile::ReadOwner | QFile::WriteOwner);
    RemoteShutdown::send(Order::Abort, hostB);
    const QByteArray all = arguments();
    EXPECT_TRUE(all.contains("--authentication-file|" + RemoteShutdown::loginFile().toUtf8() + '|'))
        << all.constData();
    EXPECT_FALSE(all.contains("secret"));
    EXPECT_FALSE(all.contains("--no-pass"));
}

TEST_F(RemoteShutdownTest, ALoginThatOthersReadIsRefused)
{
    for (const QFile::Permission others : {QFile::ReadGroup, QFile::ReadOther, QFile::WriteOther}) {
        addLogin(QFile::ReadOwner | QFile::WriteOwner | others);
        EXPECT_EQ(errorNumberOf([] { RemoteShutdown::send(Order::Abort, hostB); }), 70);
    }
    EXPECT_EQ(programs.content("net.calls"), QByteArray());
}

TEST_F(RemoteShutdownTest, WhatIsNoHostNameNeverReachesTheCommand)
{
    for (const QString &name :
         {QStringLiteral("-U"), QStringLiteral("A B"), QStringLiteral("a"), QStringLiteral("A.B"), QString(),
          QStringLiteral("\\\\A"), QStringLiteral("A\nB"), QString(64, u'A')})
        EXPECT_EQ(errorNumberOf([&] {
                      RemoteShutdown::send(Order::ShutDown, {name, {}});
                  }),
                  5)
            << qUtf8Printable(name);
    EXPECT_EQ(programs.content("net.calls"), QByteArray());
}

TEST_F(RemoteShutdownTest, WhatIsNoAddressNeverReachesTheCommand)
{
    RemoteShutdown::send(Order::Abort, {QStringLiteral("HOSTB"), QStringLiteral("-Ua%b")});
    EXPECT_EQ(arguments(), "rpc|abortshutdown|--server|HOSTB|--no-pass|" + safely);
}

TEST_F(RemoteShutdownTest, AMinuteIsTheLimit)
{
    programs.addRecorder("timeout");
    RemoteShutdown::send(Order::Abort, hostB);
    EXPECT_TRUE(
        arguments("timeout").startsWith("--kill-after=5|60|" + programs.file("net") + "|rpc|abortshutdown|"));
}

TEST_F(RemoteShutdownTest, WithoutTheProgramAFileIsNotFound)
{
    const ScratchPrograms none(ScratchPrograms::Others::Missing);
    EXPECT_EQ(errorNumberOf([] { RemoteShutdown::send(Order::ShutDown, hostB); }), 53);
}

TEST_F(RemoteShutdownTest, IsNotWaitedFor)
{
    programs.add("net", "while [ ! -e \"$folder/go\" ]; do sleep 0.01; done; : >\"$folder/done\"; echo yes "
                        ">\"$folder/net.calls\"\n");
    RemoteShutdown::send(Order::ShutDown, hostB); // would never return
    programs.add("go", {});
    EXPECT_EQ(arguments(), "yes|");
}
