#include "FtpWindow.h"
#include "Globals.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ShownText.h"

#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QStringList listed = {QStringLiteral("./"), QStringLiteral("../"), QStringLiteral("pub/"),
                            QStringLiteral("a b.txt")};

struct FtpCommandsTest : testing::Test
{
    FtpWindow window;

    FtpCommandsTest() { window.logOn(listed); }

    DialogDriver &dialogs() { return window.frame.dialogs; }
    void respondToList(const char *response) const
    {
        window.session().respond(QStringLiteral("DIR"), QString::fromLatin1(response));
    }
    /// The command that ran was followed by a list, which is there.
    void expectRefreshed(const QString &command) const
    {
        EXPECT_EQ(window.commands(), command + QStringLiteral("|DIR"));
        EXPECT_EQ(window.rows(), listed);
        EXPECT_EQ(window.status(), QStringLiteral("Response Received")); // of the list, which came later
        EXPECT_EQ(window.beeps, 2);
    }
    void press(int key) const
    {
        window.remote().setFocus();
        QTest::keyClick(&window.remote(), Qt::Key(key));
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
    window.session().report(GetParam().state);
    EXPECT_EQ(window.status(), QString::fromLatin1(GetParam().status));
    EXPECT_TRUE(window.isEnabled("cmdRename")); // also where the server has gone
    EXPECT_TRUE(window.isEnabled("cmdLogOn"));
    EXPECT_EQ(StandInSession::calls, QStringList());
    EXPECT_EQ(window.beeps, 0);
}

INSTANTIATE_TEST_SUITE_P(States, FtpStateTest, testing::ValuesIn(states), RowName());

TEST_P(FtpRowTest, GoesOutAsItIsAndIsShownPlain)
{
    FtpWindow window;
    QString row = GetParam().text();
    row.remove(u'\r').remove(u'\n'); // these end a row
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
    window.session().respond(QStringLiteral("SIZE"), QStringLiteral("7"));
    window.frame.dialogs.expectBox(
        QStringLiteral("Size"),
        ShownText::lines(QStringLiteral("The size of file ") + row + QStringLiteral(" is 7 bytes")));
    window.click("cmdSize");
    EXPECT_EQ(window.commands(), QStringLiteral("DELETE \"") + row + QStringLiteral("\"|DIR|RENAME \"") +
                                     row + QStringLiteral("\" \"%1<b>\"|DIR|SIZE \"") + row + u'"');
}

INSTANTIATE_TEST_SUITE_P(Names, FtpRowTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

TEST_F(FtpCommandsTest, ADoubleClickOpensAFolder)
{
    window.doubleClickRow(QStringLiteral("pub/"));
    expectRefreshed(QStringLiteral("CD \"pub/\""));
}

TEST_F(FtpCommandsTest, ADoubleClickOpensTheFolderAbove)
{
    window.doubleClickRow(QStringLiteral("../"));
    expectRefreshed(QStringLiteral("CD \"../\""));
}

TEST_F(FtpCommandsTest, ADoubleClickReceivesAFile)
{
    window.doubleClickRow(QStringLiteral("a b.txt"));
    EXPECT_EQ(window.commands(),
              QStringLiteral("GET \"a b.txt\" \"") + window.local.path() + QStringLiteral("\\a b.txt\""));
}

TEST_F(FtpCommandsTest, MovesUpOneFolder)
{
    window.click("cmdUpFolder");
    expectRefreshed(QStringLiteral("CDUP"));
}

/// The list is cleared and asked for before the label says so, and the rows come later.
TEST_F(FtpCommandsTest, ARefreshDoesNotWaitForTheRows)
{
    window.session().hold(QStringLiteral("DIR"));
    window.session().during(QStringLiteral("CDUP"), [this] { EXPECT_EQ(window.rows(), listed); });
    QTest::mouseClick(&window.control<QWidget>("cmdUpFolder"), Qt::LeftButton);
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP|DIR"));
    EXPECT_EQ(window.rows(), QStringList());
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    QTest::qWait(0);
    window.session().release();
    EXPECT_EQ(window.rows(), listed);
}

TEST_F(FtpCommandsTest, TextThatCdReturnsIsClearedByTheRefresh)
{
    window.session().respond(QStringLiteral("CD"), QStringLiteral("250 Directory changed.\r\n"));
    window.doubleClickRow(QStringLiteral("pub/"));
    EXPECT_EQ(window.rows(), listed);
}

TEST_F(FtpCommandsTest, ARefusedCommandIsReportedAndTheListRefreshed)
{
    window.session().refuse(QStringLiteral("CDUP"), 12003, QStringLiteral("550 <b>no</b> %1"));
    dialogs()
        .expectBox(QStringLiteral("Error"), QStringLiteral("12003 550 <b>no</b> %1"))
        .icon(QMessageBox::Critical)
        .buttons(QMessageBox::Ok);
    window.click("cmdUpFolder");
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP|DIR"));
    EXPECT_EQ(window.beeps, 1);
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST_F(FtpCommandsTest, Error87IsSilent)
{
    window.session().refuse(QStringLiteral("CDUP"), 87, QStringLiteral("invalid"));
    window.click("cmdUpFolder");
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP|DIR"));
}

TEST_F(FtpCommandsTest, ALostConnectionDisablesTheCommands)
{
    window.session().refuse(QStringLiteral("CDUP"), 12030, QStringLiteral("lost"));
    QString status;
    bool hasLogOn = false;
    QString calls;
    dialogs().expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        EXPECT_EQ(box.text(), QStringLiteral("12030 lost"));
        status = window.status();
        hasLogOn = window.isEnabled("cmdLogOn");
        calls = StandInSession::calls.join(u'|');
        box.accept();
    });
    window.click("cmdUpFolder");
    EXPECT_EQ(status, QStringLiteral("Not Connected"));
    EXPECT_TRUE(hasLogOn);
    EXPECT_EQ(calls, QStringLiteral("Execute CDUP|Cancel"));
    // The refresh logs on again, and the buttons stay as they are.
    EXPECT_EQ(window.commands(), QStringLiteral("CDUP|DIR"));
    EXPECT_EQ(window.rows(), listed);
    for (const char *name : {"cmdNewFolder", "cmdDelete", "cmdRename", "cmdSize", "cmdUpFolder", "cmdsend",
                             "cmdreceive", "lstRemoteFile", "cmdLogOff"})
        EXPECT_FALSE(window.isEnabled(name)) << name;
    EXPECT_TRUE(window.isEnabled("imgSendFile"));
    EXPECT_TRUE(window.isEnabled("imgReceiveFile"));
}

TEST_F(FtpCommandsTest, WhileACommandRunsTheOthersSayBusy)
{
    window.selectRow(QStringLiteral("a b.txt"));
    window.session().during(QStringLiteral("CDUP"), [this] {
        for (const char *name : {"cmdNewFolder", "cmdUpFolder", "cmdDelete", "cmdSize", "cmdRename",
                                 "cmdsend", "cmdreceive", "imgSendFile", "imgReceiveFile"}) {
            dialogs()
                .expectBox(QStringLiteral("Busy"), QStringLiteral("Please wait.  FTP is still executing"))
                .icon(QMessageBox::Information)
                .buttons(QMessageBox::Ok);
            window.click(name);
            EXPECT_EQ(window.commands(), QStringLiteral("CDUP")) << name;
        }
        dialogs().expectBox(QStringLiteral("Busy"), QStringLiteral("Please wait.  FTP is still executing"));
        window.doubleClickRow(QStringLiteral("pub/"));
        EXPECT_EQ(window.commands(), QStringLiteral("CDUP"));
    });
    window.click("cmdUpFolder");
    expectRefreshed(QStringLiteral("CDUP"));
}

TEST_F(FtpCommandsTest, MakesAFolder)
{
    dialogs()
        .expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
        .type(QStringLiteral("new one"));
    window.click("cmdNewFolder");
    expectRefreshed(QStringLiteral("MKDIR \"new one\""));
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
    for (const char *name : {"Pub", "a b.txt"}) {
        dialogs()
            .expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
            .type(QString::fromLatin1(name));
        window.click("cmdNewFolder");
    }
    EXPECT_EQ(window.commands(), QStringLiteral("MKDIR \"Pub\"|DIR|MKDIR \"a b.txt\"|DIR"));
}

TEST_F(FtpCommandsTest, ACancelledNewFolderGoesOutEmpty)
{
    dialogs()
        .expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
        .press(QMessageBox::Cancel);
    window.click("cmdNewFolder");
    EXPECT_EQ(window.commands(), QStringLiteral("MKDIR \"\"|DIR"));
}

TEST_F(FtpCommandsTest, DeletesAFileOrAFolder)
{
    for (const auto &[row, command] :
         {std::pair("a b.txt", "DELETE \"a b.txt\""), std::pair("pub/", "RMDIR \"pub/\"")}) {
        StandInSession::calls.clear();
        window.beeps = 0;
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
    window.session().during(QStringLiteral("CDUP"), [&] { refuse("../"); });
    window.click("cmdUpFolder");
}

TEST_F(FtpCommandsTest, RenamesAFileOrAFolder)
{
    for (const char *row : {"a b.txt", "pub/"}) {
        dialogs()
            .expectInput(QStringLiteral("Rename"),
                         QStringLiteral("Enter new file name for ") + QString::fromLatin1(row))
            .suggests({})
            .type(QStringLiteral(" new "));
        window.selectRow(QString::fromLatin1(row));
        window.click("cmdRename");
    }
    EXPECT_EQ(window.commands(),
              QStringLiteral("RENAME \"a b.txt\" \" new \"|DIR|RENAME \"pub/\" \" new \"|DIR"));
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
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(FtpCommandsTest, ShowsTheSizeAsItCame)
{
    window.session().respond(QStringLiteral("SIZE"), QStringLiteral("213 about 12\r\n%1"));
    dialogs()
        .expectBox(QStringLiteral("Size"), QStringLiteral("The size of file pub/ is 213 about 12\n%1 bytes"))
        .icon(QMessageBox::Information)
        .buttons(QMessageBox::Ok);
    window.selectRow(QStringLiteral("pub/"));
    window.click("cmdSize");
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE \"pub/\""));
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(window.rows(), listed);
    EXPECT_EQ(window.beeps, 1);
    window.click("cmdUpFolder"); // whose list is a list again
    EXPECT_EQ(window.rows(), listed);
}

TEST_F(FtpCommandsTest, TheSizeOfNothingIsAskedFor)
{
    dialogs().expectBox(QStringLiteral("Size"), QStringLiteral("The size of file  is  bytes"));
    window.click("cmdSize");
    EXPECT_EQ(window.commands(), QStringLiteral("SIZE \"\""));
}

TEST_F(FtpCommandsTest, AListingInManyPiecesIsWhole)
{
    QString response;
    QStringList expected;
    for (int i = 0; i < 3000; ++i) {
        expected << QStringLiteral("file number %1").arg(i);
        response += expected.last() + QStringLiteral("\r\n");
    }
    window.session().respond(QStringLiteral("DIR"), response + QStringLiteral("cut off"));
    window.click("cmdUpFolder");
    EXPECT_EQ(window.rows(), expected);
    EXPECT_EQ(window.beeps, 2);
}

TEST_F(FtpCommandsTest, KeysRunTheEventsOfTheirButtons)
{
    window.selectRow(QStringLiteral("pub/"));
    press(Qt::Key_Return);
    EXPECT_EQ(window.commands(), QStringLiteral("CD \"pub/\"|DIR"));
    QTest::qWait(0);

    dialogs().expectBox(QStringLiteral("Delete"), QStringLiteral("Delete pub/ ?")).press(QMessageBox::Cancel);
    window.selectRow(QStringLiteral("pub/"));
    press(Qt::Key_Delete);
    dialogs()
        .expectInput(QStringLiteral("Rename"), QStringLiteral("Enter new file name for pub/"))
        .type(QStringLiteral("x"));
    press(Qt::Key_F2);
    EXPECT_EQ(window.commands(), QStringLiteral("CD \"pub/\"|DIR|RENAME \"pub/\" \"x\"|DIR"));
}

TEST_F(FtpCommandsTest, AKeyThatLosesTheConnectionPressesNoButton)
{
    window.session().refuse(QStringLiteral("CD"), 12030, QStringLiteral("lost"));
    dialogs().expectBox(QStringLiteral("Error"), QStringLiteral("12030 lost"));
    window.selectRow(QStringLiteral("pub/"));
    press(Qt::Key_Return); // the focus is at another control then
    EXPECT_EQ(window.commands(), QStringLiteral("CD \"pub/\"|DIR"));
}

TEST_F(FtpCommandsTest, WithoutARowTheKeysDoNothing)
{
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete, Qt::Key_F2})
        press(key);
    EXPECT_EQ(window.commands(), QString());
}
