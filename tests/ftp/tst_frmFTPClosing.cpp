#include "Forms.h"
#include "FtpWindow.h"
#include "PrintQt.h"
#include "RowName.h"
#include "SlowLookUp.h"
#include "WindowLog.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

/// A moment in which the window is closed.
struct Moment
{
    const char *name;
    const char *stage; // of the server
    std::function<void(FtpWindow &)> act;
    const char *commands; // that the server got, in all
};

struct FtpClosingTest : testing::TestWithParam<Moment>
{
    FtpWindow window;

    FtpClosingTest()
    {
        window.served.addFolder("pub");
        window.served.addFile("a", QByteArray(100000, 'x'));
        window.logOn({QStringLiteral("pub/"), QStringLiteral("a")});
    }
    /// Uses the window as the moment says, and \a close while the server is held up.
    void act(const std::function<void()> &close)
    {
        const WindowLog log(window.form(), window.control<QLabel>("lblStatus"));
        qsizetype entries = 0;
        window.server.hold(GetParam().stage);
        window.server.during(GetParam().stage, [&] {
            close();
            entries = log.entries().size();
        });
        GetParam().act(window);
        EXPECT_EQ(log.entries().size(), entries); // nothing came behind it
        FtpWindow::waitFor([this] { return !window.isOpen(); });
    }
    /// No command was cut off by another one, the connection is closed, and no file is left.
    void expectGone()
    {
        window.server.release();
        FtpWindow::waitFor([this] { return window.server.openConnections() == 0; });
        EXPECT_EQ(window.commands(), QString::fromLatin1(GetParam().commands));
        const auto all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
        EXPECT_EQ(QDir(window.local.path()).entryList(all).filter(QStringLiteral("a")), QStringList());
        EXPECT_EQ(window.frame.dialogs.seen().size(), 0);
    }
};

void select(FtpWindow &window, const char *row)
{
    window.selectRow(QString::fromLatin1(row));
}

void logOnAgain(FtpWindow &window)
{
    window.form().cmdLogOn_Click();
}

void receive(FtpWindow &window)
{
    select(window, "a");
    window.click("cmdreceive");
}

void send(FtpWindow &window)
{
    window.addLocalFile("b");
    window.click("cmdsend");
}

std::vector<Moment> moments()
{
    return {
        {"Connecting", FtpServer::Greeting, logOnAgain, ""},
        {"LoggingOn", "USER", logOnAgain, "USER tester"},
        {"GivingThePassword", "PASS", logOnAgain, "USER tester|PASS secret"},
        {"Listing", "MLSD", logOnAgain, "USER tester|PASS secret|MLSD"},
        {"MovingUp", "CDUP", [](FtpWindow &window) { window.click("cmdUpFolder"); }, "CDUP"},
        {"WaitingForTheSize", "SIZE",
         [](FtpWindow &window) {
             select(window, "a");
             window.click("cmdSize");
         },
         "SIZE a"},
        {"Receiving", "RETR", receive, "SIZE a|RETR a"},
        {"HavingReceived", FtpServer::EndOfData, receive, "SIZE a|RETR a"},
        {"Sending", "STOR", send, "STOR b"},
        {"HavingSent", FtpServer::EndOfData, send, "STOR b"},
        {"OpeningAFolder", "CWD", [](FtpWindow &window) { window.doubleClickRow(QStringLiteral("pub/")); },
         "CWD pub"},
    };
}

struct FtpBoxClosingTest : testing::Test
{
    FtpWindow window;

    FtpBoxClosingTest()
    {
        window.served.addFile("a", "12345");
        window.logOn({QStringLiteral("pub/"), QStringLiteral("a")});
    }
    /// The window is unloaded while the next box is up, which is then answered by \a button.
    void unloadInBox(QMessageBox::StandardButton button)
    {
        window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"),
                                                       [this, button](QMessageBox &box) {
                                                           window.form().unload();
                                                           box.button(button)->click();
                                                       });
    }
    void expectClosed() const
    {
        FtpWindow::waitFor([this] { return !window.isOpen(); });
    }
};

/// A box of the window. The last one that comes up is meant.
struct BoxCase
{
    const char *name;
    std::function<void(FtpWindow &)> prepare; ///< may expect other boxes before it
    std::function<void(FtpWindow &)> use;
    QMessageBox::StandardButton answer = QMessageBox::Ok;
};

