#include "BaresipProcesses.h"
#include "EventGate.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "ScratchVariable.h"
#include "SipPhone.h"
#include "SipTestAccount.h"
#include "TestLine.h"

#include <QDirIterator>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTextStream>
#include <csignal>
#include <gtest/gtest.h>

namespace {

/// The process of a line that is open.
struct SipProcessTest : testing::Test
{
    void TearDown() override { BaresipProcesses::waitFor({}); }
};

/// A program in the place of baresip, which hangs at its start.
struct HangingBaresip
{
    ScratchFolder folder;
    ScratchVariable path{"PATH", folder.path().toUtf8() + ':' + qgetenv("PATH")};

    HangingBaresip()
    {
        folder.addFile("baresip", "#!/bin/sh\nexec sleep 60\n");
        QFile::setPermissions(folder.path() + QStringLiteral("/baresip"), QFile::ReadOwner | QFile::ExeOwner);
    }
};

/// The suite in a process of its own, at a step that one of the disabled tests has.
struct OtherSuite
{
    ScratchFolder folder; ///< for all that a suite leaves that is killed
    QProcess process;
    QByteArray said;

    explicit OtherSuite(const char *test)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TMPDIR"), folder.path());
        process.setProcessEnvironment(environment);
        process.start(
            QCoreApplication::applicationFilePath(),
            {QStringLiteral("--gtest_also_run_disabled_tests"),
             QStringLiteral("--gtest_filter=OtherSuiteTest.DISABLED_") + QString::fromLatin1(test)});
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return (said += process.readAllStandardOutput()).contains("ready\n"); }, 30000));
    }
    pid_t child() const
    {
        const QByteArray key = "child ";
        return said.mid(said.indexOf(key) + key.size()).split('\n').constFirst().toInt();
    }
    void kill()
    {
        process.kill();
        EXPECT_TRUE(process.waitForFinished());
    }
    /// By its own doing.
    void end()
    {
        process.write("end\n");
        EXPECT_TRUE(QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 30000));
    }
    /// Whether its files are still there.
    bool hasFiles() const
    {
        return QDirIterator(folder.path(), {QStringLiteral("accounts")}, QDir::Files,
                            QDirIterator::Subdirectories)
            .hasNext();
    }
};

bool isGone(pid_t process)
{
    return QTest::qWaitFor([=] { return ::kill(process, 0) != 0; }, 20000);
}

/// The other suite's own lines, whose files are in the folder that it was given.
struct OtherSuiteTest : SipProcessTest
{
    static void open(TestLine &line)
    {
        const ScratchVariable runtime("XDG_RUNTIME_DIR", qgetenv("TMPDIR"));
        ASSERT_TRUE(line->Create());
        ASSERT_TRUE(line->OpenLine(1, 4));
    }
    /// Reports to the test, and waits for its end.
    static void report(const SipTestAccount &account, pid_t child)
    {
        QDir(account.folder.path()).removeRecursively(); // nobody does it later
        QTextStream(stdout) << "child " << child << "\nready" << Qt::endl;
        QTextStream(stdin).readLine();
        EventGate::setEnd({}); // the real one
        EventGate::end(EXIT_FAILURE);
    }
};

} // namespace

TEST_F(SipProcessTest, AStrangerAtTheControlPortEndsTheCall)
{
    SipPhone phone;
    const SipTestAccount account(phone.address());
    LineSettings settings = account.settings;
    TestLine line{{settings}};
    ASSERT_TRUE(line->Create());
    const QList<pid_t> before = BaresipProcesses::all();
    ASSERT_TRUE(line->OpenLine(1, 4));
    const quint16 port = account.controlPort();
    ASSERT_NE(port, 0);
    ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("1")));
    line.waitFor("connected");

    QTcpSocket stranger;
    stranger.connectToHost(QStringLiteral("127.0.0.1"), port);
    ASSERT_TRUE(stranger.waitForConnected());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
    BaresipProcesses::waitFor(before);
}

TEST_F(SipProcessTest, AProcessThatHangsBeforeItListensIsAFailedDial)
{
    const HangingBaresip program;
    const SipTestAccount account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Operation Failed");
    EXPECT_EQ(account.files(), QStringList());
}

