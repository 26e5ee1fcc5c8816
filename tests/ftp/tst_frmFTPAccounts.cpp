#include "AsUser.h"
#include "Files.h"
#include "Forms.h"
#include "FtpWindow.h"
#include "PrintQt.h"
#include "frmFTPAccounts.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

const QString accountsWindow = QStringLiteral("frmFTPAccounts");

/// The window of the profiles, used by mouse and keyboard.
class Accounts
{
public:
    explicit Accounts(Form &form)
        : m_form(form)
    {}

    template<class Control>
    Control &control(const char *name) const
    {
        return m_form.member<Control>(QString::fromLatin1(name));
    }
    void click(const char *name) const { QTest::mouseClick(&control<QAbstractButton>(name), Qt::LeftButton); }
    void type(const char *name, const QString &text) const
    {
        auto &box = control<QLineEdit>(name);
        box.selectAll();
        text.isEmpty() ? QTest::keyClick(&box, Qt::Key_Delete) : QTest::keyClicks(&box, text);
    }
    ListBox &list() const { return control<ListBox>("List1"); }
    void choose(int row) const { list().setListIndex(row); }
    QString boxes() const
    {
        QStringList texts;
        for (const char *name : {"txtAccount", "txtServer", "txtUserName", "txtPassword"})
            texts << control<QLineEdit>(name).text();
        return texts.join(u'|');
    }

private:
    Form &m_form;
};

struct FtpAccountsTest : testing::Test
{
    FtpWindow window;

    void put(const QByteArray &content) const { window.programFolder.addFile("ftpprof.dat", content); }
    QByteArray content() const
    {
        return Files::read(window.programFolder.path() + QStringLiteral("/ftpprof.dat"));
    }
    QByteArray address() const { return window.server.address().toLatin1(); }
    QByteArray line(int index) const { return content().split('\n').value(index).chopped(1); }
    /// Opens the window and lets \a act use it; what it leaves open is closed.
    void use(const std::function<void(const Accounts &)> &act)
    {
        window.frame.dialogs.expectWindow<Form>(accountsWindow, [act](Form &form) {
            act(Accounts(form));
            form.unload();
        });
        window.click("cmdAccounts");
    }
    /// To be called while the window is open, before the save.
    void expectSaved()
    {
        window.frame.dialogs
            .expectBox(QStringLiteral("Record Saved.."), QStringLiteral("Changes to Record Saved."))
            .icon(QMessageBox::Information)
            .buttons(QMessageBox::Ok);
    }
    void save(const Accounts &accounts)
    {
        expectSaved();
        accounts.click("cmdSave");
    }
};

} // namespace

TEST_F(FtpAccountsTest, HasItsCaptions)
{
    use([](const Accounts &accounts) {
        EXPECT_EQ(accounts.list().window()->windowTitle(), QStringLiteral("Quill-FTP Account Profiles"));
        for (const auto &[name, caption] :
             {std::pair("Label1", "Account Profile Name:"), std::pair("lblServer", "Server:"),
              std::pair("lblUserName", "User Name:"), std::pair("lblPassword", "Password:"),
              std::pair("Label2", "Currently Stored Profiles:"),
              std::pair("Label3", "Record 0 (Zero) is the default Account Profile.")})
            EXPECT_EQ(accounts.control<QLabel>(name).text(), QString::fromLatin1(caption)) << name;
        EXPECT_EQ(accounts.control<QAbstractButton>("cmdSave").toolTip(), QStringLiteral("Save Changes"));
        EXPECT_EQ(accounts.control<QAbstractButton>("OKButton").toolTip(),
                  QStringLiteral("Connect to This Account Profile"));
        EXPECT_EQ(accounts.control<QAbstractButton>("CancelButton").text(), QStringLiteral("Done"));
        EXPECT_EQ(accounts.control<QLineEdit>("txtPassword").displayText(), QStringLiteral("******"));
        for (const char *name : {"txtAccount", "txtServer", "txtUserName", "txtPassword", "List1", "cmdSave",
                                 "OKButton", "CancelButton"})
            EXPECT_FALSE(accounts.control<QWidget>(name).accessibleName().isEmpty()) << name;
    });
}

TEST_F(FtpAccountsTest, ShowsTheDefaultProfileAndSelectsNoRow)
{
    use([this](const Accounts &accounts) {
        EXPECT_EQ(accounts.boxes(),
                  QStringLiteral("Mirror|") + window.server.address() + QStringLiteral("|tester|secret"));
        ASSERT_EQ(accounts.list().ListCount(), 2);
        EXPECT_EQ(accounts.list().List(0), QStringLiteral("0:  Mirror"));
        EXPECT_EQ(accounts.list().List(1), QStringLiteral("1:  Second"));
        EXPECT_EQ(accounts.list().ListIndex(), -1);
    });
}

