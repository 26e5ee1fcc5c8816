#include "Forms.h"
#include "FtpWindow.h"
#include "PrintQt.h"
#include "RowName.h"
#include "WindowLog.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
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
