#include "LineError.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "ScratchVariable.h"
#include "SilentSound.h"
#include "SipPhone.h"
#include "SipServer.h"
#include "TestLine.h"

#include <QDirIterator>
#include <QEventLoop>
#include <QProcess>
#include <QSet>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>
#include <array>
#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

/// An account at a server on this computer, with a file for a microphone.
struct Account
{
    ScratchFolder folder;
    /// Where baresip's own folder is made.
    ScratchVariable temporary{"TMPDIR", folder.path().toUtf8()};
    LineSettings settings;

    explicit Account(const QString &server)
    {
        folder.addFile("silence.wav", silentSound());
        settings.kind = LineSettings::Kind::Sip;
        settings.label = QStringLiteral("Home");
        settings.user = QStringLiteral("alice");
        settings.password = QStringLiteral("se;cr et");
        settings.server = server;
        settings.registers = false;
        settings.microphone = QStringLiteral("aufile,") + folder.path() + QStringLiteral("/silence.wav");
        settings.loudspeaker = QStringLiteral("nullplay,none");
    }

    LineSettings registering() const
    {
        LineSettings registered = settings;
        registered.registers = true;
        return registered;
    }

    /// The files that a baresip process of the suite has left or still needs.
    QStringList files() const
    {
        QStringList found;
        for (QDirIterator files(folder.path(), QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
            found.append(files.next());
        found.removeAll(folder.path() + QStringLiteral("/silence.wav"));
        return found;
    }
};

/// The processes of baresip that this process has started.
QList<pid_t> children()
{
    QList<pid_t> found;
    const QDir processes(QStringLiteral("/proc"));
    for (const QString &name : processes.entryList({QStringLiteral("[0-9]*")}, QDir::Dirs)) {
        QFile status(processes.filePath(name + QStringLiteral("/stat")));
        if (!status.open(QIODevice::ReadOnly))
            continue;
        const QByteArray text = status.readAll();
        const QByteArrayList fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
        if (text.contains("(baresip)") && fields.value(1).toInt() == ::getpid() && fields.value(0) != "Z")
            found.append(name.toInt());
    }
    return found;
}

/// The UDP port on which \a process takes calls.
quint16 udpPortOf(pid_t process)
{
    QSet<QByteArray> sockets;
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(process));
    for (const QFileInfo &descriptor : descriptors.entryInfoList(QDir::System | QDir::Files)) {
        std::array<char, 64> target = {};
        if (::readlink(descriptor.filePath().toLatin1().constData(), target.data(), target.size() - 1) > 0)
            sockets.insert(QByteArray(target.data()));
    }
    QFile table(QStringLiteral("/proc/net/udp"));
    EXPECT_TRUE(table.open(QIODevice::ReadOnly));
    for (const QByteArray &row : table.readAll().split('\n')) {
        const QByteArrayList fields = row.simplified().split(' ');
        if (sockets.contains("socket:[" + fields.value(9) + ']') && fields.value(1).startsWith("0100007F:"))
            return fields.value(1).mid(9).toUShort(nullptr, 16);
    }
    return 0;
}

/// How often the threads of this process have waited for something so far.
int wakeUps()
{
    int sum = 0;
    for (const QString &thread :
         QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status(QStringLiteral("/proc/self/task/") + thread + QStringLiteral("/status"));
        if (!status.open(QIODevice::ReadOnly))
            continue;
        const QByteArray text = status.readAll();
        const QByteArray key = "\nvoluntary_ctxt_switches:";
        sum += text.mid(text.indexOf(key) + key.size()).split('\n').constFirst().trimmed().toInt();
    }
    return sum;
}

void waitForChildren(const QList<pid_t> &awaited)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return children() == awaited; }, 30000));
}

/// Lines that a test makes itself.
struct SipLineTest : testing::Test
{
    void TearDown() override { waitForChildren({}); }
};

/// Calls to a telephone that answers.
struct SipCallTest : testing::Test
{
    SipPhone phone;
    Account account{phone.address()};
    TestLine line{{account.settings}};

    /// A process that ends a call takes its time, also after the line has been closed.
    void TearDown() override
    {
        line.destroy();
        waitForChildren({pid_t(phone.processId())});
    }