TEST_F(SipProcessTest, AStrangerWhoListensAtTheControlPortIsNotObeyed)
{
    const HangingBaresip program;
    const SipTestAccount account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    QTcpServer stranger;
    ASSERT_TRUE(stranger.listen(QHostAddress::LocalHost, account.controlPort()));
    QByteArray heard;
    on(&stranger, &QTcpServer::newConnection, &stranger, [&] {
        QTcpSocket *connection = stranger.nextPendingConnection();
        connection->write("43:{\"response\":true,\"ok\":true,\"token\":\"dial\"},");
        on(connection, &QTcpSocket::readyRead, connection, [=, &heard] { heard += connection->readAll(); });
    });
    line.waitFor("made:Operation Failed");
    EXPECT_EQ(heard, QByteArray());
}

TEST_F(SipProcessTest, AProgramThatDoesNotStartIsAFailedDial)
{
    const HangingBaresip program;
    program.folder.addFile("baresip", "#!/nonexistent\n");
    const SipTestAccount account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Operation Failed");
    EXPECT_EQ(account.files(), QStringList());
}

TEST_F(SipProcessTest, TheFilesOfTheAccountAreForItsUserAlone)
{
    const SipTestAccount account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    const QStringList files = account.files();
    EXPECT_EQ(files.size(), 4) << qPrintable(files.join(u' '));
    for (const QString &name : files) {
        EXPECT_EQ(QFile::permissions(name) &
                      (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                  QFile::Permissions());
        EXPECT_EQ(QFile::permissions(QFileInfo(name).path()) &
                      (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther),
                  QFile::Permissions());
    }
    line->CloseLine();
    EXPECT_EQ(account.files(), QStringList());
}

TEST_F(OtherSuiteTest, DISABLED_HasAProcess)
{
    const SipTestAccount account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    open(line);
    ASSERT_TRUE(QTest::qWaitFor([] { return BaresipProcesses::all().size() == 1; }, 30000));
    report(account, BaresipProcesses::all().constFirst());
}

TEST_F(OtherSuiteTest, DISABLED_HasAProcessThatHangs)
{
    const SipTestAccount account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    open(line);
    report(account, 0);
}

TEST_F(OtherSuiteTest, DISABLED_IsInACall)
{
    const SipTestAccount account(qEnvironmentVariable("QUILL_TEST_PHONE"));
    TestLine line{{account.settings}};
    open(line);
    ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("1234")));
    line.waitFor("connected");
    report(account, 0);
}

TEST_F(SipProcessTest, TheProcessEndsWithTheSuiteHoweverThatEnds)
{
    OtherSuite suite("HasAProcess");
    ASSERT_TRUE(QFileInfo::exists(QStringLiteral("/proc/%1").arg(suite.child())));
    suite.kill();
    EXPECT_TRUE(isGone(suite.child()));
}

TEST_F(SipProcessTest, AStoppedProcessEndsWithTheSuiteToo)
{
    OtherSuite suite("HasAProcess");
    ASSERT_GT(suite.child(), 0);
    ASSERT_EQ(::kill(suite.child(), SIGSTOP), 0);
    suite.kill();
    EXPECT_TRUE(isGone(suite.child()));
}

TEST_F(SipProcessTest, TheEndOfTheSuiteHangsUp)
{
    const SipPhone phone;
    const ScratchVariable address("QUILL_TEST_PHONE", phone.address().toUtf8());
    OtherSuite suite("IsInACall");
    ASSERT_TRUE(phone.isInCall());
    suite.end();
    EXPECT_TRUE(QTest::qWaitFor([&] { return phone.endedCalls() == 1; }, 20000));
}

TEST_F(SipProcessTest, TheEndOfTheSuiteLeavesNoFiles)
{
    const HangingBaresip program;
    OtherSuite suite("HasAProcessThatHangs");
    ASSERT_TRUE(suite.hasFiles());
    suite.end();
    EXPECT_FALSE(suite.hasFiles());
}

/// Also those of one that was killed before its process had read them.
TEST_F(SipProcessTest, TheNextStartRemovesTheFilesThatAreLeft)
{
    const HangingBaresip program;
    OtherSuite suite("HasAProcessThatHangs");
    const SipTestAccount account(QStringLiteral("127.0.0.1:9"));
    const ScratchVariable place("XDG_RUNTIME_DIR", suite.folder.path().toUtf8());
    TestLine line{{account.settings}};
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    line->CloseLine();
    EXPECT_TRUE(suite.hasFiles()); // it still needs them
    suite.kill();
    EXPECT_TRUE(suite.hasFiles());
    ASSERT_TRUE(line->OpenLine(1, 4));
    line->CloseLine();
    EXPECT_FALSE(suite.hasFiles());
}
