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

/// A use of the window, and all that the server gets for it.
struct RequestCase
{
    const char *name;
    std::function<void(FtpWindow &)> use;
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

std::vector<RequestCase> requestCases()
{
    return {
        {"UpFolder", clickOn("cmdUpFolder"), QByteArrayList{"CDUP"} + listRequests},
        {"NewFolder", nameBy("cmdNewFolder", "New Folder", QStringLiteral("Enter new folder name")),
         QByteArrayList{"MKD  new \"one\""} + listRequests},
        {"DeleteFile", deleteRow(fileRow), QByteArrayList{"DELE a \"b\".txt"} + listRequests},
        {"DeleteFolder", deleteRow(folderRow), QByteArrayList{"RMD a folder"} + listRequests},
        {"RenameFile",
         nameBy("cmdRename", "Rename", QStringLiteral("Enter new file name for ") + fileRow, fileRow),
         QByteArrayList{"RNFR a \"b\".txt", "RNTO  new \"one\""} + listRequests},
        {"RenameFolder",
         nameBy("cmdRename", "Rename", QStringLiteral("Enter new file name for ") + folderRow, folderRow),
         QByteArrayList{"RNFR a folder", "RNTO  new \"one\""} + listRequests},
        {"Size", askForSize, {"TYPE I", "SIZE a \"b\".txt"}},
        {"OpenFolder", doubleClickOn(folderRow), QByteArrayList{"CWD a folder"} + listRequests},
        {"OpenFile", doubleClickOn(fileRow), fetchRequests},
        {"Receive", clickOn("cmdreceive", fileRow), fetchRequests},
        {"ReceiveImage", clickOn("imgReceiveFile", fileRow), fetchRequests},
        {"Send", clickOn("cmdsend"), storeRequests},
        {"SendImage", clickOn("imgSendFile"), storeRequests},
        {"LogOff", logOff, {"QUIT"}},
    };
}

} // namespace

TEST_P(FtpRequestsTest, AreAllThatTheServerGets)
{
    GetParam().use(window);
    EXPECT_EQ(window.server.commands(), GetParam().requests);
    EXPECT_EQ(window.server.connections(), 1);
}

INSTANTIATE_TEST_SUITE_P(Uses, FtpRequestsTest, testing::ValuesIn(requestCases()), RowName());

TEST(FtpLogOnRequests, BeginTheSession)
{
    FtpWindow window;
    window.click("cmdLogOn");
    EXPECT_EQ(window.server.commands(),
              QByteArrayList({"USER tester", "PASS secret", "TYPE A", "EPSV", "MLSD"}));
}
