#include "FtpWindow.h"
#include "Globals.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ShownText.h"
#include "WindowLog.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QStringList listed = {QStringLiteral("./"), QStringLiteral("../"), QStringLiteral("pub/"),
                            QStringLiteral("a b.txt")};

struct FtpCommandsTest : testing::Test
{
    FtpWindow window;

    FtpCommandsTest()
    {
        window.served.addFolder("pub");
        window.served.addFile("a b.txt");
        window.logOn(listed);
    }

    DialogDriver &dialogs() { return window.frame.dialogs; }
    QLabel &label() const { return window.control<QLabel>("lblStatus"); }
    void expectBusy()
    {
        dialogs()
            .expectBox(QStringLiteral("Busy"), QStringLiteral("Please wait.  FTP is still executing"))
            .icon(QMessageBox::Information)
            .buttons(QMessageBox::Ok);
    }
    /// The command that ran was followed by a list, which is there.
    void expectRefreshed(const QString &command) const
    {
        EXPECT_EQ(window.commands(), command + QStringLiteral("|MLSD"));
        EXPECT_EQ(window.rows(), listed);
        EXPECT_EQ(window.status(), QStringLiteral("Response Received")); // of the list, which came later
        EXPECT_EQ(window.beeps, 2);
    }
    void press(int key) const
    {
        window.remote().setFocus();
        QTest::keyClick(&window.remote(), Qt::Key(key));
        window.settle();
    }
};

struct FtpRowTest : testing::TestWithParam<HostileName>
{};

struct StateCase
{
    int state;
    const char *name;
    const char *status;
};

struct FtpStateTest : testing::TestWithParam<StateCase>
{};

constexpr StateCase states[] = {
    {1, "ResolvingHost", "Finding Host IP Address"},
    {2, "HostResolved", "IP Address Found"},
    {3, "Connecting", "Connecting To Host"},
    {4, "Connected", "Connected"},
    {5, "Requesting", "Sending Request"},
    {6, "RequestSent", "Request Sent"},
    {7, "ReceivingResponse", "Receiving Response"},
    {8, "ResponseReceived", "Response Received"},
    {9, "Disconnecting", "Disconnecting"},
    {10, "Disconnected", "Not Connected"},
    {0, "None", "before"},
    {13, "Unknown", "before"},
    {-1, "Negative", "before"},
};

} // namespace

TEST_P(FtpStateTest, ChangesTheLabelAlone)
{
    const FtpWindow window;
    window.control<QWidget>("cmdRename").setEnabled(true);
    window.control<QLabel>("lblStatus").setText(QStringLiteral("before"));
    Q_EMIT window.session().StateChanged(GetParam().state);
    EXPECT_EQ(window.status(), QString::fromLatin1(GetParam().status));
    EXPECT_TRUE(window.isEnabled("cmdRename")); // also where the server has gone
    EXPECT_TRUE(window.isEnabled("cmdLogOn"));
    EXPECT_FALSE(window.session().StillExecuting());
    EXPECT_EQ(window.beeps, 0);
}

INSTANTIATE_TEST_SUITE_P(States, FtpStateTest, testing::ValuesIn(states), RowName());

TEST_P(FtpRowTest, GoesOutAsItIsAndIsShownPlain)
{
    FtpWindow window;
    QString row = GetParam().text();
    row.remove(u'\r').remove(u'\n'); // these end a row
    window.server.reply("DELE", "250 Done.");
    window.server.reply("RNFR", "350 To what?");
    window.server.reply("RNTO", "250 Done.");
    window.server.reply("SIZE", "213 7");
    window.logOn({row});
    window.frame.dialogs
        .expectBox(QStringLiteral("Delete"),
                   ShownText::lines(QStringLiteral("Delete ") + row + QStringLiteral(" ?")))
        .press(QMessageBox::Ok);
    window.selectRow(row);
    window.click("cmdDelete");
    window.selectRow(row);
    window.frame.dialogs
        .expectInput(QStringLiteral("Rename"),
                     ShownText::lines(QStringLiteral("Enter new file name for ") + row))
        .type(QStringLiteral("%1<b>"));
    window.click("cmdRename");
    window.selectRow(row);
    window.frame.dialogs.expectBox(
        QStringLiteral("Size"),
        ShownText::lines(QStringLiteral("The size of file ") + row + QStringLiteral(" is 7 bytes")));
    window.click("cmdSize");
    EXPECT_EQ(window.commands(), QStringLiteral("DELE ") + row + QStringLiteral("|MLSD|RNFR ") + row +
                                     QStringLiteral("|RNTO %1<b>|MLSD|SIZE ") + row);
}

