#include "Forms.h"
#include "FtpWindow.h"
#include "Globals.h"
#include "PrintQt.h"
#include "WindowLog.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString failure = QStringLiteral("LogOn Failure");
const QStringList connectionControls = {
    QStringLiteral("cmdNewFolder"), QStringLiteral("cmdDelete"),     QStringLiteral("cmdRename"),
    QStringLiteral("cmdSize"),      QStringLiteral("cmdUpFolder"),   QStringLiteral("cmdsend"),
    QStringLiteral("cmdreceive"),   QStringLiteral("lstRemoteFile"), QStringLiteral("cmdLogOff")};

QString disabledAll()
{
    return u'-' + connectionControls.join(QStringLiteral(" -"));
}

QString enabledAll()
{
    return u'+' + connectionControls.join(QStringLiteral(" +"));
}

/// Runs a step at the moment in which a control is disabled.
class AtDisabling : public QObject
{
public:
    AtDisabling(QWidget &control, std::function<void()> step)
        : m_step(std::move(step))
    {
        control.installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::EnabledChange && !static_cast<QWidget *>(watched)->isEnabled())
            m_step();
        return false;
    }

private:
    std::function<void()> m_step;
};

struct FtpLogOnTest : testing::Test
{
    FtpWindow window;

    void fill(const char *name, const char *text) const
    {
        window.control<QLineEdit>(name).setText(QString::fromLatin1(text));
    }
    QLabel &label() const { return window.control<QLabel>("lblStatus"); }
    void enableAll() const
    {
        for (const QString &name : connectionControls)
            window.control<QWidget>(qPrintable(name)).setEnabled(true);
    }
    QString enabled() const
    {
        QStringList names;
        for (const char *name :
             {"cmdLogOn", "cmdLogOff", "cmdAccounts", "cmdNewFolder", "cmdUpFolder", "cmdDelete", "cmdSize",
              "cmdRename", "cmdsend", "imgSendFile", "cmdreceive", "imgReceiveFile", "lstRemoteFile"}) {
            if (window.isEnabled(name))
                names << QString::fromLatin1(name);
        }
        return names.join(u' ');
    }
    void expectRefusal() { expectBox("You must specify a server and password."); }
    BoxStep &expectBox(const char *text)
    {
        return window.frame.dialogs.expectBox(failure, QString::fromLatin1(text))
            .icon(QMessageBox::Information)
            .buttons(QMessageBox::Ok);
    }
    void expectError(int code, const QString &info)
    {
        window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("%1 ").arg(code) + info)
            .icon(QMessageBox::Critical)
            .buttons(QMessageBox::Ok);
    }
};

const QString startSet = QStringLiteral("cmdLogOn cmdAccounts cmdsend imgSendFile cmdreceive imgReceiveFile");
const QString connectedSet =
    QStringLiteral("cmdLogOff cmdAccounts cmdNewFolder cmdUpFolder cmdDelete cmdSize cmdRename cmdsend "
                   "imgSendFile cmdreceive imgReceiveFile lstRemoteFile");
const QString disconnectedSet = QStringLiteral("cmdLogOn cmdAccounts imgSendFile imgReceiveFile");

} // namespace

TEST_F(FtpLogOnTest, LogsOnAndLists)
{
    window.served.addFolder("pub");
    window.served.addFile("readme");
    const WindowLog log(window.form(), label());
    window.click("cmdLogOn");
    EXPECT_EQ(window.commands(), QStringLiteral("USER tester|PASS secret|MLSD"));
    EXPECT_EQ(
        log.statusTexts(),
        QStringLiteral("Connecting|Finding Host IP Address|IP Address Found|Connecting To Host|Connected|"
                       "Receiving Response|Response Received|Sending Request|Request Sent|"
                       "Receiving Response|Response Received|Connected"));
    EXPECT_TRUE(window.probe.states().startsWith(QStringLiteral("1 2 3 4 7 8 5 6 7 8 ")));
    EXPECT_TRUE(window.probe.states().endsWith(QStringLiteral(" 5 6 7 8 12")));
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(window.rows().join(u'|'), QStringLiteral("pub/|readme"));
    EXPECT_EQ(window.beeps, 1);
}

