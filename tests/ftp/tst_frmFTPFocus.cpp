#include "FtpWindow.h"
#include "PrintQt.h"
#include "StandInTool.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// Where the keys go.
struct FtpFocusTest : testing::Test
{
    FtpWindow window;

    FtpFocusTest() { window.served.addFile("a"); }

    QString focus() const
    {
        const QWidget *focused = window.form().window()->focusWidget();
        return focused ? focused->objectName() : QString();
    }
    /// The profiles are opened and left again, which gives the focus to their button.
    void lookAtProfiles()
    {
        window.frame.dialogs.expectWindow<Form>(QStringLiteral("frmFTPAccounts"), [](Form &profiles) {
            QTest::keyClick(&profiles, Qt::Key_Escape);
        });
        window.click("cmdAccounts");
    }
    void expectLost()
    {
        window.frame.dialogs.expectBox(
            QStringLiteral("Error"),
            QStringLiteral("12030 The connection with the server has been terminated."));
    }
};

} // namespace

TEST_F(FtpFocusTest, ALogOnGivesItToTheServersList)
{
    QString during;
    window.server.during("USER", [&] { during = focus(); });
    window.click("cmdLogOn");
    EXPECT_EQ(during, QStringLiteral("lblStatus")); // at no control that takes keys
    EXPECT_EQ(focus(), QStringLiteral("lstRemoteFile"));
}

TEST_F(FtpFocusTest, TheWindowOpensWithItAtTheServer)
{
    EXPECT_EQ(focus(), QStringLiteral("txtServer"));
}

TEST_F(FtpFocusTest, ALogOnLeavesItWhereItDoesNotTakeItAway)
{
    auto &box = window.control<QLineEdit>("txtPassword");
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(focus(), QStringLiteral("txtPassword"));
}

TEST_F(FtpFocusTest, ALogOnLeavesItWhereTheUserHasGoneMeanwhile)
{
    window.server.during("USER", [this] { window.control<QWidget>("txtAccount").setFocus(); });
    window.click("cmdLogOn");
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(focus(), QStringLiteral("txtAccount"));
}

TEST_F(FtpFocusTest, ASecondPressOfConnectChangesNothing)
{
    QString during;
    window.server.during("USER", [&] {
        QTest::mousePress(&window.control<QWidget>("cmdLogOn"),
                          Qt::LeftButton); // disabled, so what is behind gets it
        during = focus();
    });
    window.click("cmdLogOn");
    EXPECT_NE(during, QStringLiteral("lblStatus"));
    EXPECT_EQ(focus(), QStringLiteral("lstRemoteFile"));
}

TEST_F(FtpFocusTest, TheReturnThatLogsOnPressesNoOtherButton)
{
    auto &box = window.control<QLineEdit>("txtServer");
    window.server.during("USER", [this] { lookAtProfiles(); });
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(window.frame.dialogs.seen().size(), 1);
}

TEST_F(FtpFocusTest, TheReturnThatReceivesPressesNoOtherButton)
{
    window.logOn();
    window.selectRow(QStringLiteral("a"));
    window.remote().setFocus();
    window.server.during("RETR", [this] { lookAtProfiles(); });
    QTest::keyClick(&window.remote(), Qt::Key_Return);
    EXPECT_EQ(window.frame.dialogs.seen().size(), 1);
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE a|RETR a"));
}

TEST_F(FtpFocusTest, ClosedInItsWaitItPressesNoButton)
{
    auto &box = window.control<QLineEdit>("txtServer");
    window.server.during("USER", [this] {
        lookAtProfiles();
        window.form().unload();
    });
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Return);
    FtpWindow::waitFor([this] { return !window.isOpen(); });
    EXPECT_EQ(window.frame.dialogs.seen().size(), 1);
    window.open();
    EXPECT_TRUE(window.isEnabled("cmdLogOn"));
}

TEST_F(FtpFocusTest, AFailedLogOnGivesItToConnect)
{
    window.logOn();
    window.control<QLineEdit>("txtServer").setText(QStringLiteral("http://example.org"));
    window.remote().setFocus(); // which the failure disables
    window.frame.dialogs.expectBox(QStringLiteral("LogOn Failure"), QStringLiteral("Logon attempt failed"));
    window.form().cmdLogOn_Click();
    EXPECT_EQ(focus(), QStringLiteral("cmdLogOn"));
}

TEST_F(FtpFocusTest, ALogOffGivesItToConnect)
{
    window.logOn();
    window.click("cmdLogOff");
    EXPECT_EQ(focus(), QStringLiteral("cmdLogOn"));
    window.logOn();
    window.control<QWidget>("cmdLogOff").setFocus();
    QTest::keyClick(&window.control<QWidget>("cmdLogOff"), Qt::Key_Space);
    EXPECT_EQ(focus(), QStringLiteral("cmdLogOn"));
    EXPECT_TRUE(window.isEnabled("cmdLogOn"));
}

TEST_F(FtpFocusTest, ALostConnectionGivesItToConnect)
{
    window.logOn();
    window.server.dropBefore("SIZE");
    window.selectRow(QStringLiteral("a"));
    expectLost();
    window.click("cmdSize");
    EXPECT_EQ(focus(), QStringLiteral("cmdLogOn"));
}

TEST_F(FtpFocusTest, ALostConnectionLeavesItWhereItCanBe)
{
    window.logOn();
    window.server.dropBefore("CDUP");
    window.control<QWidget>("filLocalFile").setFocus();
    expectLost();
    Q_EMIT window.control<QAbstractButton>("cmdUpFolder").clicked(); // without the mouse, which takes it
    EXPECT_EQ(focus(), QStringLiteral("filLocalFile"));
}

TEST_F(FtpFocusTest, AnotherWindowKeepsIt)
{
    auto *other = new StandInTool(QStringLiteral("frmOther"));
    auto *box = new QLineEdit(other);
    box->setObjectName(QStringLiteral("box"));
    other->showModeless();
    box->setFocus();
    window.form().cmdLogOn_Click();
    EXPECT_EQ(focus(), QStringLiteral("box"));
    Q_EMIT window.control<QAbstractButton>("cmdLogOff").clicked();
    EXPECT_EQ(focus(), QStringLiteral("box"));
}
