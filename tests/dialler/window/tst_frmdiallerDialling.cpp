#include "BaresipProcesses.h"
#include "DiallerWindow.h"
#include "MockModemManager.h"
#include "PrintQt.h"
#include "PrivateSystemBus.h"
#include "ScriptedModem.h"
#include "SipServer.h"
#include "TelephoneSettings.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// The window is closed while a line of its own dials.
struct DiallingTest : testing::Test
{
    PrivateSystemBus bus;
    DiallerWindow window;

    void dial(const QList<LineSettings> &lines)
    {
        TelephoneSettings settings;
        settings.lines = lines;
        settings.write();
        window.hasOwnLines = true;
        window.open("Use");
        window.type(QStringLiteral("12"));
        window.press("cmdDial");
        const QString row = QStringLiteral("Dialing: 12");
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.log().contains(row); }, 30000))
            << qPrintable(window.log().join(u'|'));
        EXPECT_EQ(window.log().constLast(), row);
    }
    void close()
    {
        window.press("cmdExit");
        EXPECT_TRUE(window.isGone());
    }
};

bool comesTrue(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 20000);
}

} // namespace

TEST_F(DiallingTest, ClosingTheWindowHangsASerialModemUp)
{
    ScriptedModem modem;
    if (!modem.isThere())
        GTEST_SKIP() << "this machine has no pseudo-terminals";
    modem.answer("ATD", {});
    LineSettings line;
    line.kind = LineSettings::Kind::Serial;
    line.port = modem.port();
    dial({line});
    close();
    EXPECT_TRUE(comesTrue([&] { return modem.commands().constLast() == "ATH0"; }));
}

TEST_F(DiallingTest, ClosingTheWindowDeletesTheCallOfAMobileModem)
{
    MockModemManager manager;
    manager.addModem(QStringLiteral("m1"), QStringLiteral("Stick"));
    dial({});
    close();
    EXPECT_TRUE(comesTrue([&] { return manager.seen().endsWith(QStringLiteral("Hangup, DeleteCall")); }))
        << qPrintable(manager.seen());
}

TEST_F(DiallingTest, ClosingTheWindowCancelsASipCall)
{
    const SipServer server(QStringLiteral("registrar"), QStringLiteral("180 Ringing"));
    LineSettings line;
    line.user = QStringLiteral("alice");
    line.password = QStringLiteral("se;cr et");
    line.server = server.address();
    line.microphone = QStringLiteral("aufile,/nonexistent");
    line.loudspeaker = QStringLiteral("nullplay,none");
    dial({line});
    ASSERT_TRUE(comesTrue([&] { return !server.requests().filter(QStringLiteral("INVITE")).isEmpty(); }));
    close();
    EXPECT_TRUE(comesTrue([&] { return !server.requests().filter(QStringLiteral("CANCEL")).isEmpty(); }));
    BaresipProcesses::waitFor({});
}
