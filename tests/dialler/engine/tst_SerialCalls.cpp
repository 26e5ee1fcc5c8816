#include "AsUser.h"
#include "LineError.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "ScriptedModem.h"
#include "TestLine.h"

#include <QElapsedTimer>
#include <QTest>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

LineSettings lineOn(const ScriptedModem &modem, LineSettings::SerialMode mode)
{
    LineSettings settings;
    settings.kind = LineSettings::Kind::Serial;
    settings.label = QStringLiteral("Desk modem");
    settings.port = modem.port();
    settings.mode = mode;
    return settings;
}

/// A call by a modem that a telephone is connected to.
struct HandsetCallTest : testing::Test
{
    ScriptedModem modem;
    TestLine line{{lineOn(modem, LineSettings::SerialMode::Handset)}};

    void SetUp() override
    {
        if (!modem.isThere())
            GTEST_SKIP() << "this machine has no pseudo-terminals";
    }
    void connect()
    {
        ASSERT_TRUE(line.call(QStringLiteral("1234")));
        line.waitFor("connected");
    }
};

/// A call by a modem that keeps the call itself.
struct VoiceCallTest : testing::Test
{
    ScriptedModem modem;
    TestLine line{{lineOn(modem, LineSettings::SerialMode::Voice)}};

    VoiceCallTest() { modem.answer("ATD", "\r\nVCON\r\n"); }
    void SetUp() override
    {
        if (!modem.isThere())
            GTEST_SKIP() << "this machine has no pseudo-terminals";
    }
    void connect()
    {
        ASSERT_TRUE(line.call(QStringLiteral("1234")));
        line.waitFor("connected");
    }
};

} // namespace

TEST_F(HandsetCallTest, PreparesTheModemAndDials)
{
    connect();
    EXPECT_EQ(modem.commands().join('|'), "ATE0Q0V1|ATX4|ATDT1234;");
    EXPECT_EQ(line.events(), QStringLiteral("made connected"));
}

TEST_F(HandsetCallTest, HangsUp)
{
    connect();
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::hungUp);
    EXPECT_EQ(modem.commands().constLast(), "ATH0");
}

TEST_F(HandsetCallTest, TheFarEndHangsUp)
{
    connect();
    modem.send("\r\nNO CARRIER\r\n");
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
}

TEST_F(HandsetCallTest, TheLineServesTheNextCall)
{
    connect();
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_FALSE(line->CloseLine()); // the end of the call has closed it
    ASSERT_TRUE(line.call(QStringLiteral("99")));
    line.waitFor("connected");
    EXPECT_EQ(modem.commands().constLast(), "ATDT99;");
}

TEST_F(HandsetCallTest, SendsTonesInACall)
{
    EXPECT_FALSE(line->GenerateDigits(QStringLiteral("5")));
    connect();
    EXPECT_TRUE(line->GenerateDigits(QStringLiteral("5#")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return modem.commands().constLast() == "ATDT5#;"; }));
    EXPECT_FALSE(line->GenerateDigits(QStringLiteral("5;H")));
    EXPECT_EQ(line->LastError(), LineError::InvalidDigits);
}

TEST_F(HandsetCallTest, ThePauseKeyIsTheModemsOwn)
{
    ASSERT_TRUE(line.call(QStringLiteral("0 30-12,,5")));
    line.waitFor("connected");
    EXPECT_EQ(modem.dialCommand(), "ATDT03012,,5;");
}

TEST_F(HandsetCallTest, KeepsTheSignsOfServiceNumbers)
{
    ASSERT_TRUE(line.call(QStringLiteral("+49*21*1#")));
    line.waitFor("connected");
    EXPECT_EQ(modem.dialCommand(), "ATDT+49*21*1#;");
}