/// The command before is cancelled between the user's name and the password.
TEST_F(FtpLogOnTest, SetsTheSessionUpInItsOrder)
{
    window.logOn();
    fill("txtUserName", "");
    fill("txtPassword", "pass");
    const QString address = QStringLiteral("ftp://") + window.server.address() + u'/';
    window.control<QLineEdit>("txtServer").setText(address);
    window.control<QWidget>("cmdLogOn").setEnabled(true);
    window.session().setRequestTimeout(7);
    window.session().Execute({}, QStringLiteral("DIR"));
    window.server.hold("MLSD");
    QString seen;
    const AtDisabling order(window.control<QWidget>("cmdLogOn"), [&] {
        seen = window.session().RemoteHost() + u' ' + window.session().UserName() + u' ' +
               window.session().Password() +
               QStringLiteral(" %1 %2")
                   .arg(window.session().RequestTimeout())
                   .arg(window.session().StillExecuting());
        window.server.release();
    });
    EXPECT_TRUE(window.session().StillExecuting());
    QTest::mouseClick(&window.control<QWidget>("cmdLogOn"), Qt::LeftButton);
    EXPECT_EQ(seen, address + QStringLiteral(" anonymous secret 7 0"));
    EXPECT_EQ(window.session().Protocol(), InternetTransfer::icFTP);
    EXPECT_EQ(window.session().Password(), QStringLiteral("pass"));
    EXPECT_EQ(window.session().RequestTimeout(), 40);
}

TEST_F(FtpLogOnTest, AnEmptyUserNameIsAnonymous)
{
    fill("txtUserName", "");
    window.click("cmdLogOn");
    EXPECT_EQ(window.commands(), QStringLiteral("USER anonymous|PASS secret|MLSD"));
    EXPECT_EQ(window.control<QLineEdit>("txtUserName").text(), QString());
}

TEST_F(FtpLogOnTest, ReturnInATextBoxLogsOnWhereThatIsPossible)
{
    for (const char *name : {"txtAccount", "txtServer", "txtUserName", "txtPassword"}) {
        auto &box = window.control<QLineEdit>(name);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_EQ(window.commands(), QStringLiteral("USER tester|PASS secret|MLSD")) << name;
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Return);
        window.settle();
        EXPECT_EQ(window.commands(), QStringLiteral("USER tester|PASS secret|MLSD")) << name;
        window.click("cmdLogOff");
        window.forget();
    }
}

TEST_F(FtpLogOnTest, TheServersTextIsPassedOnUnchanged)
{
    const QString text = QStringLiteral(" ftp://") + window.server.address() + QStringLiteral("/ ");
    window.control<QLineEdit>("txtServer").setText(text);
    window.click("cmdLogOn");
    EXPECT_EQ(window.session().RemoteHost(), text);
    EXPECT_EQ(window.commands(), QStringLiteral("USER tester|PASS secret|MLSD"));
}