TEST_F(FtpAccountsTest, AClickShowsTheProfileOfTheRowsPlace)
{
    put("9,a,sa,ua,pa,\r\n3,b,sb,ub,pb,\r\n");
    use([this](const Accounts &accounts) {
        EXPECT_EQ(accounts.list().List(0), QStringLiteral("9:  a")); // the number as it was read
        QTest::mouseClick(accounts.list().viewport(), Qt::LeftButton, {},
                          accounts.list().visualRect(accounts.list().model()->index(1, 0)).center());
        EXPECT_EQ(accounts.boxes(), QStringLiteral("b|sb|ub|pb"));
        accounts.type("txtAccount", QStringLiteral("changed"));
        save(accounts);
        EXPECT_EQ(line(1), "1,changed,sb,ub,pb,");
        EXPECT_EQ(line(0), "0,a,sa,ua,pa,");
        EXPECT_EQ(accounts.list().List(0), QStringLiteral("0:  a"));
        EXPECT_EQ(accounts.list().List(1), QStringLiteral("1:  changed"));
    });
}

TEST_F(FtpAccountsTest, ASaveWithoutAClickChangesTheDefault)
{
    use([this](const Accounts &accounts) {
        accounts.type("txtUserName", QStringLiteral("me"));
        save(accounts);
    });
    EXPECT_EQ(line(0), "0,Mirror," + address() + ",me,secret,extra");
    EXPECT_EQ(content().count("\r\n"), 101);
}

TEST_F(FtpAccountsTest, OpenedAgainItBeginsWithTheDefault)
{
    use([](const Accounts &accounts) { accounts.choose(1); });
    use([this](const Accounts &accounts) {
        EXPECT_EQ(accounts.list().ListIndex(), -1);
        EXPECT_EQ(accounts.control<QLineEdit>("txtAccount").text(), QStringLiteral("Mirror"));
        accounts.type("txtAccount", QStringLiteral("changed"));
        save(accounts);
    });
    EXPECT_EQ(line(0), "0,changed," + address() + ",tester,secret,extra");
    EXPECT_EQ(line(1), "1,Second," + address() + ",,pass,");
}

TEST_F(FtpAccountsTest, TheRecordStaysTheOneThatIsSaved)
{
    use([this](const Accounts &accounts) {
        accounts.choose(1);
        save(accounts);
        EXPECT_EQ(accounts.list().ListIndex(), -1);
        accounts.type("txtAccount", QStringLiteral("again"));
        save(accounts);
    });
    EXPECT_EQ(line(1), "1,again," + address() + ",,pass,");
    EXPECT_EQ(line(0), "0,Mirror," + address() + ",tester,secret,extra");
}

TEST_F(FtpAccountsTest, SevenRecordsBecomeAHundredAndOne)
{
    QByteArray text;
    for (int i = 0; i < 7; ++i)
        text += QByteArray::number(i) + ",n,s,u,p,t\r\n";
    put(text);
    use([this](const Accounts &accounts) {
        EXPECT_EQ(accounts.list().ListCount(), 7);
        save(accounts);
        EXPECT_EQ(accounts.list().ListCount(), 100);
        EXPECT_EQ(accounts.list().List(99), QStringLiteral("99:  "));
    });
    EXPECT_EQ(content().count("\r\n"), 101);
    EXPECT_EQ(line(6), "6,n,s,u,p,t");
    EXPECT_EQ(line(7), "7,,,,,");
    EXPECT_EQ(line(100), "100,,,,,");
}

TEST_F(FtpAccountsTest, ACommaShiftsWhatIsBehindIt)
{
    use([this](const Accounts &accounts) {
        accounts.type("txtServer", QStringLiteral("a,b"));
        save(accounts);
        EXPECT_EQ(line(0), "0,Mirror,a,b,tester,secret,extra");
        EXPECT_EQ(line(1), "1,Second," + address() + ",,pass,");
        accounts.choose(0);
        EXPECT_EQ(accounts.boxes(), QStringLiteral("Mirror|a|b|tester"));
        EXPECT_EQ(accounts.list().List(1), QStringLiteral("0:  1"));
    });
}

TEST_F(FtpAccountsTest, EmptyBoxesLeaveTheNumber)
{
    use([this](const Accounts &accounts) {
        for (const char *name : {"txtAccount", "txtServer", "txtUserName", "txtPassword"})
            accounts.type(name, {});
        save(accounts);
        EXPECT_EQ(accounts.list().List(0), QStringLiteral("0:  "));
    });
    EXPECT_EQ(line(0), "0,,,,,extra");
}

TEST_F(FtpAccountsTest, DoneForgetsWhatIsNotSaved)
{
    const QByteArray before = content();
    use([](const Accounts &accounts) {
        accounts.type("txtAccount", QStringLiteral("changed"));
        accounts.click("CancelButton");
    });
    EXPECT_EQ(content(), before);
    EXPECT_TRUE(Forms::named(accountsWindow).isEmpty());
    EXPECT_EQ(window.control<QLineEdit>("txtAccount").text(), QStringLiteral("Mirror"));
    EXPECT_EQ(window.server.connections(), 0);
}

