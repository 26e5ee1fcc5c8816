#include "BaresipProcesses.h"
#include "LineError.h"
#include "PrintQt.h"
#include "ScratchVariable.h"
#include "SipPhone.h"
#include "SipServer.h"
#include "SipTestAccount.h"
#include "TestLine.h"

#include <QDir>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <gtest/gtest.h>

namespace {

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

/// Lines that a test makes itself.
struct SipLineTest : testing::Test
{
    void TearDown() override { BaresipProcesses::waitFor({}); }
};

/// Calls to a telephone that answers.
struct SipCallTest : testing::Test
{
    SipPhone phone;
    SipTestAccount account{phone.address()};
    TestLine line{{account.settings}};

    /// A process that ends a call takes its time, also after the line has been closed.
    void TearDown() override
    {
        line.destroy();
        BaresipProcesses::waitFor({pid_t(phone.processId())});
    }

    /// The process of the line.
    pid_t ownChild() const { return BaresipProcesses::beside(phone); }

    void connect()
    {
        ASSERT_TRUE(line.call(QStringLiteral("1234")));
        line.waitFor("connected");
        ASSERT_TRUE(QTest::qWaitFor([this] { return phone.isInCall(); }));
    }
};

/// Rings for a telephone that nobody answers, and is called meanwhile.
struct RingingTest : SipLineTest
{
    SipPhone caller;
    SipServer callee{QStringLiteral("silent")};
    SipTestAccount account{callee.address()};
    TestLine line{{account.settings}};
    pid_t child = 0;

    void SetUp() override
    {
        ASSERT_TRUE(line->Create());
        ASSERT_TRUE(line->OpenLine(1, 4));
        child = BaresipProcesses::beside(caller);
        ASSERT_TRUE(QTest::qWaitFor([&] { return account.files().isEmpty(); }, 20000)); // it is ready
    }
    void TearDown() override
    {
        line.destroy();
        BaresipProcesses::waitFor({pid_t(caller.processId())});
    }
    void call()
    {
        caller.call(QStringLiteral("sip:alice@127.0.0.1:") +
                    QString::number(BaresipProcesses::udpPortOf(child)));
    }
    void expectRefusal()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return caller.endedCalls() == 1; }, 20000));
        EXPECT_EQ(line.allEvents(), QStringLiteral("made"));
        EXPECT_FALSE(callee.requests().filter(QStringLiteral("INVITE sip:12@")).isEmpty());
        EXPECT_TRUE(callee.requests().filter(QStringLiteral("CANCEL")).isEmpty());
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
    EXPECT_TRUE(QTest::qWaitFor([] { return BaresipProcesses::all().size() == 1; }, 20000)); // the telephone
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
    EXPECT_TRUE(QTest::qWaitFor([child] { return !BaresipProcesses::all().contains(child); }, 20000));
}

TEST_F(SipCallTest, AProcessThatHangsDoesNotHoldTheDropUp)
{
    connect();
    const pid_t child = ownChild();
    ::kill(child, SIGSTOP);
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::hungUp);
    EXPECT_TRUE(QTest::qWaitFor([child] { return !BaresipProcesses::all().contains(child); }, 20000));
}

TEST_F(SipCallTest, AnIncomingCallIsHungUpAtOnce)
{
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    const pid_t child = ownChild();
    ASSERT_TRUE(QTest::qWaitFor([&] { return account.files().isEmpty(); }, 20000)); // it is ready
    phone.call(QStringLiteral("sip:alice@127.0.0.1:") + QString::number(BaresipProcesses::udpPortOf(child)));
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
    const quint16 port = BaresipProcesses::udpPortOf(child);
    ::kill(child, SIGSTOP);
    call();
    ASSERT_TRUE(QTest::qWaitFor([port] { return BaresipProcesses::hasUnread(port); }, 20000));
    ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("12")));
    QCoreApplication::processEvents();
    ::kill(child, SIGCONT);
    line.waitFor("made");
    expectRefusal();
}

TEST_F(SipLineTest, RegistersAndIsRefused)
{
    for (const char *answer : {"486 Busy Here", "603 Decline", "404 Not Found"}) {
        const SipServer server(QStringLiteral("registrar"), QString::fromLatin1(answer));
        const SipTestAccount account(server.address());
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
    const SipTestAccount account(server.address());
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
    const SipTestAccount account(server.address());
    TestLine line{{account.settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
}

TEST_F(SipLineTest, ACallThatNobodyAnswersIsGivenUp)
{
    const SipServer server(QStringLiteral("silent"));
    const SipTestAccount account(server.address());
    TestLine line{{account.settings}, {.answer = std::chrono::seconds(1), .hangUp = std::chrono::seconds(2)}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::notConnected);
    EXPECT_FALSE(server.requests().filter(QStringLiteral("CANCEL sip:12@")).isEmpty());
}

TEST_F(SipLineTest, AServerThatIsNotThereDoesNotHoldTheDialUp)
{
    const SipTestAccount account(QStringLiteral("127.0.0.1:9"));
    TestLine line{{account.registering()}, {.accept = std::chrono::seconds(2)}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Operation Failed");
}

TEST_F(SipLineTest, AnAccountWithASecondLineIsRefused)
{
    for (const auto member :
         {&LineSettings::user, &LineSettings::password, &LineSettings::server, &LineSettings::certificate,
          &LineSettings::microphone, &LineSettings::loudspeaker}) {
        SipTestAccount account(QStringLiteral("127.0.0.1:9"));
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
    const SipTestAccount account(QStringLiteral("example.org"));
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
    const SipTestAccount account(QStringLiteral("example.org"));
    TestLine line{{account.settings}};
    ASSERT_TRUE(line->Create());
    EXPECT_TRUE(line->LineSupportsVoiceCalls());
    EXPECT_FALSE(line->OpenLine(1, 4));
    EXPECT_EQ(line->LastError(), LineError::NoDriver);
}
