#include "LineError.h"
#include "MockModemManager.h"
#include "PrintQt.h"
#include "TestLine.h"

#include <QElapsedTimer>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// A computer with one modem.
struct OneModem : MockModemManager
{
    OneModem() { addModem(QStringLiteral("m1"), QStringLiteral("Stick")); }
};

/// Calls by a modem that the user has not entered.
struct MobileCallTest : testing::Test
{
    OneModem manager;
    TestLine line{{}};

    void dial(const QString &number = QStringLiteral("+49 30-12"))
    {
        ASSERT_TRUE(line.call(number));
        line.waitFor("made");
    }

    void connect()
    {
        dial();
        manager.changeCall(MockModemManager::Ringing);
        manager.changeCall(MockModemManager::Active);
        line.waitFor("connected");
    }

    void waitForSeen(const QString &methods)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return manager.seen() == methods; }, 20000))
            << qPrintable(manager.seen());
    }
};

LineSettings entered(const QString &identifier)
{
    LineSettings settings;
    settings.kind = LineSettings::Kind::Mobile;
    settings.label = QStringLiteral("Mine");
    settings.modem = identifier;
    return settings;
}

} // namespace

TEST_F(MobileCallTest, IsAnsweredAndHungUp)
{
    connect();
    ASSERT_TRUE(line->DropCallAsynch());
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::hungUp);
    waitForSeen(QStringLiteral("Enable, CreateCall +493012, Start, Hangup, DeleteCall"));
}

TEST_F(MobileCallTest, TheFarEndHangsUp)
{
    connect();
    manager.changeCall(MockModemManager::Terminated);
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
}

TEST_F(MobileCallTest, EndsWithoutAConnection)
{
    dial();
    manager.changeCall(MockModemManager::Terminated);
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::notConnected);
}

TEST_F(MobileCallTest, WhatTheModemRefusesIsAFailedDial)
{
    for (const char *method : {"Enable", "CreateCall", "Start"}) {
        manager.fail(QString::fromLatin1(method));
        ASSERT_TRUE(line.call(QStringLiteral("12")));
        line.waitFor("made:Operation Failed");
    }
}

TEST_F(MobileCallTest, SendsTones)
{
    dial(QStringLiteral("12,3"));
    manager.changeCall(MockModemManager::Active);
    line.waitFor("connected");
    waitForSeen(QStringLiteral("Enable, CreateCall 12, Start, SendDtmf 3"));
    EXPECT_TRUE(line->GenerateDigits(QStringLiteral("4#")));
    waitForSeen(QStringLiteral("Enable, CreateCall 12, Start, SendDtmf 3, SendDtmf 4, SendDtmf #"));
}

TEST_F(MobileCallTest, NoNumberIsASecondCall)
{
    for (const char *number : {"12\r34", "12;34", "12\n34", "12\"", "12\x1a", "12;"}) {
        EXPECT_FALSE(line.call(QString::fromLatin1(number))) << number;
        EXPECT_EQ(line->LastError(), LineError::InvalidAddress) << number;
        line->CloseLine();
    }
    EXPECT_EQ(manager.seen(), QString());
}

TEST_F(MobileCallTest, AModemThatIsUnpluggedEndsTheCall)
{
    connect();
    manager.unplug(QStringLiteral("m1"));
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
}

TEST_F(MobileCallTest, AModemThatWasUnpluggedIsNoDeviceUntilItIsBack)
{
    ASSERT_TRUE(line->Create());
    manager.unplug(QStringLiteral("m1"));
    const auto opens = [this] {
        const bool isOpen = line->OpenLine(1, 4);
        line->CloseLine();
        return isOpen;
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opens(); }, 20000));
    EXPECT_EQ(line->LastError(), LineError::NoDevice);
    manager.addModem(QStringLiteral("m1"), QStringLiteral("Stick"));
    EXPECT_TRUE(QTest::qWaitFor(opens, 20000));
}

TEST_F(MobileCallTest, AServiceThatEndsEndsTheCall)
{
    connect();
    manager.kill();
    line.waitFor("idle");
    EXPECT_EQ(line.events(), TestLine::farEndGone);
}

TEST_F(MobileCallTest, ClosingInACallHangsUp)
{
    connect();
    line.destroy();
    waitForSeen(QStringLiteral("Enable, CreateCall +493012, Start, DeleteCall"));
}

