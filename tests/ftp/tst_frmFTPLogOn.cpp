#include "Forms.h"
#include "FtpWindow.h"
#include "Globals.h"
#include "PrintQt.h"

#include <QEvent>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString failure = QStringLiteral("LogOn Failure");
const QStringList connectionControls = {
    QStringLiteral("cmdNewFolder"), QStringLiteral("cmdDelete"),     QStringLiteral("cmdRename"),
    QStringLiteral("cmdSize"),      QStringLiteral("cmdUpFolder"),   QStringLiteral("cmdsend"),
    QStringLiteral("cmdreceive"),   QStringLiteral("lstRemoteFile"), QStringLiteral("cmdLogOff")};

/// Writes down, in order, which controls are enabled and disabled.
class ChangeLog : public QObject
{
public:
    explicit ChangeLog(const frmFTP &form)
    {
        for (QWidget *control : form.findChildren<QWidget *>())
            control->installEventFilter(this);
    }

    QStringList changes;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *control = qobject_cast<const QWidget *>(watched);
        const QString name = watched->objectName();
        if (event->type() == QEvent::EnabledChange && !name.isEmpty() &&
            !name.startsWith(QLatin1String("qt_")))
            changes << (control->isEnabled() ? u'+' : u'-') + name;
        return false;
    }
};

struct FtpLogOnTest : testing::Test
{
    FtpWindow window;

    void fill(const char *name, const char *text) const
    {
        window.control<QLineEdit>(name).setText(QString::fromLatin1(text));
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
};

const QString startSet = QStringLiteral("cmdLogOn cmdAccounts cmdsend imgSendFile cmdreceive imgReceiveFile");
const QString connectedSet =
    QStringLiteral("cmdLogOff cmdAccounts cmdNewFolder cmdUpFolder cmdDelete cmdSize cmdRename cmdsend "
                   "imgSendFile cmdreceive imgReceiveFile lstRemoteFile");
const QString disconnectedSet = QStringLiteral("cmdLogOn cmdAccounts imgSendFile imgReceiveFile");

} // namespace

TEST_F(FtpLogOnTest, AsksTheSessionInItsOrder)
{
    window.session().respond(QStringLiteral("DIR"), QStringLiteral("pub/\r\nreadme\r\n"));
    window.click("cmdLogOn");
    EXPECT_EQ(StandInSession::calls.join(u'|'),
              QStringLiteral("Protocol 2|RemoteHost ftp.example.org|UserName tester|Cancel|Password secret|"
                             "RequestTimeout 40|Execute DIR"));
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(window.rows().join(u'|'), QStringLiteral("pub/|readme"));
    EXPECT_EQ(window.beeps, 1);
}

TEST_F(FtpLogOnTest, AnEmptyUserNameIsAnonymous)
{
    fill("txtUserName", "");
    window.click("cmdLogOn");
    EXPECT_TRUE(StandInSession::calls.contains(QStringLiteral("UserName anonymous")));
    EXPECT_EQ(window.control<QLineEdit>("txtUserName").text(), QString());
}

TEST_F(FtpLogOnTest, ReturnInATextBoxLogsOnWhereThatIsPossible)
{
    QTest::keyClick(&window.control<QLineEdit>("txtServer"), Qt::Key_Return);
    EXPECT_EQ(window.commands(), QStringLiteral("DIR"));
    QTest::keyClick(&window.control<QLineEdit>("txtPassword"), Qt::Key_Return);
    EXPECT_EQ(window.commands(), QStringLiteral("DIR"));
}

TEST_F(FtpLogOnTest, TheServersTextIsPassedOnUnchanged)
{
    fill("txtServer", " ftp://host:21/ ");
    window.click("cmdLogOn");
    EXPECT_TRUE(StandInSession::calls.contains(QStringLiteral("RemoteHost  ftp://host:21/ ")));
}

TEST_F(FtpLogOnTest, AServerAndAPasswordAreNeeded)
{
    for (const auto &[server, password] :
         {std::pair("host", ""), std::pair("", "secret"), std::pair("", "")}) {
        fill("txtServer", server);
        fill("txtPassword", password);
        expectRefusal();
        window.click("cmdLogOn");
        EXPECT_EQ(StandInSession::calls, QStringList());
        EXPECT_EQ(window.status(), QStringLiteral("Not Connected"));
        EXPECT_EQ(enabled(), startSet);
    }
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST_F(FtpLogOnTest, ControlsAreEnabledInTheirOrder)
{
    for (const QString &name : connectionControls)
        window.control<QWidget>(qPrintable(name)).setEnabled(false);
    ChangeLog log(window.form());
    window.click("cmdLogOn");
    EXPECT_EQ(log.changes.join(u' '),
              QStringLiteral("-cmdLogOn +") + connectionControls.join(QStringLiteral(" +")));
    EXPECT_EQ(enabled(), connectedSet);
}

TEST_F(FtpLogOnTest, WhileItWaitsOnlyItselfIsDisabled)
{
    QString during;
    QString status;
    window.session().during(QStringLiteral("DIR"), [&] { during = enabled(); });
    window.click("cmdLogOn");
    EXPECT_EQ(during,
              QStringLiteral("cmdAccounts cmdsend imgSendFile cmdreceive imgReceiveFile")); // as at the start
    window.click("cmdLogOff");
    window.session().during(QStringLiteral("DIR"), [&] {
        during = enabled();
        status = window.status();
    });
    window.click("cmdLogOn");
    EXPECT_EQ(during, QStringLiteral("cmdAccounts imgSendFile imgReceiveFile"));
    EXPECT_EQ(status, QStringLiteral("Response Received"));
}

TEST_F(FtpLogOnTest, SaysConnectingFirst)
{
    window.session().throwFor(QStringLiteral("DIR"), 12005);
    QString status;
    QString during;
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        status = window.status();
        during = enabled();
        box.accept();
    });
    window.click("cmdLogOn");
    EXPECT_EQ(status, QStringLiteral("Connecting"));
    EXPECT_EQ(during, QStringLiteral("cmdAccounts cmdsend imgSendFile cmdreceive imgReceiveFile"));
}