TEST_F(HandsetCallTest, NoNumberIsASecondCommand)
{
    for (const char *number :
         {"123\rATH0", "123\nATDT9",       "123\x1a", "123\x1b", "123;H", "\"123\"", "A/",
          "1+++",      "123;;DT5",         "12;34",   "12;",     "12^M",  "12w",     "12!",
          "12@",       "\xd9\xa1\xd9\xa2", "123\\r",  "T123",    "*",     ","}) {
        EXPECT_FALSE(line.call(QString::fromUtf8(number))) << number;
        EXPECT_EQ(line->LastError(), LineError::InvalidAddress) << number;
        line->CloseLine();
    }
    EXPECT_EQ(modem.commands(), QByteArrayList());
}

TEST_F(HandsetCallTest, AnEndlessNumberIsRefused)
{
    EXPECT_FALSE(line.call(QString(1000, u'1')));
    EXPECT_EQ(line->LastError(), LineError::InvalidAddress);
}

TEST_F(HandsetCallTest, EndsWithoutAConnection)
{
    for (const char *answer : {"BUSY", "NO CARRIER", "NO DIALTONE", "NO DIAL TONE", "NO ANSWER", "ERROR"}) {
        modem.answer("ATD", QByteArray("\r\n") + answer + "\r\n");
        ASSERT_TRUE(line.call(QStringLiteral("1")));
        line.waitFor("idle");
        EXPECT_EQ(line.events(), TestLine::notConnected) << answer;
    }
}

TEST_F(HandsetCallTest, AModemThatKnowsNoCallProgressCodesDials)
{
    modem.answer("ATX4", "\r\nERROR\r\n");
    connect();
}

TEST_F(HandsetCallTest, AModemThatRefusesItsPreparationIsAFailedDial)
{
    modem.answer("ATE0", "\r\nERROR\r\n");
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    line.waitFor("made:Operation Failed");
    EXPECT_FALSE(line->CloseLine()); // closed already
}

TEST_F(HandsetCallTest, AModemThatNeverAnswersIsAFailedDial)
{
    modem.answer("ATE0", {});
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    line.waitFor("made:Operation Failed");
}

TEST_F(HandsetCallTest, UnderstandsAnEchoAndAnAnswerInPieces)
{
    modem.answer("ATE0Q0V1", "ATE0Q0V1\r\r\nO");
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !modem.commands().isEmpty(); }));
    QCoreApplication::processEvents();
    modem.send("K\r");
    modem.send("\n");
    line.waitFor("connected");
}

TEST_F(HandsetCallTest, AnIncomingCallIsNoAnswer)
{
    modem.answer("ATD", "\r\nRING\r\n");
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    line.waitFor("made");
    modem.send("\r\nRING\r\n\r\n+CLIP: \"OK\",129\r\n");
    EXPECT_EQ(line.allEvents(), QStringLiteral("made"));
    modem.send("OK\r\n");
    line.waitFor("connected");
}

TEST_F(HandsetCallTest, AMegabyteWithoutAnEndIsNoAnswer)
{
    modem.answer("ATD", {});
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    line.waitFor("made");
    modem.send(QByteArray(1 << 20, 'O'));
    modem.send("\r\nOK\r\n");
    line.waitFor("connected");
}

TEST_F(HandsetCallTest, AModemThatIsUnpluggedEndsTheCall)
{
    connect();
    modem.unplug();
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
}

TEST_F(HandsetCallTest, AModemThatIsUnpluggedBeforeItDialsIsAFailedDial)
{
    modem.answer("ATE0", {});
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    modem.unplug();
    line.waitFor("made:No Device");
}

TEST_F(HandsetCallTest, AModemThatDoesNotHangUpIsLetGo)
{
    connect();
    modem.answer("ATH0", {});
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::hungUp);
}

TEST_F(HandsetCallTest, HangingUpEndsADialThatIsStillOn)
{
    modem.answer("ATD", {});
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    line.waitFor("made");
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), QStringLiteral("made dropped disconnected idle"));
    EXPECT_EQ(modem.commands().mid(modem.commands().size() - 2).join('|'), "|ATH0");
}

TEST_F(HandsetCallTest, ADropBeforeTheDialIsAnsweredToo)
{
    modem.answer("ATE0", {});
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), QStringLiteral("made dropped disconnected idle"));
}

