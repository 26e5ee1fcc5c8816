#include "Beep.h"
#include "DirListBox.h"
#include "FakeFrame.h"
#include "FileListBox.h"
#include "Files.h"
#include "Forms.h"
#include "FtpServer.h"
#include "ListBox.h"
#include "PrintQt.h"
#include "ScratchProgramFolder.h"
#include "frmFTP.h"

#include <QAbstractButton>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

constexpr int patience = 20000; // milliseconds

/// The FTP window beside a server that serves a folder of the test's.
struct FtpServerTest : testing::Test
{
    ScratchProgramFolder programFolder;
    ScratchFolder served;
    ScratchFolder local;
    FtpServer server{served.path()};
    FakeFrame frame;
    QPointer<frmFTP> form;
    int beeps = 0;

    FtpServerTest()
    {
        programFolder.addFile("ftpprof.dat", "0,Test," + server.address().toLatin1() + ",tester,secret,\r\n");
        Forms::registerWindow(QStringLiteral("frmFTP"), Forms::Instances::One, [] { return new frmFTP; });
        setBeep([this] { ++beeps; });
        form = &Forms::refer<frmFTP>();
        form->showModeless();
        control<DirListBox>("dirLocalDir").setPath(local.path());
    }
    ~FtpServerTest() override { setBeep({}); }

    template<class Control>
    Control &control(const char *name) const
    {
        return form->member<Control>(QString::fromLatin1(name));
    }
    ListBox &remote() const { return control<ListBox>("lstRemoteFile"); }
    QString status() const { return control<QLabel>("lblStatus").text(); }
    void click(const char *name) const { QTest::mouseClick(&control<QAbstractButton>(name), Qt::LeftButton); }
    QString rows() const
    {
        QStringList rows;
        for (int i = 0; i < remote().ListCount(); ++i)
            rows << remote().List(i);
        rows.sort();
        return rows.join(u'|');
    }
    void waitForBeeps(int count) const
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return beeps >= count; }, patience)) << beeps;
    }
    void logOn()
    {
        click("cmdLogOn");
        waitForBeeps(1);
        beeps = 0;
    }
    void select(const QString &row) const
    {
        for (int i = 0; i < remote().ListCount(); ++i) {
            if (remote().List(i) == row)
                remote().setListIndex(i);
        }
        ASSERT_EQ(remote().Text(), row);
    }
    void selectLocal(const QString &name) const
    {
        auto &files = control<FileListBox>("filLocalFile");
        files.Refresh();
        for (int i = 0; i < files.ListCount(); ++i) {
            if (files.List(i) == name)
                files.setCurrentIndex(files.model()->index(i, 0));
        }
        ASSERT_EQ(files.FileName(), name);
    }
    QByteArray content(const char *name) const
    {
        return Files::read(served.path() + u'/' + QString::fromLatin1(name));
    }
};

} // namespace

TEST_F(FtpServerTest, LogsOnAndLists)
{
    served.addFile("readme", "x");
    served.addFolder("pub");
    click("cmdLogOn");
    EXPECT_EQ(rows(), QStringLiteral("pub/|readme"));
    EXPECT_EQ(status(), QStringLiteral("Connected"));
    EXPECT_EQ(server.commands("USER"), QByteArrayList{"USER tester"});
    EXPECT_EQ(server.commands("PASS"), QByteArrayList{"PASS secret"});
}

TEST_F(FtpServerTest, WalksThroughTheFolders)
{
    served.addFolder("pub");
    served.addFile("pub/inner", "x");
    logOn();
    select(QStringLiteral("pub/"));
    Q_EMIT remote().DblClick();
    waitForBeeps(2);
    EXPECT_EQ(rows(), QStringLiteral("inner"));
    click("cmdUpFolder");
    waitForBeeps(4);
    EXPECT_EQ(rows(), QStringLiteral("pub/"));
}

TEST_F(FtpServerTest, ChangesTheFolder)
{
    served.addFile("one", "12345");
    logOn();
    frame.dialogs.expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
        .type(QStringLiteral("made here"));
    click("cmdNewFolder");
    waitForBeeps(2);
    EXPECT_EQ(rows(), QStringLiteral("made here/|one"));

    select(QStringLiteral("made here/"));
    frame.dialogs.expectInput(QStringLiteral("Rename"), QStringLiteral("Enter new file name for made here/"))
        .type(QStringLiteral("other"));
    click("cmdRename");
    waitForBeeps(4);
    EXPECT_EQ(rows(), QStringLiteral("one|other/"));

    for (const char *row : {"other/", "one"}) {
        select(QString::fromLatin1(row));
        frame.dialogs.expectBox(QStringLiteral("Delete"),
                                QStringLiteral("Delete ") + QString::fromLatin1(row) + QStringLiteral(" ?"));
        beeps = 0;
        click("cmdDelete");
        waitForBeeps(2);
    }
    EXPECT_EQ(rows(), QString());
}

TEST_F(FtpServerTest, ShowsASize)
{
    served.addFile("one", "12345");
    logOn();
    select(QStringLiteral("one"));
    frame.dialogs.expectBox(QStringLiteral("Size"), QStringLiteral("The size of file one is 5 bytes"));
    click("cmdSize");
    EXPECT_EQ(rows(), QStringLiteral("one"));
}