TEST_F(FtpLogOnTest, AServerAndAPasswordAreNeeded)
{
    for (const auto &[server, password] :
         {std::pair("host", ""), std::pair("", "secret"), std::pair("", "")}) {
        fill("txtServer", server);
        fill("txtPassword", password);
        expectRefusal();
        window.click("cmdLogOn");
        EXPECT_EQ(window.session().RemoteHost(), QString());
        EXPECT_EQ(window.probe.states(), QString());
        EXPECT_EQ(window.status(), QStringLiteral("Not Connected"));
        EXPECT_EQ(enabled(), startSet);
    }
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST_F(FtpLogOnTest, ControlsAreEnabledInTheirOrder)
{
    for (const QString &name : connectionControls)
        window.control<QWidget>(qPrintable(name)).setEnabled(false);
    const WindowLog log(window.form(), label());
    window.click("cmdLogOn");
    EXPECT_EQ(log.entries().first(), QStringLiteral("Connecting"));
    EXPECT_EQ(log.entries().at(1), QStringLiteral("-cmdLogOn"));
    EXPECT_TRUE(log.text().endsWith(QStringLiteral(" Connected ") + enabledAll()));
    EXPECT_EQ(enabled(), connectedSet);
}

TEST_F(FtpLogOnTest, WhileItWaitsOnlyItselfIsDisabled)
{
    QString during;
    QString status;
    window.server.during("USER", [&] { during = enabled(); });
    window.click("cmdLogOn");
    EXPECT_EQ(during,
              QStringLiteral("cmdAccounts cmdsend imgSendFile cmdreceive imgReceiveFile")); // as at the start
    window.click("cmdLogOff");
    window.server.during("USER", [&] {
        during = enabled();
        status = window.status();
    });
    window.click("cmdLogOn");
    EXPECT_EQ(during, QStringLiteral("cmdAccounts imgSendFile imgReceiveFile"));
    EXPECT_EQ(status, QStringLiteral("Request Sent"));
}

/// A text that names no server.
TEST_F(FtpLogOnTest, AFailureDisconnects)
{
    fill("txtServer", "http://example.org");
    enableAll();
    window.control<QWidget>("cmdLogOn").setEnabled(false);
    const WindowLog log(window.form(), label());
    expectBox("Logon attempt failed");
    window.form().cmdLogOn_Click();
    EXPECT_EQ(log.text(), QStringLiteral("Connecting Not Connected +cmdLogOn ") + disabledAll());
    EXPECT_EQ(enabled(), disconnectedSet);
    EXPECT_EQ(window.server.connections(), 0);
}

TEST_F(FtpLogOnTest, AFailureEndsTheConnectionThatWas)
{
    window.logOn();
    fill("txtServer", "http://example.org");
    expectBox("Logon attempt failed");
    window.form().cmdLogOn_Click();
    FtpWindow::waitFor([this] { return window.server.openConnections() == 0; });
    EXPECT_EQ(enabled(), disconnectedSet);
}

TEST_F(FtpLogOnTest, SaysConnectingFirst)
{
    fill("txtServer", "http://example.org");
    QString status;
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        status = window.status();
        box.accept();
    });
    window.click("cmdLogOn");
    EXPECT_EQ(status, QStringLiteral("Connecting"));
}

TEST_F(FtpLogOnTest, AServerThatRefusesStillLooksConnected)
{
    window.server.reply("PASS", "530 Login incorrect.");
    expectError(12014, QStringLiteral("The request to connect to and log on to an FTP server could not be "
                                      "completed because the supplied password is incorrect."));
    window.click("cmdLogOn");
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(enabled(), connectedSet);
    EXPECT_EQ(window.beeps, 0);
    EXPECT_EQ(window.commands(), QStringLiteral("USER tester|PASS secret"));
}

TEST_F(FtpLogOnTest, AConnectionLostDuringTheLogOnStillLooksConnected)
{
    window.server.dropBefore("MLSD");
    expectError(12030, QStringLiteral("The connection with the server has been terminated."));
    window.click("cmdLogOn");
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(enabled(), QStringLiteral("cmdLogOn ") + connectedSet);
}

TEST_F(FtpLogOnTest, AServerThatIsNotThereStillLooksConnected)
{
    window.server.close();
    expectError(12029, QStringLiteral("The attempt to connect to the server failed."));
    window.click("cmdLogOn");
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(enabled(), connectedSet);
}

TEST_F(FtpLogOnTest, ANewLogOnAppendsToTheList)
{
    window.logOn({QStringLiteral("a")});
    window.control<QWidget>("cmdLogOn").setEnabled(true);
    window.server.setListing("type=file; b\r\n");
    window.click("cmdLogOn");
    EXPECT_EQ(window.rows().join(u'|'), QStringLiteral("a|b"));
}

TEST_F(FtpLogOnTest, ClosesTheProfilesFirst)
{
    fill("txtServer", "");
    bool wasOpen = true;
    window.frame.dialogs.expectWindow<Form>(QStringLiteral("frmFTPAccounts"),
                                            [&](Form &) { window.form().cmdLogOn_Click(); });
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        wasOpen = !Forms::named(QStringLiteral("frmFTPAccounts")).isEmpty();
        box.accept();
    });
    window.click("cmdAccounts");
    EXPECT_FALSE(wasOpen);
}

/// What would be a second command, in the boxes or from the profile file, is an error that nobody sees.
TEST_F(FtpLogOnTest, LineEndsInUserOrPasswordReachNoServer)
{
    const QByteArray address = window.server.address().toLatin1();
    for (const QByteArray &fields :
         {QByteArray("\"tester\r\nDELE a\",secret"), QByteArray("\"te\nster\",secret"),
          QByteArray("tester,\"secret\r\nDELE a\""), QByteArray("tester,\"sec\rret\"")}) {
        window.close();
        window.programFolder.addFile("ftpprof.dat", "0,Mirror," + address + ',' + fields + ",\r\n");
        window.open();
        window.forget();
        window.click("cmdLogOn");
        EXPECT_EQ(window.probe.states(), QStringLiteral("11:87")) << fields.constData();
        EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    }
    EXPECT_EQ(window.server.connections(), 0);
    EXPECT_EQ(window.frame.dialogs.seen().size(), 0);
}