TEST_F(HandsetCallTest, ClosingInACallHangsUp)
{
    connect();
    line.destroy();
    EXPECT_TRUE(QTest::qWaitFor([&] { return modem.commands().constLast() == "ATH0"; }));
}

/// As a window does that is closed in a call.
TEST_F(HandsetCallTest, ClosingWhileItHangsUpHangsUp)
{
    modem.answer("ATD", {});
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return modem.commands().size() == 3; }));
    ASSERT_TRUE(line->DropCallAsynch());
    line.destroy();
    EXPECT_TRUE(QTest::qWaitFor([&] { return modem.commands().constLast() == "ATH0"; }));
}

TEST_F(HandsetCallTest, NothingIsReportedOfAClosedLine)
{
    modem.answer("ATD", {});
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return modem.commands().size() == 3; }));
    line->CloseLine();
    const QString events = line.events();
    modem.send("OK\r\n");
    EXPECT_EQ(line.allEvents(), events);
}

TEST_F(HandsetCallTest, APortThatAnotherProgramHasIsInUse)
{
    const int other = ::open(modem.port().toLatin1().constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    EXPECT_FALSE(line.call(QStringLiteral("1")));
    EXPECT_EQ(line->LastError(), LineError::InUse);
    ::close(other);
    EXPECT_TRUE(line->OpenLine(1, 4));
}

TEST_F(HandsetCallTest, APortWithoutRightsIsNoResource)
{
    ASSERT_TRUE(line->Create());
    ASSERT_EQ(::chmod(modem.port().toLatin1().constData(), 0), 0);
    const ScratchFolder folder;
    const AsUser user(folder.path());
    EXPECT_FALSE(line->OpenLine(1, 4));
    EXPECT_EQ(line->LastError(), LineError::ResourceUnavailable);
}

TEST_F(HandsetCallTest, AModemThatTakesNoBytesIsAFailedDial)
{
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    modem.jam();
    QElapsedTimer time;
    time.start();
    ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("1")));
    line.waitFor("made:Operation Failed");
    EXPECT_LT(time.elapsed(), 20000); // nobody waits for an answer to what was not sent
}

TEST_F(HandsetCallTest, AModemThatTakesNoBytesHoldsNoDropUp)
{
    connect();
    modem.jam();
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::hungUp);
}

TEST_F(HandsetCallTest, AModemThatTakesNoBytesHoldsNoWindowUp)
{
    connect();
    modem.jam();
    QElapsedTimer time;
    time.start();
    line.destroy();
    EXPECT_LT(time.elapsed(), 5000);
}

TEST_F(HandsetCallTest, ItsCapabilities)
{
    ASSERT_TRUE(line->Create());
    EXPECT_EQ(line->LineName(), QStringLiteral("Desk modem") + QChar(0));
    EXPECT_EQ(line->ProviderInfo(), QStringLiteral("Modem on ") + modem.port() + QChar(0));
    EXPECT_EQ(line->BearerModes(), 9u);
    EXPECT_EQ(line->mediamodes(), 20u);
    EXPECT_EQ(line->AddressModes(), 2u);
    EXPECT_EQ(line->maxDataRate(), 115200u);
    EXPECT_EQ(line->numAddresses(), 1u);
    EXPECT_TRUE(line->LineSupportsVoiceCalls());
}

TEST(SerialLineTest, AMissingPortIsNoDevice)
{
    LineSettings settings;
    settings.kind = LineSettings::Kind::Serial;
    settings.port = QStringLiteral("/dev/ttyNOSUCH");
    TestLine line{{settings}};
    EXPECT_TRUE(line->Create());
    EXPECT_EQ(line->numLines(), 1);
    EXPECT_TRUE(line->LineSupportsVoiceCalls());
    EXPECT_FALSE(line->OpenLine(1, 4));
    EXPECT_EQ(line->LastError(), LineError::NoDevice);
}