    /// The process of the line.
    pid_t ownChild() const
    {
        QList<pid_t> all = children();
        all.removeAll(pid_t(phone.processId()));
        EXPECT_EQ(all.size(), 1);
        return all.value(0);
    }

    void connect()
    {
        ASSERT_TRUE(line.call(QStringLiteral("1234")));
        line.waitFor("connected");
        ASSERT_TRUE(QTest::qWaitFor([this] { return phone.isInCall(); }));
    }
};

} // namespace

TEST_F(SipCallTest, IsAnsweredAndHungUp)
{
    connect();
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::hungUp);
    EXPECT_TRUE(QTest::qWaitFor([this] { return phone.endedCalls() == 1; }));
}

TEST_F(SipCallTest, TheFarEndHangsUp)
{
    connect();
    phone.hangUp();
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
}

TEST_F(SipCallTest, TheLineServesTheNextCall)
{
    connect();
    phone.hangUp();
    line.waitFor("idle");
    ASSERT_TRUE(line.call(QStringLiteral("99")));
    line.waitFor("connected");
}

TEST_F(SipCallTest, SendsTonesInACall)
{
    connect();
    EXPECT_TRUE(line->GenerateDigits(QStringLiteral("5#")));
    EXPECT_TRUE(QTest::qWaitFor([this] { return phone.tones() == QStringLiteral("5#"); }, 20000))
        << qPrintable(phone.tones());
}

TEST_F(SipCallTest, SendsWhatFollowsThePauseAsTones)
{
    ASSERT_TRUE(line.call(QStringLiteral("12,34*")));
    line.waitFor("connected");
    EXPECT_TRUE(QTest::qWaitFor([this] { return phone.tones() == QStringLiteral("34*"); }, 20000))
        << qPrintable(phone.tones());
}

TEST_F(SipCallTest, ClosingInACallHangsUp)
{
    connect();
    line.destroy();
    EXPECT_TRUE(QTest::qWaitFor([this] { return phone.endedCalls() == 1; }, 20000));
    EXPECT_TRUE(QTest::qWaitFor([] { return children().size() == 1; }, 20000)); // the telephone
    EXPECT_EQ(account.files(), QStringList());
}

TEST_F(SipCallTest, KeepsNoFilesWhileItRuns)
{
    connect();
    EXPECT_EQ(account.files(), QStringList());
}

TEST_F(SipCallTest, AProcessThatDiesEndsTheCall)
{
    connect();
    ::kill(ownChild(), SIGKILL);
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
}

TEST_F(SipCallTest, AProcessThatHangsEndsTheCall)
{
    connect();
    const pid_t child = ownChild();
    ::kill(child, SIGSTOP);
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
    EXPECT_TRUE(QTest::qWaitFor([child] { return !children().contains(child); }, 20000));
}

TEST_F(SipCallTest, AProcessThatHangsDoesNotHoldTheDropUp)
{
    connect();
    const pid_t child = ownChild();
    ::kill(child, SIGSTOP);
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::hungUp);
    EXPECT_TRUE(QTest::qWaitFor([child] { return !children().contains(child); }, 20000));
}

TEST_F(SipCallTest, AnIncomingCallIsHungUpAtOnce)
{
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    const pid_t child = ownChild();
    ASSERT_TRUE(QTest::qWaitFor([&] { return account.files().isEmpty(); }, 20000)); // it is ready
    phone.call(QStringLiteral("sip:alice@127.0.0.1:") + QString::number(udpPortOf(child)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return phone.endedCalls() == 1; }, 20000));
    EXPECT_FALSE(phone.isInCall());
    EXPECT_EQ(line.allEvents(), QString());
    ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("12")));
    line.waitFor("connected");
}

TEST_F(SipCallTest, ACallLetsTheSuiteSleep)
{
    connect();
    constexpr int seconds = 5;
    const int before = wakeUps();
    QEventLoop loop;
    QTimer::singleShot(seconds * 1000, &loop, &QEventLoop::quit);
    loop.exec();
    // Twice a second, and a few times for the events that baresip sends about the call.
    EXPECT_LE(wakeUps() - before, 2 * seconds + 10);
}