TEST_F(FtpLogOnTest, AFailureDisconnects)
{
    window.logOn();
    window.click("cmdLogOff");
    StandInSession::calls.clear();
    window.session().throwFor(QStringLiteral("DIR"), 12005);
    for (const QString &name : connectionControls)
        window.control<QWidget>(qPrintable(name)).setEnabled(true);
    ChangeLog log(window.form());
    expectBox("Logon attempt failed");
    window.click("cmdLogOn");
    EXPECT_EQ(StandInSession::calls.last(), QStringLiteral("Cancel"));
    EXPECT_EQ(window.status(), QStringLiteral("Not Connected"));
    EXPECT_EQ(enabled(), disconnectedSet);
    EXPECT_EQ(log.changes.join(u' '),
              QStringLiteral("-cmdLogOn +cmdLogOn -") + connectionControls.join(QStringLiteral(" -")));
}

TEST_F(FtpLogOnTest, AServerThatRefusesStillLooksConnected)
{
    window.session().refuse(QStringLiteral("DIR"), 12014, QStringLiteral("530 Login incorrect."));
    window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("12014 530 Login incorrect."))
        .icon(QMessageBox::Critical)
        .buttons(QMessageBox::Ok);
    window.click("cmdLogOn");
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(enabled(), connectedSet);
    EXPECT_EQ(window.beeps, 0);
}

TEST_F(FtpLogOnTest, AServerThatIsNotThereStillLooksConnected)
{
    window.session().refuse(QStringLiteral("DIR"), 12030, QStringLiteral("aborted"));
    window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("12030 aborted"));
    window.click("cmdLogOn");
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(enabled(), QStringLiteral("cmdLogOn ") + connectedSet);
}

TEST_F(FtpLogOnTest, ANewLogOnAppendsToTheList)
{
    window.logOn({QStringLiteral("a")});
    window.control<QWidget>("cmdLogOn").setEnabled(true);
    window.session().respond(QStringLiteral("DIR"), QStringLiteral("b\r\n"));
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

TEST_F(FtpLogOnTest, LogOffClosesTheConnection)
{
    window.logOn({QStringLiteral("a")});
    ChangeLog log(window.form());
    window.click("cmdLogOff");
    EXPECT_EQ(StandInSession::calls.join(u'|'), QStringLiteral("Cancel|Execute CLOSE"));
    EXPECT_EQ(window.rows(), QStringList());
    EXPECT_EQ(log.changes.join(u' '),
              QStringLiteral("-") + connectionControls.join(QStringLiteral(" -")) +
                  QStringLiteral(" +cmdLogOn")); // cmdLogOn is disabled already
    EXPECT_EQ(enabled(), disconnectedSet);
}

TEST_F(FtpLogOnTest, LogOffDoesNotWaitForItsCommand)
{
    window.logOn();
    window.session().hold(QStringLiteral("CLOSE"));
    window.click("cmdLogOff");
    EXPECT_EQ(enabled(), disconnectedSet);
    EXPECT_EQ(window.status(), QStringLiteral("Response Received")); // its states come later
}

TEST_F(FtpLogOnTest, AFailureOfCloseIsIgnored)
{
    window.logOn();
    window.session().throwFor(QStringLiteral("CLOSE"), 12110);
    window.click("cmdLogOff");
    EXPECT_EQ(window.status(), QStringLiteral("Not Connected"));
    EXPECT_EQ(enabled(), disconnectedSet);
}

TEST_F(FtpLogOnTest, LogOffEndsACommandThatRuns)
{
    window.logOn({QStringLiteral("a")});
    window.session().hold(QStringLiteral("SIZE"));
    window.selectRow(QStringLiteral("a"));
    window.session().during(QStringLiteral("SIZE"), [&] { window.click("cmdLogOff"); });
    window.session().throwFor(QStringLiteral("CLOSE"), 12110); // nothing runs behind it
    window.click("cmdSize");
    EXPECT_EQ(StandInSession::calls.join(u'|'), QStringLiteral("Execute SIZE \"a\"|Cancel|Execute CLOSE"));
    EXPECT_EQ(enabled(), disconnectedSet);
}