TEST_F(FtpAccountsTest, EscapeIsDone)
{
    use([](const Accounts &accounts) { QTest::keyClick(&accounts.list(), Qt::Key_Escape); });
    EXPECT_TRUE(Forms::named(accountsWindow).isEmpty());
}

TEST_F(FtpAccountsTest, ConnectsToWhatIsOnShow)
{
    const QByteArray before = content();
    window.served.addFolder("pub");
    bool wasOpen = true;
    window.server.during("USER", [&] { wasOpen = !Forms::named(accountsWindow).isEmpty(); });
    QStringList order;
    for (const char *name : {"txtAccount", "txtServer", "txtUserName", "txtPassword"}) {
        auto &box = window.control<QLineEdit>(name);
        box.setText(QStringLiteral("before"));
        QObject::connect(&box, &QLineEdit::textChanged, &window.form(),
                         [&order, name] { order << QString::fromLatin1(name); });
    }
    use([](const Accounts &accounts) {
        accounts.choose(1);
        accounts.type("txtUserName", QStringLiteral("anonymous"));
        accounts.click("OKButton");
    });
    EXPECT_EQ(order.join(u' '), QStringLiteral("txtAccount txtServer txtUserName txtPassword"));
    EXPECT_EQ(window.commands(), QStringLiteral("USER anonymous|PASS pass|MLSD"));
    EXPECT_FALSE(wasOpen);
    EXPECT_EQ(window.control<QLineEdit>("txtAccount").text(), QStringLiteral("Second"));
    EXPECT_EQ(window.control<QLineEdit>("txtServer").text(), window.server.address());
    EXPECT_EQ(window.control<QLineEdit>("txtUserName").text(), QStringLiteral("anonymous"));
    EXPECT_EQ(window.rows().join(u'|'), QStringLiteral("pub/"));
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(content(), before);
}

TEST_F(FtpAccountsTest, ReturnConnects)
{
    use([](const Accounts &accounts) {
        QTest::keyClick(&accounts.control<QLineEdit>("txtServer"), Qt::Key_Return);
    });
    EXPECT_EQ(window.commands(), QStringLiteral("USER tester|PASS secret|MLSD"));
}

TEST_F(FtpAccountsTest, MayBeOpenedDuringATransfer)
{
    window.logOn({QStringLiteral("a")});
    window.served.addFile("a");
    window.server.hold("RETR");
    window.server.during("RETR", [this] {
        use([](const Accounts &accounts) { accounts.click("OKButton"); });
        EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    });
    window.selectRow(QStringLiteral("a"));
    window.click("cmdreceive");
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE a|RETR a|USER tester|PASS secret|MLSD"));
    EXPECT_EQ(window.rows().join(u'|'), QStringLiteral("a|a"));
}

/// The wait for the size goes on while the new log-on runs.
TEST_F(FtpAccountsTest, ConnectedDuringSizeTheListIsShownAsTheSize)
{
    window.served.addFile("a");
    window.logOn({QStringLiteral("a")});
    window.server.setListing("type=file; b\r\ntype=dir; c\r\n");
    window.server.hold("SIZE");
    window.server.during("SIZE", [this] {
        use([this](const Accounts &accounts) {
            window.frame.dialogs.expectBox(QStringLiteral("Size"),
                                           QStringLiteral("The size of file a is b\nc/\n bytes"));
            accounts.click("OKButton");
        });
    });
    window.selectRow(QStringLiteral("a"));
    window.click("cmdSize");
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE a|USER tester|PASS secret|MLSD"));
    EXPECT_EQ(window.rows(), QStringList{QStringLiteral("a")});
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    window.server.release();
    window.click("cmdUpFolder"); // whose list is a list again
    EXPECT_EQ(window.rows().join(u'|'), QStringLiteral("b|c/"));
}

TEST_F(FtpAccountsTest, AMissingFileEndsTheSuite)
{
    ASSERT_EQ(::unlink(window.programFolder.file("ftpprof.dat").constData()), 0);
    window.frame.fatal.expect(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
    window.click("cmdAccounts");
}

TEST_F(FtpAccountsTest, AReadOnlyFileEndsTheSuiteAndStays)
{
    const QByteArray before = content();
    const AsUser user(window.programFolder.path());
    ASSERT_EQ(::chmod(window.programFolder.file("ftpprof.dat").constData(), 0400), 0);
    window.frame.fatal.expect(ErrorNumber::PermissionDenied);
    use([](const Accounts &accounts) { accounts.click("cmdSave"); });
    EXPECT_EQ(content(), before);
}