INSTANTIATE_TEST_SUITE_P(Names, FtpRowTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

TEST_F(FtpCommandsTest, ADoubleClickOpensAFolder)
{
    window.doubleClickRow(QStringLiteral("pub/"));
    expectRefreshed(QStringLiteral("CWD pub"));
}

TEST_F(FtpCommandsTest, ADoubleClickOpensTheFolderAbove)
{
    window.doubleClickRow(QStringLiteral("../"));
    expectRefreshed(QStringLiteral("CWD .."));
    EXPECT_EQ(window.executed.texts(), QStringList({QStringLiteral("CD \"../\""), QStringLiteral("DIR")}));
}

TEST_F(FtpCommandsTest, ADoubleClickReceivesAFile)
{
    window.doubleClickRow(QStringLiteral("a b.txt"));
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE a b.txt|RETR a b.txt"));
    window.selectLocalFile("a b.txt");
}

/// In the server's list, too, where a "/" at the end is that of a folder.
TEST_F(FtpCommandsTest, ALongRowShowsItsEnd)
{
    EXPECT_EQ(window.remote().textElideMode(), Qt::ElideMiddle);
}

TEST_F(FtpCommandsTest, MovesUpOneFolder)
{
    window.click("cmdUpFolder");
    expectRefreshed(QStringLiteral("CDUP"));
}

/// The list is cleared and asked for before the label says so, and the rows come later.
TEST_F(FtpCommandsTest, ARefreshDoesNotWaitForTheRows)
{
    window.server.hold("MLSD");
    window.server.during("CDUP", [this] { EXPECT_EQ(window.rows(), listed); });
    const WindowLog log(window.form(), label());
    QTest::mouseClick(&window.control<QWidget>("cmdUpFolder"), Qt::LeftButton);
    EXPECT_EQ(log.entries().last(), QStringLiteral("Connected"));
    EXPECT_TRUE(window.session().StillExecuting());
    EXPECT_EQ(window.rows(), QStringList());
    window.settle();
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP|MLSD"));
    EXPECT_EQ(window.rows(), QStringList());
    window.server.release();
    window.settle();
    EXPECT_EQ(window.rows(), listed);
    EXPECT_EQ(log.statusTexts(),
              QStringLiteral("Sending Request|Request Sent|Receiving Response|Response Received|Connected|"
                             "Sending Request|Request Sent|Receiving Response|Response Received"));
}

TEST_F(FtpCommandsTest, TextThatTheServerSendsWithAFolderIsNoRow)
{
    window.server.reply("CWD", "250-Welcome\r\n to pub/\r\n250 Directory changed.");
    window.doubleClickRow(QStringLiteral("pub/"));
    EXPECT_EQ(window.rows(), listed);
}

/// The label stays at the last state.
TEST_F(FtpCommandsTest, ARefusedCommandIsReportedAndTheListRefreshed)
{
    window.server.reply("CDUP", "550 <b>no</b> %1");
    QString status;
    dialogs()
        .expectBox(QStringLiteral("Error"), QStringLiteral("12003 550 <b>no</b> %1"))
        .icon(QMessageBox::Critical)
        .buttons(QMessageBox::Ok);
    window.probe.atState(InternetTransfer::Error, [&] {
        QMetaObject::invokeMethod(
            &window.form(), [&] { status = window.status(); }, Qt::QueuedConnection); // in the box
    });
    const WindowLog log(window.form(), label());
    window.click("cmdUpFolder");
    EXPECT_EQ(status, QStringLiteral("Response Received"));
    EXPECT_EQ(log.entries().at(4), QStringLiteral("Connected")); // of the refresh, behind the box
    EXPECT_TRUE(window.probe.states().startsWith(QStringLiteral("5 6 7 8 11:12003 5 ")));
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP|MLSD"));
    EXPECT_EQ(window.beeps, 1);
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST_F(FtpCommandsTest, Error87IsSilent)
{
    window.server.setListing("type=dir; \r\ntype=file; a\"b\" \"c\" \"d\r\n"); // a name that cannot be sent
    window.click("cmdUpFolder");
    window.forget();
    dialogs()
        .expectInput(QStringLiteral("Rename"), QStringLiteral("Enter new file name for a\"b\" \"c\" \"d"))
        .type(QStringLiteral("e"));
    window.selectRow(QStringLiteral("a\"b\" \"c\" \"d"));
    window.click("cmdRename");
    EXPECT_TRUE(window.probe.states().startsWith(QStringLiteral("11:87 5 ")));
    EXPECT_EQ(window.commands(), QStringLiteral("MLSD"));
}

TEST_F(FtpCommandsTest, ALostConnectionDisablesTheCommands)
{
    window.server.dropBefore("CDUP");
    window.control<QWidget>("cmdLogOn").setEnabled(true);
    QString seen;
    bool isExecuting = true;
    const WindowLog log(window.form(), label());
    dialogs().expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        EXPECT_EQ(box.text(), QStringLiteral("12030 The connection with the server has been terminated."));
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        seen = log.text();
        isExecuting = window.session().StillExecuting();
        box.accept();
    });
    window.click("cmdUpFolder");
    EXPECT_EQ(seen, QStringLiteral("Sending Request Request Sent Not Connected -cmdLogOn -cmdNewFolder "
                                   "-cmdDelete -cmdRename -cmdSize -cmdUpFolder -cmdsend -cmdreceive "
                                   "-lstRemoteFile -cmdLogOff +cmdLogOn"));
    EXPECT_FALSE(isExecuting); // it was cancelled
    // The refresh logs on again, and the buttons stay as they are.
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP|USER tester|PASS secret|MLSD"));
    EXPECT_EQ(window.rows(), listed);
    for (const char *name : {"cmdNewFolder", "cmdDelete", "cmdRename", "cmdSize", "cmdUpFolder", "cmdsend",
                             "cmdreceive", "lstRemoteFile", "cmdLogOff"})
        EXPECT_FALSE(window.isEnabled(name)) << name;
    EXPECT_TRUE(window.isEnabled("cmdLogOn"));
    EXPECT_TRUE(window.isEnabled("imgSendFile"));
    EXPECT_TRUE(window.isEnabled("imgReceiveFile"));
}