TEST_F(FtpServerTest, SendsAndReceives)
{
    served.addFile("there", "from the server");
    local.addFile("here", "from this computer");
    logOn();
    selectLocal(QStringLiteral("here"));
    click("cmdsend");
    waitForBeeps(2);
    EXPECT_EQ(rows(), QStringLiteral("here|there"));
    EXPECT_EQ(content("here"), "from this computer");
    select(QStringLiteral("there"));
    click("cmdreceive");
    EXPECT_EQ(Files::read(local.path() + QStringLiteral("/there")), "from the server");
    selectLocal(QStringLiteral("there"));
}

TEST_F(FtpServerTest, ARefusalIsShownAndTheListRefreshed)
{
    served.addFile("one", "x");
    logOn();
    server.reply("DELE", "550 <b>Not</b> allowed.");
    select(QStringLiteral("one"));
    frame.dialogs.expectBox(QStringLiteral("Delete"), QStringLiteral("Delete one ?"));
    frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [](QMessageBox &box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Error"));
        EXPECT_TRUE(box.text().contains(QStringLiteral("550 <b>Not</b> allowed.")));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        box.accept();
    });
    click("cmdDelete");
    waitForBeeps(1);
    EXPECT_EQ(rows(), QStringLiteral("one"));
}

TEST_F(FtpServerTest, LogsOff)
{
    logOn();
    click("cmdLogOff");
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.openConnections() == 0; }, patience));
    EXPECT_EQ(status(), QStringLiteral("Not Connected"));
    EXPECT_TRUE(control<QWidget>("cmdLogOn").isEnabled());
    EXPECT_FALSE(control<QWidget>("lstRemoteFile").isEnabled());
}

TEST_F(FtpServerTest, ALostConnectionIsShownAndANewLogOnWorks)
{
    served.addFile("one", "x");
    logOn();
    server.dropBefore("SIZE");
    select(QStringLiteral("one"));
    frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [](QMessageBox &box) {
        EXPECT_TRUE(box.text().startsWith(QStringLiteral("12030 ")));
        box.accept();
    });
    click("cmdSize");
    EXPECT_TRUE(control<QWidget>("cmdLogOn").isEnabled());
    EXPECT_FALSE(control<QWidget>("cmdSize").isEnabled());
    click("cmdLogOn");
    waitForBeeps(1);
    EXPECT_TRUE(control<QWidget>("cmdSize").isEnabled());
    EXPECT_EQ(server.connections(), 2);
}

TEST_F(FtpServerTest, AServerTextThatCannotBeReadIsAFailedLogOn)
{
    control<QLineEdit>("txtServer").setText(QStringLiteral("http://example.org"));
    frame.dialogs.expectBox(QStringLiteral("LogOn Failure"), QStringLiteral("Logon attempt failed"));
    click("cmdLogOn");
    EXPECT_EQ(status(), QStringLiteral("Not Connected"));
    EXPECT_FALSE(control<QWidget>("cmdsend").isEnabled());
}

TEST_F(FtpServerTest, BeforeAnyLogOnASendIsRefusedByTheSession)
{
    local.addFile("here", "x");
    selectLocal(QStringLiteral("here"));
    for (int i = 0; i < 2; ++i) { // for the file and for the list behind it
        frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [](QMessageBox &box) {
            EXPECT_TRUE(box.text().startsWith(QStringLiteral("12030 ")));
            box.accept();
        });
    }
    click("cmdsend");
    EXPECT_TRUE(QTest::qWaitFor([&] { return frame.dialogs.seen().size() == 2; }, patience));
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(FtpServerTest, ClosedInAnyStageItLeavesNothing)
{
    served.addFile("one", QByteArray(100000, 'x'));
    for (const char *stage : {FtpServer::Greeting, "USER", "PASS", "MLSD", "RETR", FtpServer::EndOfData}) {
        if (!form) {
            form = &Forms::refer<frmFTP>();
            form->showModeless();
            control<DirListBox>("dirLocalDir").setPath(local.path());
        }
        const bool inTransfer = QByteArray(stage) == "RETR" || QByteArray(stage) == FtpServer::EndOfData;
        if (inTransfer) {
            click("cmdLogOn");
            select(QStringLiteral("one"));
        }
        server.hold(stage);
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (server.isHolding() && form) {
                poll.stop();
                form->unload();
            }
        });
        poll.start(1);
        click(inTransfer ? "cmdreceive" : "cmdLogOn");
        QTest::qWait(0);
        EXPECT_FALSE(form) << stage;
        server.release();
        EXPECT_TRUE(QTest::qWaitFor([&] { return server.openConnections() == 0; }, patience)) << stage;
        EXPECT_TRUE(
            QDir(local.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty())
            << stage;
    }
}

TEST_F(FtpServerTest, TwoHundredThousandRowsAreListed)
{
    constexpr int count = 200000;
    QByteArray listing;
    for (int i = 0; i < count; ++i)
        listing += "type=file;size=1; file number " + QByteArray::number(i) + "\r\n";
    server.setListing(listing);
    QElapsedTimer sinceLast;
    qint64 longest = 0;
    QTimer frames;
    QObject::connect(&frames, &QTimer::timeout, [&] { longest = qMax(longest, sinceLast.restart()); });
    sinceLast.start();
    frames.start(0);
    click("cmdLogOn");
    longest = qMax(longest, sinceLast.restart());
    EXPECT_EQ(remote().ListCount(), count);
    EXPECT_EQ(remote().List(count - 1), QStringLiteral("file number 199999"));
    RecordProperty("longest_freeze_ms", int(longest));
    EXPECT_LT(longest, patience);
}
