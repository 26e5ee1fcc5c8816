#include "DiallerWindow.h"
#include "PrintQt.h"
#include "PrivateSystemBus.h"
#include "ScriptedModem.h"
#include "TelephoneSettings.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// The window with a line of its own: a modem that keeps the call itself.
struct DiallerModemTest : testing::Test
{
    PrivateSystemBus bus;
    ScriptedModem modem;
    DiallerWindow window;

    DiallerModemTest()
    {
        modem.answer("ATD", "\r\nVCON\r\n");
        LineSettings line;
        line.kind = LineSettings::Kind::Serial;
        line.label = QStringLiteral("Desk modem");
        line.port = modem.port();
        line.mode = LineSettings::SerialMode::Voice;
        TelephoneSettings settings;
        settings.lines = {line};
        settings.write();
        window.hasOwnLines = true;
    }
    void SetUp() override
    {
        if (!modem.isThere())
            GTEST_SKIP() << "this machine has no pseudo-terminals";
        window.open("Use");
    }
    void waitFor(const char *row)
    {
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return window.log().value(window.log().size() - 1) == QString::fromLatin1(row); }));
    }
    void connect()
    {
        window.type(QStringLiteral("(12) 34"));
        window.press("cmdDial");
        waitFor("Connected");
    }
};

} // namespace

TEST_F(DiallerModemTest, ACallIsHungUpHere)
{
    EXPECT_TRUE(window.control<QLabel>("Label1").text().contains(QStringLiteral("Desk modem")));
    connect();
    EXPECT_TRUE(modem.dialCommand().contains("1234"));
    EXPECT_EQ(window.number(), QStringLiteral("(12) 34"));
    window.press("cmdHangUp");
    waitFor("Idle");
    EXPECT_EQ(window.log().join(u'|'),
              QStringLiteral("Opening line: #0|Preparing to dial: (12) 34|Dialing: (12) 34|Connected|"
                             "Requesting drop call...|Call Dropped: (12) 34|Disconnected|Idle"));
    EXPECT_TRUE(window.canDial());
}

TEST_F(DiallerModemTest, TheFarEndHangsUp)
{
    connect();
    modem.send("\r\nNO CARRIER\r\n");
    waitFor("Idle");
    EXPECT_EQ(window.log().join(u'|'),
              QStringLiteral("Opening line: #0|Preparing to dial: (12) 34|Dialing: (12) 34|Connected|"
                             "Disconnected|Call Dropped: (12) 34|Idle"));
}

TEST_F(DiallerModemTest, AKeySendsItsTone)
{
    connect();
    window.press("cmddigit_7");
    EXPECT_TRUE(QTest::qWaitFor([&] { return modem.commands().contains("AT+VTS=7"); }));
}

TEST_F(DiallerModemTest, ClosingTheWindowHangsUp)
{
    connect();
    window.press("cmdExit");
    EXPECT_TRUE(window.isGone());
    EXPECT_TRUE(QTest::qWaitFor([&] { return modem.commands().constLast() == "ATH0"; }));
}