TEST_F(FtpCommandsTest, WhileACommandRunsTheOthersSayBusy)
{
    window.selectRow(QStringLiteral("a b.txt"));
    window.server.during("CDUP", [this] {
        for (const char *name : {"cmdNewFolder", "cmdUpFolder", "cmdDelete", "cmdSize", "cmdRename",
                                 "cmdsend", "cmdreceive", "imgSendFile", "imgReceiveFile"}) {
            expectBusy();
            window.click(name);
            EXPECT_EQ(window.commands(), QStringLiteral("CDUP")) << name;
        }
        for (const char *row : {"pub/", "a b.txt"}) {
            expectBusy();
            window.doubleClickRow(QString::fromLatin1(row));
            EXPECT_EQ(window.commands(), QStringLiteral("CDUP")) << row;
        }
    });
    window.click("cmdUpFolder");
    EXPECT_EQ(dialogs().seen().size(), 11);
    expectRefreshed(QStringLiteral("CDUP"));
}

TEST_F(FtpCommandsTest, MakesAFolder)
{
    dialogs()
        .expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
        .type(QStringLiteral("new one"));
    window.click("cmdNewFolder");
    expectRefreshed(QStringLiteral("MKD new one"));
}

TEST_F(FtpCommandsTest, AFolderThatIsThereIsNotMade)
{
    dialogs()
        .expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
        .type(QStringLiteral("pub"));
    dialogs()
        .expectBox(QStringLiteral("New Folder"), QStringLiteral("Folder pub already exists."))
        .icon(QMessageBox::Information)
        .buttons(QMessageBox::Ok);
    window.click("cmdNewFolder");
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(FtpCommandsTest, AFolderOfAnotherCaseOrAFileDoesNotMatter)
{
    window.server.reply("MKD", "257 Made.");
    for (const char *name : {"Pub", "a b.txt"}) {
        dialogs()
            .expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
            .type(QString::fromLatin1(name));
        window.click("cmdNewFolder");
    }
    EXPECT_EQ(window.commands(), QStringLiteral("MKD Pub|MLSD|MKD a b.txt|MLSD"));
}

/// The session refuses it, which nobody sees.
TEST_F(FtpCommandsTest, ACancelledNewFolderGoesOutEmpty)
{
    dialogs()
        .expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
        .press(QMessageBox::Cancel);
    window.click("cmdNewFolder");
    EXPECT_EQ(window.executed.texts(), QStringList({QStringLiteral("MKDIR \"\""), QStringLiteral("DIR")}));
    EXPECT_TRUE(window.probe.states().startsWith(QStringLiteral("11:87 5 ")));
    EXPECT_EQ(window.commands(), QStringLiteral("MLSD"));
}

/// Which a box takes from the clipboard, or a program sets.
TEST_F(FtpCommandsTest, LineEndsInANameMakeNoSecondCommand)
{
    const auto answer = [this](const QString &name) {
        dialogs().expectWindow<QDialog>(QStringLiteral("InputBox"), [name](QDialog &box) {
            box.findChild<QLineEdit *>()->setText(name);
            box.accept();
        });
    };
    window.server.reply("MKD", "257 Made.");
    window.server.reply("RNFR", "350 To what?");
    window.server.reply("RNTO", "250 Done.");
    for (const char *name : {"x\r\nDELE a b.txt", "x\nDELE a b.txt", "x\rDELE a b.txt", "\r\n"}) {
        for (const char *button : {"cmdNewFolder", "cmdRename"}) {
            window.selectRow(QStringLiteral("a b.txt"));
            window.forget();
            answer(QString::fromLatin1(name));
            window.click(button);
            EXPECT_TRUE(window.probe.states().startsWith(QStringLiteral("11:87 5 "))) << button;
            EXPECT_EQ(window.commands(), QStringLiteral("MLSD")) << button;
            EXPECT_EQ(window.server.connections(), 1);
        }
    }
}

TEST_F(FtpCommandsTest, DeletesAFileOrAFolder)
{
    for (const auto &[row, command] : {std::pair("a b.txt", "DELE a b.txt"), std::pair("pub/", "RMD pub")}) {
        window.forget();
        dialogs()
            .expectBox(QStringLiteral("Delete"),
                       QStringLiteral("Delete ") + QString::fromLatin1(row) + QStringLiteral(" ?"))
            .icon(QMessageBox::Question)
            .buttons(QMessageBox::Ok | QMessageBox::Cancel)
            .press(QMessageBox::Ok);
        window.selectRow(QString::fromLatin1(row));
        window.click("cmdDelete");
        expectRefreshed(QString::fromLatin1(command));
    }
}

TEST_F(FtpCommandsTest, DeletesOnlyAfterAnOk)
{
    dialogs().expectBox(QStringLiteral("Delete"), QStringLiteral("Delete pub/ ?")).press(QMessageBox::Cancel);
    window.selectRow(QStringLiteral("pub/"));
    window.click("cmdDelete");
    EXPECT_EQ(window.probe.states(), QString());
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(lastAnswer, QStringLiteral("2"));
}

TEST_F(FtpCommandsTest, TheDotFoldersAreNotDeletedEvenWhileACommandRuns)
{
    const auto refuse = [this](const char *row) {
        dialogs()
            .expectBox(QStringLiteral("Cannot Delete Selection.."),
                       QStringLiteral("You cannot delete the '.' or '..' directories."))
            .icon(QMessageBox::Critical)
            .buttons(QMessageBox::Ok);
        window.selectRow(QString::fromLatin1(row));
        window.click("cmdDelete");
    };
    refuse("./");
    refuse("../");
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(window.probe.states(), QString());
    window.server.during("CDUP", [&] { refuse("../"); });
    window.click("cmdUpFolder");
    EXPECT_EQ(dialogs().seen().size(), 3);
}

TEST_F(FtpCommandsTest, RenamesAFileOrAFolder)
{
    window.server.reply("RNTO", "250 Done.");
    for (const char *row : {"a b.txt", "pub/"}) {
        dialogs()
            .expectInput(QStringLiteral("Rename"),
                         QStringLiteral("Enter new file name for ") + QString::fromLatin1(row))
            .suggests({})
            .type(QStringLiteral(" new "));
        window.selectRow(QString::fromLatin1(row));
        window.click("cmdRename");
    }
    EXPECT_EQ(window.commands(), QStringLiteral("RNFR a b.txt|RNTO  new |MLSD|RNFR pub|RNTO  new |MLSD"));
}

TEST_F(FtpCommandsTest, ABlankNameIsInvalid)
{
    for (const char *name : {"", "   "}) {
        dialogs()
            .expectInput(QStringLiteral("Rename"), QStringLiteral("Enter new file name for pub/"))
            .type(QString::fromLatin1(name));
        dialogs()
            .expectBox(QStringLiteral("Rename"), QStringLiteral("Invalid Name"))
            .icon(QMessageBox::Information)
            .buttons(QMessageBox::Ok);
        window.selectRow(QStringLiteral("pub/"));
        window.click("cmdRename");
    }
    EXPECT_EQ(window.probe.states(), QString());
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(FtpCommandsTest, ShowsTheSizeAsItCame)
{
    window.server.reply("SIZE", "213 about 12 %1 <b>x</b>");
    int beeps = 0;
    dialogs().expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Size"));
        EXPECT_EQ(box.text(), QStringLiteral("The size of file pub/ is about 12 %1 <b>x</b> bytes"));
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        beeps = window.beeps;
        box.accept();
    });
    window.selectRow(QStringLiteral("pub/"));
    window.click("cmdSize");
    EXPECT_EQ(beeps, 1); // before the box
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE pub/"));
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(window.rows(), listed);
    EXPECT_EQ(window.beeps, 1);
    window.click("cmdUpFolder"); // whose list is a list again
    EXPECT_EQ(window.rows(), listed);
}

