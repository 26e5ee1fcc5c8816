#include "Files.h"
#include "FtpWindow.h"
#include "PrintQt.h"
#include "RowName.h"

#include <QTest>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

const QString fileRow = QStringLiteral("a \"b\".txt");
const QString folderRow = QStringLiteral("a folder/");

/// A use of the window, what it hands to the session ("LOCAL" for the local folder), and all that the server
/// gets for it.
struct RequestCase
{
    const char *name;
    std::function<void(FtpWindow &)> use;
    QStringList commands;
    QByteArrayList requests;
};

struct FtpRequestsTest : testing::TestWithParam<RequestCase>
{
    FtpWindow window;

    FtpRequestsTest()
    {
        window.served.addFolder("a folder");
        window.served.addFile("a \"b\".txt", "from the server");
        window.addLocalFile("my \"file\".txt", "from this computer");
        window.logOn();
    }
};

/// Clicks \a button with \a row selected.
std::function<void(FtpWindow &)> clickOn(const char *button, const QString &row = {})
{
    return [button, row](FtpWindow &window) {
        if (!row.isEmpty())
            window.selectRow(row);
        window.click(button);
    };
}

std::function<void(FtpWindow &)> doubleClickOn(const QString &row)
{
    return [row](FtpWindow &window) { window.doubleClickRow(row); };
}

/// As clickOn(), where the input box is answered.
std::function<void(FtpWindow &)> nameBy(const char *button, const char *title, const QString &prompt,
                                        const QString &row = {})
{
    return [=](FtpWindow &window) {
        window.frame.dialogs.expectInput(QString::fromLatin1(title), prompt)
            .type(QStringLiteral(" new \"one\""));
        clickOn(button, row)(window);
    };
}

std::function<void(FtpWindow &)> deleteRow(const QString &row)
{
    return [row](FtpWindow &window) {
        window.frame.dialogs.expectBox(QStringLiteral("Delete"),
                                       QStringLiteral("Delete ") + row + QStringLiteral(" ?"));
        clickOn("cmdDelete", row)(window);
    };
}

void askForSize(FtpWindow &window)
{
    window.frame.dialogs.expectBox(QStringLiteral("Size"),
                                   QStringLiteral("The size of file a \"b\".txt is 15 bytes"));
    clickOn("cmdSize", fileRow)(window);
}

void logOff(FtpWindow &window)
{
    window.click("cmdLogOff");
    FtpWindow::waitFor([&] { return window.server.openConnections() == 0; });
}

/// The list that follows a command; the type of the data stays set.
const QByteArrayList listRequests = {"EPSV", "MLSD"};
const QByteArrayList fetchRequests = {"TYPE I", "SIZE a \"b\".txt", "MDTM a \"b\".txt", "EPSV",
                                      "RETR a \"b\".txt"};
const QByteArrayList storeRequests =
    QByteArrayList{"TYPE I", "EPSV", "STOR my \"file\".txt", "TYPE A"} + listRequests;

/// \a command, whose "'" are quotation marks, and the list behind it.
QStringList changing(const char *command)
{
    return {QString::fromLatin1(command).replace(u'\'', u'"'), QStringLiteral("DIR")};
}

const QStringList fetchCommand = {QStringLiteral("GET \"a \"b\".txt\" \"LOCAL\\a \"b\".txt\"")};
const QStringList storeCommands = changing("PUT 'LOCAL\\my 'file'.txt' 'my 'file'.txt'");

std::vector<RequestCase> requestCases()
{
    return {
        {"UpFolder", clickOn("cmdUpFolder"), changing("CDUP"), QByteArrayList{"CDUP"} + listRequests},
        {"NewFolder", nameBy("cmdNewFolder", "New Folder", QStringLiteral("Enter new folder name")),
         changing("MKDIR ' new 'one''"), QByteArrayList{"MKD  new \"one\""} + listRequests},
        {"DeleteFile", deleteRow(fileRow), changing("DELETE 'a 'b'.txt'"),
         QByteArrayList{"DELE a \"b\".txt"} + listRequests},
        {"DeleteFolder", deleteRow(folderRow), changing("RMDIR 'a folder/'"),
         QByteArrayList{"RMD a folder"} + listRequests},
        {"RenameFile",
         nameBy("cmdRename", "Rename", QStringLiteral("Enter new file name for ") + fileRow, fileRow),
         changing("RENAME 'a 'b'.txt' ' new 'one''"),
         QByteArrayList{"RNFR a \"b\".txt", "RNTO  new \"one\""} + listRequests},
        {"RenameFolder",
         nameBy("cmdRename", "Rename", QStringLiteral("Enter new file name for ") + folderRow, folderRow),
         changing("RENAME 'a folder/' ' new 'one''"),
         QByteArrayList{"RNFR a folder", "RNTO  new \"one\""} + listRequests},
        {"Size", askForSize, {QStringLiteral("SIZE \"a \"b\".txt\"")}, {"TYPE I", "SIZE a \"b\".txt"}},
        {"SizeOfAFolder",
         [](FtpWindow &window) {
             window.server.reply("SIZE", "550 Not a file.");
             window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("12003 550 Not a file."));
             clickOn("cmdSize", folderRow)(window);
         },
         {QStringLiteral("SIZE \"a folder/\"")},
         {"TYPE I", "SIZE a folder/"}},
        {"OpenFolder", doubleClickOn(folderRow), changing("CD 'a folder/'"),
         QByteArrayList{"CWD a folder"} + listRequests},
        {"OpenFile", doubleClickOn(fileRow), fetchCommand, fetchRequests},
        {"Receive", clickOn("cmdreceive", fileRow), fetchCommand, fetchRequests},
        {"ReceiveImage", clickOn("imgReceiveFile", fileRow), fetchCommand, fetchRequests},
        {"Send", clickOn("cmdsend"), storeCommands, storeRequests},
        {"SendImage", clickOn("imgSendFile"), storeCommands, storeRequests},
        {"LogOff", logOff, {QStringLiteral("CLOSE")}, {"QUIT"}},
    };
}

} // namespace

TEST_P(FtpRequestsTest, AreAllThatTheServerGets)
{
    GetParam().use(window);
    QStringList commands = GetParam().commands;
    commands.replaceInStrings(QStringLiteral("LOCAL"), window.local.path());
    EXPECT_EQ(window.executed.texts(), commands);
    EXPECT_EQ(window.server.commands(), GetParam().requests);
    EXPECT_EQ(window.server.connections(), 1);
}

INSTANTIATE_TEST_SUITE_P(Uses, FtpRequestsTest, testing::ValuesIn(requestCases()), RowName());

TEST(FtpLogOnRequests, BeginTheSession)
{
    FtpWindow window;
    window.click("cmdLogOn");
    EXPECT_EQ(window.executed.texts(), QStringList{QStringLiteral("DIR")});
    EXPECT_EQ(window.server.commands(),
              QByteArrayList({"USER tester", "PASS secret", "TYPE A", "OPTS MLST type;", "EPSV", "MLSD"}));
}