struct FtpFrameClosingTest : testing::TestWithParam<BoxCase>
{
    FtpWindow window;

    FtpFrameClosingTest()
    {
        window.served.addFile("a", "12345");
        window.logOn({QStringLiteral("../"), QStringLiteral("pub/"), QStringLiteral("a")});
    }
};

std::function<void(FtpWindow &)> clickWith(const char *row, const char *button)
{
    return [row, button](FtpWindow &window) {
        select(window, row);
        window.click(button);
    };
}

std::function<void(FtpWindow &)> type(const char *title, const char *prompt, const char *answer)
{
    return [=](FtpWindow &window) {
        window.frame.dialogs.expectInput(QString::fromLatin1(title), QString::fromLatin1(prompt))
            .type(QString::fromLatin1(answer));
    };
}

std::function<void(FtpWindow &)> fill(const char *box, const char *text)
{
    return [=](FtpWindow &window) { window.control<QLineEdit>(box).setText(QString::fromLatin1(text)); };
}

std::vector<BoxCase> boxCases()
{
    const auto nothing = [](FtpWindow &) {};
    const auto haveLocal = [](FtpWindow &window) { window.addLocalFile("a"); };
    return {
        {"NoPassword", fill("txtPassword", ""), logOnAgain},
        {"NoServer", fill("txtServer", "http://example.org"), logOnAgain},
        {"Refused", [](FtpWindow &window) { window.server.reply("SIZE", "550 no"); },
         clickWith("a", "cmdSize")},
        {"Lost", [](FtpWindow &window) { window.server.dropBefore("CDUP"); }, clickWith("a", "cmdUpFolder")},
        {"Size", nothing, clickWith("a", "cmdSize")},
        {"FolderExists", type("New Folder", "Enter new folder name", "pub"), clickWith("a", "cmdNewFolder")},
        {"InvalidName", type("Rename", "Enter new file name for a", " "), clickWith("a", "cmdRename")},
        {"CannotDelete", nothing, clickWith("../", "cmdDelete")},
        {"Delete", nothing, clickWith("a", "cmdDelete")},
        {"NothingToSend", nothing, clickWith("a", "cmdsend")},
        {"Overwrite", haveLocal, clickWith("a", "cmdsend"), QMessageBox::Yes},
        {"FolderToReceive", nothing, clickWith("pub/", "cmdreceive")},
        {"FileExists", haveLocal, clickWith("a", "cmdreceive")},
        {"ProfileSaved",
         [](FtpWindow &window) {
             window.frame.dialogs.expectWindow<Form>(QStringLiteral("frmFTPAccounts"), [](Form &form) {
                 form.member<QAbstractButton>(QStringLiteral("cmdSave")).click();
                 form.unload();
             });
         },
         clickWith("a", "cmdAccounts")},
    };
}

} // namespace

/// No question is asked, and the flow ends where it is.
TEST_P(FtpClosingTest, CancelsAndEndsTheFlow)
{
    act([this] {
        window.form().findChild<QAction *>(QStringLiteral("mnuclose"))->trigger();
        EXPECT_TRUE(window.isOpen()); // its handler still runs
        EXPECT_TRUE(Forms::named(QStringLiteral("frmFTP")).isEmpty());
        EXPECT_FALSE(window.session().StillExecuting());
    });
    expectGone();
}

/// As when the frame is closed, which closes its children.
TEST_P(FtpClosingTest, GoesWithItsWindowInTheFrame)
{
    act([this] { EXPECT_TRUE(window.form().parentWidget()->close()); });
    expectGone();
}

INSTANTIATE_TEST_SUITE_P(Moments, FtpClosingTest, testing::ValuesIn(moments()), RowName());

/// As the frame closes its children, while the box is up and is then answered.
TEST_P(FtpFrameClosingTest, EndsTheFlowInTheBox)
{
    GetParam().prepare(window);
    const qsizetype others = window.frame.dialogs.seen().size();
    QStringList commands;
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        EXPECT_TRUE(window.form().parentWidget()->close());
        EXPECT_TRUE(Forms::named(QStringLiteral("frmFTP")).isEmpty());
        commands = window.executed.texts();
        box.button(GetParam().answer)->click();
    });
    GetParam().use(window);
    FtpWindow::waitFor([this] { return !window.isOpen(); });
    EXPECT_EQ(window.executed.texts(), commands); // nothing came behind it
    EXPECT_EQ(window.frame.dialogs.seen().last().objectName, QStringLiteral("MsgBox"));
    EXPECT_GT(window.frame.dialogs.seen().size(), others);
    FtpWindow::waitFor([this] { return window.server.openConnections() == 0; });
}