/// The session refuses it, which nobody sees.
TEST_F(FtpCommandsTest, TheSizeOfNothingIsAskedFor)
{
    label().setText(QStringLiteral("before"));
    window.click("cmdSize");
    EXPECT_EQ(window.executed.texts(), QStringList{QStringLiteral("SIZE \"\"")});
    EXPECT_EQ(window.probe.states(), QStringLiteral("11:87"));
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(window.beeps, 0);
}

/// Pending events run once between two pieces of 4096 characters.
TEST_F(FtpCommandsTest, AListingIsReadInPieces)
{
    for (const auto &[length, pieces] : {std::pair(4096, 1), std::pair(4097, 2), std::pair(3 * 4096, 3)}) {
        const QString row(length - 2, u'x'); // with its line end that many characters
        window.server.setListing("type=file; " + row.toLatin1() + "\r\n");
        int turns = 0;
        std::function<void()> count = [&] {
            if (window.rows().isEmpty()) {
                ++turns;
                QMetaObject::invokeMethod(&window.form(), count, Qt::QueuedConnection);
            }
        };
        window.whileListIsRead(count);
        window.click("cmdUpFolder");
        EXPECT_EQ(turns, pieces) << length;
        EXPECT_EQ(window.rows(), QStringList{row});
    }
}

