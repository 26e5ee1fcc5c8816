#include "Forms.h"
#include "FtpWindow.h"
#include "PrintQt.h"
#include "RowName.h"

#include <QAbstractButton>
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
    const char *verb; // whose command runs
    std::function<void(FtpWindow &)> act;
    const char *commands; // that were sent, in all
};

struct FtpClosingTest : testing::TestWithParam<Moment>
{};

void select(FtpWindow &window, const char *row)
{
    window.selectRow(QString::fromLatin1(row));
}

std::vector<Moment> moments()
{
    return {
        {"LoggingOn", "DIR", [](FtpWindow &window) { window.form().cmdLogOn_Click(); }, "DIR"},
        {"MovingUp", "CDUP", [](FtpWindow &window) { window.click("cmdUpFolder"); }, "CDUP"},
        {"WaitingForTheSize", "SIZE",
         [](FtpWindow &window) {
             select(window, "a");
             window.click("cmdSize");
         },
         "SIZE \"a\""},
        {"Receiving", "GET",
         [](FtpWindow &window) {
             select(window, "a");
             window.click("cmdreceive");
         },
         "GET \"a\" \"%1\\a\""},
        {"Sending", "PUT",
         [](FtpWindow &window) {
             window.addLocalFile("b");
             window.click("cmdsend");
         },
         "PUT \"%1\\b\" \"b\""},
        {"OpeningAFolder", "CD", [](FtpWindow &window) { window.doubleClickRow(QStringLiteral("pub/")); },
         "CD \"pub/\""},
    };
}

struct FtpBoxClosingTest : testing::Test
{
    FtpWindow window;

    FtpBoxClosingTest() { window.logOn({QStringLiteral("pub/"), QStringLiteral("a")}); }
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
        QTest::qWait(0);
        EXPECT_FALSE(window.isOpen());
    }
};

} // namespace

/// Only a Cancel goes to the session, no question is asked, and the flow ends where it is.
TEST_P(FtpClosingTest, CancelsAndEndsTheFlow)
{
    FtpWindow window;
    window.logOn({QStringLiteral("pub/"), QStringLiteral("a")});
    window.session().hold(QString::fromLatin1(GetParam().verb));
    window.session().during(QString::fromLatin1(GetParam().verb), [&] {
        window.form().findChild<QAction *>(QStringLiteral("mnuclose"))->trigger();
        EXPECT_TRUE(window.isOpen()); // its handler still runs
        EXPECT_TRUE(Forms::named(QStringLiteral("frmFTP")).isEmpty());
    });
    GetParam().act(window);
    QTest::qWait(0);
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(window.commands(),
              QString::fromLatin1(GetParam().commands).replace(QLatin1String("%1"), window.local.path()));
    EXPECT_EQ(StandInSession::calls.last(), QStringLiteral("Cancel"));
}

/// As when the frame is closed, which closes its children.
TEST_P(FtpClosingTest, GoesWithItsWindowInTheFrame)
{
    FtpWindow window;
    window.logOn({QStringLiteral("pub/"), QStringLiteral("a")});
    window.session().hold(QString::fromLatin1(GetParam().verb));
    window.session().during(QString::fromLatin1(GetParam().verb),
                            [&] { EXPECT_TRUE(window.form().parentWidget()->close()); });
    GetParam().act(window);
    QTest::qWait(0);
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(StandInSession::calls.last(), QStringLiteral("Cancel"));
}

INSTANTIATE_TEST_SUITE_P(Moments, FtpClosingTest, testing::ValuesIn(moments()), RowName());

TEST_F(FtpBoxClosingTest, InTheErrorBox)
{
    window.session().refuse(QStringLiteral("CDUP"), 12003, QStringLiteral("no"));
    unloadInBox(QMessageBox::Ok);
    window.click("cmdUpFolder");
    expectClosed();
}

TEST_F(FtpBoxClosingTest, InTheSizeBox)
{
    window.session().respond(QStringLiteral("SIZE"), QStringLiteral("5"));
    unloadInBox(QMessageBox::Ok);
    window.click("cmdSize");
    expectClosed();
}

TEST_F(FtpBoxClosingTest, InTheBusyBox)
{
    window.session().during(QStringLiteral("CDUP"), [this] {
        unloadInBox(QMessageBox::Ok);
        window.click("cmdSize");
    });
    window.session().hold(QStringLiteral("CDUP"));
    window.click("cmdUpFolder");
    expectClosed();
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
    QString response;
    for (int i = 0; i < 2000; ++i)
        response += QStringLiteral("file %1\r\n").arg(i);
    window.session().respond(QStringLiteral("DIR"), response);
    bool closed = false;
    window.session().during(QStringLiteral("DIR"), [&] {
        QTimer::singleShot(0, &window.form(), [&] { // runs between two pieces
            closed = window.form().unload();
        });
    });
    window.click("cmdUpFolder");
    expectClosed();
    EXPECT_TRUE(closed);
    EXPECT_EQ(window.beeps, 1); // of CDUP
}
