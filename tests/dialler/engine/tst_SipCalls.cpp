#include "LineError.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "ScratchVariable.h"
#include "SilentSound.h"
#include "SipPhone.h"
#include "SipServer.h"
#include "TestLine.h"

#include <QDirIterator>
#include <QTcpSocket>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

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

/// Calls to a telephone that answers.
struct SipCallTest : testing::Test
{
    SipPhone phone;
    Account account{phone.address()};
    TestLine line{{account.settings}};

    void connect()
    {
        ASSERT_TRUE(line.call(QStringLiteral("1234")));
        line.waitFor("connected");
        ASSERT_TRUE(QTest::qWaitFor([this] { return phone.isInCall(); }));
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

const QString farEndGone = QStringLiteral("made connected disconnected dropped idle");
const QString notConnected = QStringLiteral("made disconnected dropped idle");

} // namespace

TEST_F(SipCallTest, IsAnsweredAndHungUp)
{
    connect();
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), QStringLiteral("made connected dropped disconnected idle"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return phone.endedCalls() == 1; }));
}

TEST_F(SipCallTest, TheFarEndHangsUp)
{
    connect();
    phone.hangUp();
    line.waitFor("idle");
    EXPECT_EQ(line.events(), farEndGone);
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
    const QList<pid_t> before = children();
    connect();
    for (const pid_t child : children()) {
        if (!before.contains(child))
            ::kill(child, SIGKILL);
    }
    line.waitFor("idle");
    EXPECT_EQ(line.events(), farEndGone);
}

TEST(SipLineTest, AStrangerAtTheControlPortEndsTheCall)
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
    EXPECT_EQ(line.events(), farEndGone);
    EXPECT_TRUE(QTest::qWaitFor([&] { return children() == before; }, 20000));
}

TEST(SipLineTest, TheFilesOfTheAccountAreForItsUserAlone)
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

TEST(SipLineTest, RegistersAndIsRefused)
{
    for (const char *answer : {"486 Busy Here", "603 Decline", "404 Not Found"}) {
        const SipServer server(QStringLiteral("registrar"), QString::fromLatin1(answer));
        const Account account(server.address());
        TestLine line{{account.registering()}};
        ASSERT_TRUE(line.call(QStringLiteral("*21*12#")));
        line.waitFor("idle");
        EXPECT_EQ(line.events(), notConnected) << answer;
        EXPECT_TRUE(server.requests().contains(QStringLiteral("INVITE sip:*21*12%23@") + server.address() +
                                               QStringLiteral(" SIP/2.0")))
            << qPrintable(server.requests().join(u'|'));
    }
}

TEST(SipLineTest, AWrongPasswordIsAFailedDial)
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

TEST(SipLineTest, TheServerHangsUp)
{
    const SipServer server(QStringLiteral("answering"));
    const Account account(server.address());
    TestLine line{{account.settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("idle");
    EXPECT_EQ(line.events(), farEndGone);
}

TEST(SipLineTest, ACallThatNobodyAnswersIsGivenUp)
{
    const SipServer server(QStringLiteral("silent"));
    const Account account(server.address());
    TestLine line{{account.settings}, {.answer = std::chrono::seconds(1), .hangUp = std::chrono::seconds(2)}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("idle");
    EXPECT_EQ(line.events(), notConnected);
    EXPECT_FALSE(server.requests().filter(QStringLiteral("CANCEL sip:12@")).isEmpty());
}

TEST(SipLineTest, AServerThatIsNotThereDoesNotHoldTheDialUp)
{
    const Account account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.registering()}, {.accept = std::chrono::seconds(2)}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Operation Failed");
}

TEST(SipLineTest, AnAccountWithASecondLineIsRefused)
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

TEST(SipLineTest, SaysByItsNameWhetherItReachesTelephones)
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

TEST(SipLineTest, WithoutBaresipThereIsNoDriver)
{
    const ScratchVariable path("PATH", "/nonexistent");
    const Account account(QStringLiteral("example.org"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line->Create());
    EXPECT_EQ(line->NegotiatedAPIVersion(), 0u);
}