TEST_F(SipLineTest, AStrangerAtTheControlPortEndsTheCall)
{
    SipPhone phone;
    const Account account(phone.address());
    LineSettings settings = account.settings;
    TestLine line{{settings}};
    ASSERT_TRUE(line->Create());
    const QList<pid_t> before = children();
    ASSERT_TRUE(line->OpenLine(1, 4));
    // The port is in the configuration while baresip starts.
    QByteArray configuration;
    for (const QString &name : account.files()) {
        QFile file(name);
        if (name.endsWith(QStringLiteral("/config")) && file.open(QIODevice::ReadOnly))
            configuration = file.readAll();
    }
    const QByteArray port =
        configuration.mid(configuration.indexOf("ctrl_tcp_listen 127.0.0.1:") + 26).trimmed();
    ASSERT_NE(port.toUShort(), 0);
    ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("1")));
    line.waitFor("connected");

    QTcpSocket stranger;
    stranger.connectToHost(QStringLiteral("127.0.0.1"), port.toUShort());
    ASSERT_TRUE(stranger.waitForConnected());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
    waitForChildren(before);
}

TEST_F(SipLineTest, TheFilesOfTheAccountAreForItsUserAlone)
{
    const Account account(QStringLiteral("127.0.0.1:9"));
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

TEST_F(SipLineTest, RegistersAndIsRefused)
{
    for (const char *answer : {"486 Busy Here", "603 Decline", "404 Not Found"}) {
        const SipServer server(QStringLiteral("registrar"), QString::fromLatin1(answer));
        const Account account(server.address());
        TestLine line{{account.registering()}};
        ASSERT_TRUE(line.call(QStringLiteral("*21*12#")));
        line.waitFor("idle");
        EXPECT_EQ(line.events(), TestLine::notConnected) << answer;
        EXPECT_TRUE(server.requests().contains(QStringLiteral("INVITE sip:*21*12%23@") + server.address() +
                                               QStringLiteral(" SIP/2.0")))
            << qPrintable(server.requests().join(u'|'));
    }
}

TEST_F(SipLineTest, AWrongPasswordIsAFailedDial)
{
    const SipServer server(QStringLiteral("registrar"));
    const Account account(server.address());
    LineSettings settings = account.registering();
    settings.password = QStringLiteral("guess");
    TestLine line{{settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Not Registered");
    EXPECT_FALSE(line->CloseLine()); // closed already
}

TEST_F(SipLineTest, TheServerHangsUp)
{
    const SipServer server(QStringLiteral("answering"));
    const Account account(server.address());
    TestLine line{{account.settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
}

TEST_F(SipLineTest, ACallThatNobodyAnswersIsGivenUp)
{
    const SipServer server(QStringLiteral("silent"));
    const Account account(server.address());
    TestLine line{{account.settings}, {.answer = std::chrono::seconds(1), .hangUp = std::chrono::seconds(2)}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::notConnected);
    EXPECT_FALSE(server.requests().filter(QStringLiteral("CANCEL sip:12@")).isEmpty());
}

TEST_F(SipLineTest, AServerThatIsNotThereDoesNotHoldTheDialUp)
{
    const Account account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.registering()}, {.accept = std::chrono::seconds(2)}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Operation Failed");
}

TEST_F(SipLineTest, AnAccountWithASecondLineIsRefused)
{
    for (const auto member :
         {&LineSettings::user, &LineSettings::password, &LineSettings::server, &LineSettings::certificate,
          &LineSettings::microphone, &LineSettings::loudspeaker}) {
        Account account(QStringLiteral("127.0.0.1:9"));
        account.settings.*member += QStringLiteral("\nmodule httpd.so");
        TestLine line{{account.settings}};
        ASSERT_TRUE(line->Create());
        EXPECT_FALSE(line->OpenLine(1, 4));
        EXPECT_EQ(line->LastError(), LineError::InvalidParameter);
        EXPECT_EQ(account.files(), QStringList());
    }
}

TEST_F(SipLineTest, SaysByItsNameWhetherItReachesTelephones)
{
    const Account account(QStringLiteral("example.org"));
    TestLine line{{account.registering(), account.settings}};
    ASSERT_TRUE(line->Create());
    EXPECT_EQ(line->LineName(), QStringLiteral("SIP line Home") + QChar(0));
    EXPECT_TRUE(line->LineSupportsVoiceCalls());
    EXPECT_EQ(line->mediamodes(), 4u);
    line->setCurrentLineID(1);
    EXPECT_EQ(line->LineName(), QStringLiteral("IPCONF line Home") + QChar(0));
}

TEST_F(SipLineTest, WithoutBaresipThereIsNoDriver)
{
    const ScratchVariable path("PATH", "/nonexistent");
    const Account account(QStringLiteral("example.org"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line->Create());
    EXPECT_EQ(line->NegotiatedAPIVersion(), 0u);
}

namespace {

/// A server that encrypts with a certificate of its own making, and only listens.
struct EncryptedServer
{
    ScratchFolder folder;
    QString certificate = folder.path() + QStringLiteral("/certificate.pem");
    quint16 port = 0;
    QProcess process;

    EncryptedServer()
    {
        const QString key = folder.path() + QStringLiteral("/key.pem");
        const QStringList request{QStringLiteral("req"),
                                  QStringLiteral("-x509"),
                                  QStringLiteral("-newkey"),
                                  QStringLiteral("rsa:2048"),
                                  QStringLiteral("-nodes"),
                                  QStringLiteral("-keyout"),
                                  key,
                                  QStringLiteral("-out"),
                                  certificate,
                                  QStringLiteral("-subj"),
                                  QStringLiteral("/CN=127.0.0.1")};
        QProcess maker;
        maker.setStandardErrorFile(QProcess::nullDevice());
        maker.start(QStringLiteral("openssl"), request);
        EXPECT_TRUE(maker.waitForFinished());
        process.start(QStringLiteral("openssl"), {QStringLiteral("s_server"), QStringLiteral("-cert"),
                                                  certificate, QStringLiteral("-key"), key,
                                                  QStringLiteral("-accept"), QStringLiteral("127.0.0.1:0")});
        QByteArray said;
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return (said += process.readAllStandardOutput()).contains("ACCEPT "); }));
        port = said.mid(said.indexOf("127.0.0.1:", said.indexOf("ACCEPT ")) + 10).simplified().toUShort();
        EXPECT_NE(port, 0) << said.constData();
    }
    ~EncryptedServer()
    {
        process.kill();
        process.waitForFinished();
    }

    LineSettings line(const Account &account) const
    {
        LineSettings settings = account.registering();
        settings.server = QStringLiteral("127.0.0.1:") + QString::number(port);
        settings.transport = LineSettings::Transport::Tls;
        return settings;
    }
};

} // namespace

TEST_F(SipLineTest, AServerWithACertificateOfItsOwnIsRefused)
{
    EncryptedServer server;
    const Account account(QStringLiteral("unused"));
    TestLine line{{server.line(account)}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Not Registered");
    EXPECT_FALSE(server.process.readAllStandardOutput().contains("REGISTER"));
}

TEST_F(SipLineTest, ACertificateThatTheUserHasNamedIsTrusted)
{
    EncryptedServer server;
    const Account account(QStringLiteral("unused"));
    LineSettings settings = server.line(account);
    settings.certificate = server.certificate;
    TestLine line{{settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    QByteArray said;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return (said += server.process.readAllStandardOutput()).contains("REGISTER sip:127.0.0.1"); },
        20000))
        << said.constData();
}

// Run by the test below, which kills it.
TEST_F(SipLineTest, DISABLED_HasAProcessUntilItIsKilled)
{
    const Account account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    ASSERT_EQ(children().size(), 1);
    QTextStream(stdout) << "child " << children().constFirst() << Qt::endl;
    EXPECT_TRUE(QTest::qWaitFor([] { return false; }, 60000));
}

TEST_F(SipLineTest, TheProcessEndsWithTheSuiteHoweverThatEnds)
{
    QProcess suite;
    suite.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_also_run_disabled_tests"),
                 QStringLiteral("--gtest_filter=SipLineTest.DISABLED_HasAProcessUntilItIsKilled")});
    QByteArray said;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return (said += suite.readAllStandardOutput()).contains("child ") && said.endsWith('\n'); },
        30000));
    const QByteArray child = said.mid(said.indexOf("child ") + 6).split('\n').constFirst();
    ASSERT_TRUE(QFileInfo::exists(QStringLiteral("/proc/") + QString::fromLatin1(child)));
    suite.kill();
    ASSERT_TRUE(suite.waitForFinished());
    EXPECT_TRUE(QTest::qWaitFor([&] { return ::kill(child.toInt(), 0) != 0; }, 20000));
}
