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
    EXPECT_EQ(during, QStringLiteral("frmFTP")); // at no control
    EXPECT_EQ(focus(), QStringLiteral("lstRemoteFile"));
}

TEST_F(FtpFocusTest, ALogOnByReturnGivesItToTheServersList)
{
    auto &box = window.control<QLineEdit>("txtPassword");
    QString during;
    window.server.during("USER", [&] { during = focus(); });
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(during, QStringLiteral("txtPassword"));
    EXPECT_EQ(focus(), QStringLiteral("lstRemoteFile"));
}

TEST_F(FtpFocusTest, AFailedLogOnGivesItBack)
{
    window.control<QLineEdit>("txtServer").setText(QStringLiteral("http://example.org"));
    window.frame.dialogs.expectBox(QStringLiteral("LogOn Failure"), QStringLiteral("Logon attempt failed"));
    window.click("cmdLogOn");
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