TEST(SerialLineTest, AFileThatIsNoPortIsNoDevice)
{
    LineSettings settings;
    settings.kind = LineSettings::Kind::Serial;
    settings.port = QStringLiteral("/dev/null");
    TestLine line{{settings}};
    EXPECT_TRUE(line->Create());
    EXPECT_FALSE(line->OpenLine(1, 4));
    EXPECT_EQ(line->LastError(), LineError::ResourceUnavailable);
}

TEST(SerialLineTest, PulsesSpeedAndInitialisationAreTheUsers)
{
    ScriptedModem modem;
    if (!modem.isThere())
        GTEST_SKIP() << "this machine has no pseudo-terminals";
    LineSettings settings = lineOn(modem, LineSettings::SerialMode::Handset);
    settings.dialsByPulses = true;
    settings.initialisation = QStringLiteral("L1M2");
    TestLine line{{settings}};
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    line.waitFor("connected");
    EXPECT_EQ(modem.commands().join('|'), "ATE0Q0V1|ATX4|ATL1M2|ATDP1;");
}

/// The far end understands no pulses.
TEST(SerialLineTest, BehindAPausePulsesBecomeTones)
{
    ScriptedModem modem;
    if (!modem.isThere())
        GTEST_SKIP() << "this machine has no pseudo-terminals";
    LineSettings settings = lineOn(modem, LineSettings::SerialMode::Handset);
    settings.dialsByPulses = true;
    TestLine line{{settings}};
    for (const auto &[number, command] :
         {std::pair("123,45", "ATDP123,T45;"), {"123,,4,5", "ATDP123,T,4,5;"}, {"123,", "ATDP123,;"}}) {
        ASSERT_TRUE(line.call(QString::fromLatin1(number)));
        line.waitFor("connected");
        EXPECT_EQ(modem.commands().constLast(), command);
        ASSERT_TRUE(line->DropCallAsynch());
        line.waitFor("idle");
    }
}

TEST(SerialLineTest, NoInitialisationIsASecondCommand)
{
    ScriptedModem modem;
    if (!modem.isThere())
        GTEST_SKIP() << "this machine has no pseudo-terminals";
    LineSettings settings = lineOn(modem, LineSettings::SerialMode::Handset);
    settings.initialisation = QStringLiteral("L1\rATDT0900");
    TestLine line{{settings}};
    EXPECT_FALSE(line.call(QStringLiteral("1")));
    EXPECT_EQ(line->LastError(), LineError::InvalidParameter);
}

TEST(SerialLineTest, ACallThatNobodyAnswersIsGivenUp)
{
    ScriptedModem modem;
    if (!modem.isThere())
        GTEST_SKIP() << "this machine has no pseudo-terminals";
    modem.answer("ATD", {});
    TestLine line{{lineOn(modem, LineSettings::SerialMode::Handset)},
                  {.answer = std::chrono::milliseconds(300)}};
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::notConnected);
    EXPECT_EQ(modem.commands().constLast(), "ATH0");
}

TEST_F(VoiceCallTest, KeepsTheCallItself)
{
    connect();
    EXPECT_EQ(modem.commands().join('|'), "ATE0Q0V1|ATX4|AT+FCLASS=8|ATDT1234");
}

TEST_F(VoiceCallTest, WaitsForTheAnswer)
{
    modem.answer("ATD", "\r\nOK\r\n");
    ASSERT_TRUE(line.call(QStringLiteral("1")));
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::notConnected);
}

TEST_F(VoiceCallTest, HearsThatTheFarEndIsGone)
{
    for (const char event : {'b', 'd', 'h', 'l', 's'}) {
        connect();
        modem.send(QByteArray("\x10") + '0'); // somebody presses a key
        modem.send(QByteArray("\x10") + '\0');
        EXPECT_EQ(line.allEvents(), QStringLiteral("made connected"));
        modem.send(QByteArray("\x10") + event);
        line.waitFor("idle");
    }
}

TEST_F(VoiceCallTest, SendsTonesInACall)
{
    connect();
    EXPECT_TRUE(line->GenerateDigits(QStringLiteral("1*")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return modem.commands().constLast() == "AT+VTS=1,*"; }));
}