INSTANTIATE_TEST_SUITE_P(Boxes, FtpFrameClosingTest, testing::ValuesIn(boxCases()), RowName());

TEST_F(FtpBoxClosingTest, DuringTheLookUpOfTheServer)
{
    const QString server = QStringLiteral("localhost:%1").arg(window.server.port());
    window.control<QLineEdit>("txtServer").setText(server);
    const SlowLookUp lookUps;
    QTimer looks;
    QObject::connect(&looks, &QTimer::timeout, &looks, [&] {
        if (lookUps.waiting() == 1 && window.isOpen())
            window.form().unload();
    });
    looks.start(1);
    window.form().cmdLogOn_Click();
    expectClosed();
    EXPECT_EQ(lookUps.waiting(), 1);
    EXPECT_EQ(window.frame.dialogs.seen().size(), 0);
}

TEST_F(FtpBoxClosingTest, WithoutACommand)
{
    window.close();
    expectClosed();
    FtpWindow::waitFor([this] { return window.server.openConnections() == 0; });
    EXPECT_EQ(window.probe.states(), QString());
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(FtpBoxClosingTest, InTheErrorBox)
{
    window.server.reply("CDUP", "550 no");
    unloadInBox(QMessageBox::Ok);
    window.click("cmdUpFolder");
    expectClosed();
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP"));
}

TEST_F(FtpBoxClosingTest, InTheSizeBox)
{
    window.selectRow(QStringLiteral("a"));
    const WindowLog log(window.form(), window.control<QLabel>("lblStatus"));
    unloadInBox(QMessageBox::Ok);
    window.click("cmdSize");
    expectClosed();
    EXPECT_FALSE(log.entries().contains(QStringLiteral("Connected"))); // the flow ended in the box
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE a"));
}

TEST_F(FtpBoxClosingTest, InTheBusyBox)
{
    window.server.during("CDUP", [this] {
        unloadInBox(QMessageBox::Ok);
        window.click("cmdSize");
    });
    window.server.hold("CDUP");
    window.click("cmdUpFolder");
    expectClosed();
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP"));
}

TEST_F(FtpBoxClosingTest, InTheFirstOfTwoQuestions)
{
    window.logOn({QStringLiteral("a"), QStringLiteral("a")});
    window.addLocalFile("a");
    unloadInBox(QMessageBox::Yes);
    window.click("cmdsend");
    expectClosed();
    EXPECT_EQ(window.frame.dialogs.seen().size(), 1);
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(FtpBoxClosingTest, InTheQuestions)
{
    window.addLocalFile("a");
    unloadInBox(QMessageBox::Yes);
    window.click("cmdsend");
    expectClosed();
    EXPECT_EQ(window.commands(), QString());

    window.open();
    window.logOn({QStringLiteral("a")});
    window.selectRow(QStringLiteral("a"));
    unloadInBox(QMessageBox::Ok);
    window.click("cmdDelete");
    expectClosed();
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(FtpBoxClosingTest, InTheInputBoxes)
{
    for (const char *name : {"cmdNewFolder", "cmdRename"}) {
        if (!window.isOpen()) {
            window.open();
            window.logOn({QStringLiteral("a")});
        }
        window.frame.dialogs.expectWindow<QDialog>(QStringLiteral("InputBox"), [&](QDialog &box) {
            window.form().unload();
            box.findChild<QLineEdit *>()->setText(QStringLiteral("b"));
            box.accept();
        });
        window.click(name);
        expectClosed();
        EXPECT_EQ(window.commands(), QString()) << name;
    }
}

TEST_F(FtpBoxClosingTest, WhileAListingIsRead)
{
    QByteArray listing;
    for (int i = 0; i < 2000; ++i)
        listing += "type=file; file " + QByteArray::number(i) + "\r\n";
    window.server.setListing(listing);
    bool closed = false;
    window.whileListIsRead([&] { closed = window.form().unload(); });
    window.click("cmdUpFolder");
    expectClosed();
    EXPECT_TRUE(closed);
    EXPECT_EQ(window.beeps, 1); // of CDUP
}
