#include "EventGate.h"
#include "Files.h"
#include "LineError.h"
#include "PrintQt.h"
#include "RowName.h"
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
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <array>
#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

/// An account at a server on this computer, with a file for a microphone.
struct Account
{
    ScratchFolder folder;
    /// Where the folder of the process is made.
    ScratchVariable runtime{"XDG_RUNTIME_DIR", folder.path().toUtf8()};
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

    /// Of the process that is starting.
    quint16 controlPort() const
    {
        const QString config = files().filter(QStringLiteral("/config")).value(0);
        const QByteArray text = Files::read(config);
        return text.mid(text.indexOf("ctrl_tcp_listen 127.0.0.1:") + 26).trimmed().toUShort();
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

/// The only process of baresip beside that of \a phone.
pid_t childBeside(const SipPhone &phone)
{
    QList<pid_t> others;
    const auto isOne = [&] {
        others = children();
        others.removeAll(pid_t(phone.processId()));
        return others.size() == 1;
    };
    EXPECT_TRUE(QTest::qWaitFor(isOne, 30000));
    return others.value(0);
}

/// The kernel's rows about UDP sockets on 127.0.0.1, cut into their fields.
QList<QByteArrayList> udpRows()
{
    QFile table(QStringLiteral("/proc/net/udp"));
    EXPECT_TRUE(table.open(QIODevice::ReadOnly));
    QList<QByteArrayList> rows;
    for (const QByteArray &row : table.readAll().split('\n')) {
        const QByteArrayList fields = row.simplified().split(' ');
        if (fields.value(1).startsWith("0100007F:"))
            rows.append(fields);
    }
    return rows;
}

quint16 portOf(const QByteArrayList &row)
{
    return row.value(1).mid(9).toUShort(nullptr, 16);
}

/// Whether something has come to \a port that was not read yet.
bool hasUnread(quint16 port)
{
    const QList<QByteArrayList> rows = udpRows();
    return std::any_of(rows.cbegin(), rows.cend(), [port](const QByteArrayList &row) {
        return portOf(row) == port && !row.value(4).endsWith(":00000000");
    });
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
    for (const QByteArrayList &row : udpRows()) {
        if (sockets.contains("socket:[" + row.value(9) + ']'))
            return portOf(row);
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
    pid_t ownChild() const { return childBeside(phone); }

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
    EXPECT_LE(wakeUps() - before, 2 * seconds);
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
    const quint16 port = account.controlPort();
    ASSERT_NE(port, 0);
    ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("1")));
    line.waitFor("connected");

    QTcpSocket stranger;
    stranger.connectToHost(QStringLiteral("127.0.0.1"), port);
    ASSERT_TRUE(stranger.waitForConnected());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
    waitForChildren(before);
}

/// Rings for a telephone that nobody answers, and is called meanwhile.
struct RingingTest : SipLineTest
{
    SipPhone caller;
    SipServer callee{QStringLiteral("silent")};
    Account account{callee.address()};
    TestLine line{{account.settings}};
    pid_t child = 0;

    void SetUp() override
    {
        ASSERT_TRUE(line->Create());
        ASSERT_TRUE(line->OpenLine(1, 4));
        child = childBeside(caller);
        ASSERT_TRUE(QTest::qWaitFor([&] { return account.files().isEmpty(); }, 20000)); // it is ready
    }
    void TearDown() override
    {
        line.destroy();
        waitForChildren({pid_t(caller.processId())});
    }
    void call() { caller.call(QStringLiteral("sip:alice@127.0.0.1:") + QString::number(udpPortOf(child))); }
    void expectRefusal()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return caller.endedCalls() == 1; }, 20000));
        EXPECT_EQ(line.allEvents(), QStringLiteral("made"));
        EXPECT_FALSE(callee.requests().filter(QStringLiteral("INVITE sip:12@")).isEmpty());
        EXPECT_TRUE(callee.requests().filter(QStringLiteral("CANCEL")).isEmpty());
    }
};

TEST_F(RingingTest, AnIncomingCallIsRefused)
{
    ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("12")));
    line.waitFor("made");
    call();
    expectRefusal();
}

/// Both reach a process that is slow: it has taken the call before it dials.
TEST_F(RingingTest, ACallThatComesInJustBeforeIsRefused)
{
    const quint16 port = udpPortOf(child);
    ::kill(child, SIGSTOP);
    call();
    ASSERT_TRUE(QTest::qWaitFor([port] { return hasUnread(port); }, 20000));
    ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("12")));
    QCoreApplication::processEvents();
    ::kill(child, SIGCONT);
    line.waitFor("made");
    expectRefusal();
}

namespace {

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

} // namespace

TEST_F(SipLineTest, AProcessThatHangsBeforeItListensIsAFailedDial)
{
    const HangingBaresip program;
    const Account account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Operation Failed");
    EXPECT_EQ(account.files(), QStringList());
}