TEST_F(FtpLogOnTest, ALineEndInTheServerIsAFailure)
{
    window.close();
    window.programFolder.addFile("ftpprof.dat", "0,Mirror,\"" + window.server.address().toLatin1() +
                                                    "\r\nDELE a\",u,p,\r\n");
    window.open();
    expectBox("Logon attempt failed");
    window.click("cmdLogOn");
    EXPECT_EQ(window.server.connections(), 0);
    EXPECT_EQ(enabled(), disconnectedSet);
}

TEST_F(FtpLogOnTest, LogOffClosesTheConnection)
{
    window.logOn({QStringLiteral("a")});
    window.control<QWidget>("cmdLogOn").setEnabled(true);
    const WindowLog log(window.form(), label());
    QTest::mouseClick(&window.control<QWidget>("cmdLogOff"), Qt::LeftButton);
    EXPECT_TRUE(window.session().StillExecuting()); // its command, for which it does not wait
    EXPECT_EQ(log.text(), QStringLiteral("Closing Connection Not Connected -cmdLogOn ") + disabledAll() +
                              QStringLiteral(" +cmdLogOn"));
    EXPECT_EQ(window.rows(), QStringList());
    EXPECT_EQ(enabled(), disconnectedSet);
    window.settle();
    EXPECT_EQ(window.probe.states(), QStringLiteral("12"));
    EXPECT_EQ(window.status(), QStringLiteral("Not Connected"));
    FtpWindow::waitFor([this] { return window.server.openConnections() == 0; });
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(FtpLogOnTest, LogOffEndsACommandThatRuns)
{
    window.logOn({QStringLiteral("a")});
    window.server.hold("RETR");
    window.selectRow(QStringLiteral("a"));
    window.server.during("RETR", [&] { window.click("cmdLogOff"); });
    window.click("cmdreceive");
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE a|RETR a"));
    EXPECT_TRUE(window.probe.states().endsWith(QStringLiteral(" 5 6 12"))); // of CLOSE
    EXPECT_EQ(enabled(), disconnectedSet);
    FtpWindow::waitFor([this] { return window.server.openConnections() == 0; });
}

TEST_F(FtpLogOnTest, LogOffDuringAChangingCommandIsFollowedByANewLogOn)
{
    window.logOn({QStringLiteral("a")});
    window.server.hold("CDUP");
    window.server.during("CDUP", [&] { window.click("cmdLogOff"); });
    const WindowLog log(window.form(), label());
    window.click("cmdUpFolder");
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP|USER tester|PASS secret|MLSD"));
    EXPECT_TRUE(log.statusTexts().startsWith(
        QStringLiteral("Sending Request|Request Sent|Closing Connection|Not Connected|Connected|"
                       "Finding Host IP Address|")));
    EXPECT_EQ(window.rows(), QStringList{QStringLiteral("a")});
    EXPECT_EQ(enabled(), disconnectedSet);
    EXPECT_EQ(window.server.connections(), 2);
}

TEST_F(FtpLogOnTest, LogOffDuringSizeShowsTheResponseToClose)
{
    window.logOn({QStringLiteral("a")});
    window.server.hold("SIZE");
    window.server.during("SIZE", [&] { window.click("cmdLogOff"); });
    window.selectRow(QStringLiteral("a"));
    window.frame.dialogs.expectBox(QStringLiteral("Size"), QStringLiteral("The size of file  is  bytes"));
    window.click("cmdSize");
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE a"));
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(enabled(), disconnectedSet);
}

TEST_F(FtpLogOnTest, LogOffWhileRowsAreReadLeavesThoseThatWereRead)
{
    QStringList rows;
    for (int i = 10000; i < 11000; ++i)
        rows << QStringLiteral("a file %1").arg(i); // 14 characters with the line's end
    window.logOn(rows);
    window.whileListIsRead([&] { window.click("cmdLogOff"); });
    window.click("cmdUpFolder");
    EXPECT_EQ(window.rows(), rows.first(4096 / 14));
    EXPECT_EQ(enabled(), disconnectedSet);
}