TEST_F(MobileCallTest, AModemThatDoesNotAnswerIsLetGo)
{
    ASSERT_TRUE(line->Create());
    TestLine patient{{}, {.accept = std::chrono::milliseconds(300)}};
    ASSERT_TRUE(patient->Create());
    ASSERT_TRUE(patient->OpenLine(1, 4));
    manager.freeze();
    ASSERT_TRUE(patient->MakeCallAsynch(QStringLiteral("12")));
    patient.waitFor("made:Operation Failed");
}

TEST_F(MobileCallTest, ModemsComeAndGo)
{
    const auto hasLines = [this](int count) {
        return QTest::qWaitFor([=, this] { return line->Create() && line->numLines() == count; }, 20000);
    };
    ASSERT_TRUE(hasLines(1));
    manager.addModem(QStringLiteral("m2"), QStringLiteral("Stick"));
    EXPECT_TRUE(hasLines(2));
    manager.unplug(QStringLiteral("m2"));
    EXPECT_TRUE(hasLines(1));
    manager.kill();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !line->Create(); }, 20000));
}

/// Only the first look waits, and less the later it comes.
TEST(MobileLineTest, AServiceThatDoesNotAnswerHoldsTheStartASecond)
{
    OneModem manager;
    manager.freeze();
    TestLine line{{}};
    QElapsedTimer time;
    time.start();
    for (int start = 0; start < 10; ++start)
        EXPECT_FALSE(line->Create());
    EXPECT_LT(time.elapsed(), 5000);
}

TEST_F(MobileCallTest, ItsCapabilities)
{
    ASSERT_TRUE(line->Create());
    EXPECT_EQ(line->LineName(), QStringLiteral("Mobile Maker Stick") + QChar(0));
    EXPECT_EQ(line->ProviderInfo(), QStringLiteral("Maker Stick +491234") + QChar(0));
    EXPECT_EQ(line->SwitchInfo(), QStringLiteral("Net") + QChar(0));
    EXPECT_TRUE(line->LineSupportsVoiceCalls());
}

TEST(MobileLineTest, AModemThatIsNoTelephoneSupportsNoVoiceCalls)
{
    MockModemManager manager;
    manager.addModem(QStringLiteral("m1"), QStringLiteral("Data"), false);
    TestLine line{{}};
    ASSERT_TRUE(line->Create());
    EXPECT_FALSE(line->LineSupportsVoiceCalls());
    EXPECT_EQ(line->mediamodes(), 16u);
    EXPECT_FALSE(line->OpenLine(1, 4));
    EXPECT_EQ(line->LastError(), LineError::InvalidMediaMode);
}

TEST(MobileLineTest, EnteredLinesComeFirstAndAreNotListedTwice)
{
    MockModemManager manager;
    manager.addModem(QStringLiteral("m2"), QStringLiteral("B"));
    manager.addModem(QStringLiteral("m3"), QStringLiteral("C"));
    manager.addModem(QStringLiteral("m1"), QStringLiteral("A"));
    TestLine line{{entered(QStringLiteral("m3")), entered(QStringLiteral("gone"))}};
    ASSERT_TRUE(line->Create());
    ASSERT_EQ(line->numLines(), 4);
    EXPECT_EQ(line->LineName(), QStringLiteral("Mine") + QChar(0));
    line->setCurrentLineID(1);
    EXPECT_FALSE(line->OpenLine(1, 4));
    EXPECT_EQ(line->LastError(), LineError::NoDevice);
    line->setCurrentLineID(2);
    EXPECT_EQ(line->LineName(), QStringLiteral("Mobile Maker A") + QChar(0));
    line->setCurrentLineID(3);
    EXPECT_EQ(line->LineName(), QStringLiteral("Mobile Maker B") + QChar(0));
}

TEST(MobileLineTest, NamesOfModemsAreShownPlainly)
{
    MockModemManager manager;
    manager.addModem(QStringLiteral("m1"), QStringLiteral("a\nb\x07"));
    TestLine line{{}};
    ASSERT_TRUE(line->Create());
    EXPECT_EQ(line->LineName(), QStringLiteral("Mobile Maker a\uFFFDb\uFFFD") + QChar(0));
}