TEST_F(SipLineTest, AStrangerWhoListensAtTheControlPortIsNotObeyed)
{
    const HangingBaresip program;
    const Account account(QStringLiteral("127.0.0.1:9"));
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

TEST_F(SipLineTest, AProgramThatDoesNotStartIsAFailedDial)
{
    const HangingBaresip program;
    program.folder.addFile("baresip", "#!/nonexistent\n");
    const Account account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Operation Failed");
    EXPECT_EQ(account.files(), QStringList());
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

namespace {

struct SoundRow
{
    const char *name;
    LineSettings::SoundEncryption encryption;
    const char *offer;
    bool hasKeys;
};

struct EncryptedSoundTest : SipLineTest, testing::WithParamInterface<SoundRow>
{};

} // namespace

TEST_P(EncryptedSoundTest, IsOfferedAsTheUserWants)
{
    EncryptedServer server;
    const Account account(QStringLiteral("unused"));
    LineSettings settings = server.line(account);
    settings.registers = false;
    settings.certificate = server.certificate;
    settings.soundEncryption = GetParam().encryption;
    TestLine line{{settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    QByteArray said;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return (said += server.process.readAllStandardOutput()).contains("a=sendrecv"); }, 20000));
    EXPECT_TRUE(said.contains(GetParam().offer)) << said.constData();
    EXPECT_EQ(said.contains("a=crypto:"), GetParam().hasKeys) << said.constData();
}

INSTANTIATE_TEST_SUITE_P(
    Choices, EncryptedSoundTest,
    testing::Values(SoundRow{"None", LineSettings::SoundEncryption::None, " RTP/AVP ", false},
                    SoundRow{"Offered", LineSettings::SoundEncryption::Offered, " RTP/AVP ", true},
                    SoundRow{"Required", LineSettings::SoundEncryption::Required, " RTP/SAVP ", true}),
    RowName());

namespace {

/// The suite in a process of its own, at a step that one of the disabled tests has.
struct OtherSuite
{
    QProcess process;
    QByteArray said;

    explicit OtherSuite(const char *test)
    {
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--gtest_also_run_disabled_tests"),
                       QStringLiteral("--gtest_filter=SipLineTest.DISABLED_") + QString::fromLatin1(test)});
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return (said += process.readAllStandardOutput()).contains("ready\n"); }, 30000));
    }
    QByteArray word(const QByteArray &key) const
    {
        return said.mid(said.indexOf(key) + key.size()).split('\n').constFirst();
    }
    pid_t child() const { return word("child ").toInt(); }
    QString folder() const { return QString::fromUtf8(word("folder ")); }
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
        return QDirIterator(folder(), {QStringLiteral("accounts")}, QDir::Files, QDirIterator::Subdirectories)
            .hasNext();
    }
};

bool isGone(pid_t process)
{
    return QTest::qWaitFor([=] { return ::kill(process, 0) != 0; }, 20000);
}

/// What the other suite tells, and then its end.
void tellAndWait(const Account &account, pid_t child)
{
    QTextStream(stdout) << "child " << child << "\nfolder " << account.folder.path() << "\nready" << Qt::endl;
    QTextStream(stdin).readLine();
    EventGate::setEnd({}); // the real one
    EventGate::end(EXIT_FAILURE);
}

} // namespace

TEST_F(SipLineTest, DISABLED_HasAProcess)
{
    const Account account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    ASSERT_TRUE(QTest::qWaitFor([] { return children().size() == 1; }, 30000));
    tellAndWait(account, children().constFirst());
}

TEST_F(SipLineTest, DISABLED_HasAProcessThatHangs)
{
    const HangingBaresip program;
    const Account account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    tellAndWait(account, 0);
}

TEST_F(SipLineTest, DISABLED_IsInACall)
{
    const Account account(qEnvironmentVariable("QUILL_TEST_PHONE"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line.call(QStringLiteral("1234")));
    line.waitFor("connected");
    tellAndWait(account, 0);
}

TEST_F(SipLineTest, TheProcessEndsWithTheSuiteHoweverThatEnds)
{
    OtherSuite suite("HasAProcess");
    ASSERT_TRUE(QFileInfo::exists(QStringLiteral("/proc/%1").arg(suite.child())));
    suite.kill();
    EXPECT_TRUE(isGone(suite.child()));
}

TEST_F(SipLineTest, AStoppedProcessEndsWithTheSuiteToo)
{
    OtherSuite suite("HasAProcess");
    ASSERT_EQ(::kill(suite.child(), SIGSTOP), 0);
    suite.kill();
    EXPECT_TRUE(isGone(suite.child()));
}

TEST_F(SipLineTest, TheEndOfTheSuiteHangsUp)
{
    const SipPhone phone;
    const ScratchVariable address("QUILL_TEST_PHONE", phone.address().toUtf8());
    OtherSuite suite("IsInACall");
    ASSERT_TRUE(phone.isInCall());
    suite.end();
    EXPECT_TRUE(QTest::qWaitFor([&] { return phone.endedCalls() == 1; }, 20000));
}

TEST_F(SipLineTest, TheEndOfTheSuiteLeavesNoFiles)
{
    OtherSuite suite("HasAProcessThatHangs");
    ASSERT_TRUE(suite.hasFiles());
    suite.end();
    EXPECT_FALSE(suite.hasFiles());
    QDir(suite.folder()).removeRecursively();
}

/// Also those of one that was killed before its process had read them.
TEST_F(SipLineTest, TheNextStartRemovesTheFilesThatAreLeft)
{
    OtherSuite suite("HasAProcessThatHangs");
    const HangingBaresip program;
    const Account account(QStringLiteral("127.0.0.1:9"));
    const ScratchVariable place("XDG_RUNTIME_DIR", suite.folder().toUtf8());
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
    QDir(suite.folder()).removeRecursively();
}