TEST_F(FtpCommandsTest, AListingInManyPiecesIsWhole)
{
    QByteArray listing;
    QStringList expected;
    for (int i = 0; i < 3000; ++i) {
        expected << QStringLiteral("file number %1").arg(i);
        listing += "type=file; " + expected.last().toLatin1() + "\r\n";
    }
    window.server.setListing(listing);
    window.click("cmdUpFolder");
    EXPECT_EQ(window.rows(), expected);
    EXPECT_EQ(window.beeps, 2);
}

TEST_F(FtpCommandsTest, KeysRunTheEventsOfTheirButtons)
{
    window.selectRow(QStringLiteral("pub/"));
    press(Qt::Key_Return);
    EXPECT_EQ(window.commands(), QStringLiteral("CWD pub|MLSD"));

    dialogs().expectBox(QStringLiteral("Delete"), QStringLiteral("Delete pub/ ?")).press(QMessageBox::Cancel);
    window.selectRow(QStringLiteral("pub/"));
    press(Qt::Key_Delete);
    dialogs()
        .expectInput(QStringLiteral("Rename"), QStringLiteral("Enter new file name for pub/"))
        .type(QStringLiteral("x"));
    window.server.reply("RNFR", "350 To what?");
    window.server.reply("RNTO", "250 Done.");
    press(Qt::Key_F2);
    EXPECT_EQ(window.commands(), QStringLiteral("CWD pub|MLSD|RNFR pub|RNTO x|MLSD"));
}

TEST_F(FtpCommandsTest, AKeyThatLosesTheConnectionPressesNoButton)
{
    window.server.dropBefore("CWD");
    dialogs().expectBox(QStringLiteral("Error"),
                        QStringLiteral("12030 The connection with the server has been terminated."));
    window.selectRow(QStringLiteral("pub/"));
    press(Qt::Key_Return); // the focus is at another control then
    EXPECT_EQ(window.commands(), QStringLiteral("CWD pub|USER tester|PASS secret|MLSD"));
    EXPECT_EQ(window.server.connections(), 2);
}

TEST_F(FtpCommandsTest, WithoutARowTheKeysDoNothing)
{
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete, Qt::Key_F2})
        press(key);
    EXPECT_EQ(window.probe.states(), QString());
    EXPECT_EQ(window.commands(), QString());
}
