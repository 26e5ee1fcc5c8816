#include "AsUser.h"
#include "DirListBox.h"
#include "FileListBox.h"
#include "FileNames.h"
#include "Files.h"
#include "FtpWindow.h"
#include "Globals.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "RowDrop.h"
#include "ShownText.h"
#include "WindowLog.h"

#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

const QString file = QStringLiteral("a b.txt");
const QString got = QStringLiteral("SIZE a b.txt|RETR a b.txt");

struct FtpTransfersTest : testing::Test
{
    FtpWindow window;

    FtpTransfersTest()
    {
        window.served.addFolder("pub");
        window.served.addFile("a b.txt", "from the server");
        window.logOn({QStringLiteral("pub/"), file});
    }

    QString put(const QString &name) const
    {
        return QStringLiteral("STOR ") + name + QStringLiteral("|MLSD");
    }
    QByteArray served(const QString &name) const { return Files::read(window.served.path() + u'/' + name); }
    QByteArray received(const QString &name) const { return Files::read(window.local.path() + u'/' + name); }
    BoxStep &expectOverwrite(const QString &name)
    {
        return window.frame.dialogs
            .expectBox(QStringLiteral("Overwrite"),
                       QStringLiteral("File ") + name + QStringLiteral(" already exists.\nOverwrite?"))
            .icon(QMessageBox::Question)
            .buttons(QMessageBox::Yes | QMessageBox::No);
    }
    void expectNothingToSend()
    {
        window.frame.dialogs
            .expectBox(QStringLiteral("Error"), QStringLiteral("Please select a file to send."))
            .icon(QMessageBox::Critical)
            .buttons(QMessageBox::Ok);
    }
};

struct FtpLocalNameTest : testing::TestWithParam<HostileName>
{};

} // namespace

TEST_F(FtpTransfersTest, SendsTheSelectedFile)
{
    window.addLocalFile("new.txt", "from this computer");
    for (const char *name : {"cmdsend", "imgSendFile"}) {
        window.forget();
        window.click(name);
        EXPECT_EQ(window.commands(), put(QStringLiteral("new.txt"))) << name;
        EXPECT_EQ(window.beeps, 2);
        EXPECT_EQ(window.rows(), QStringList({QStringLiteral("pub/"), file}));
        EXPECT_EQ(served(QStringLiteral("new.txt")), "from this computer");
        ASSERT_EQ(::unlink(window.served.file("new.txt").constData()), 0);
    }
}

TEST_F(FtpTransfersTest, TheLabelsDoNothing)
{
    window.addLocalFile("new.txt");
    window.selectRow(file);
    for (const char *name : {"lblSendFile", "lblReceiveFile"}) {
        QTest::mouseClick(&window.control<QLabel>(name), Qt::LeftButton);
        QTest::mouseDClick(&window.control<QLabel>(name), Qt::LeftButton);
        EXPECT_FALSE(window.session().StillExecuting()) << name;
    }
    EXPECT_EQ(window.frame.dialogs.seen().size(), 0);
    EXPECT_EQ(window.probe.states(), QString());
}

/// Where an ordinary user may not write.
TEST_F(FtpTransfersTest, AtTheRootAFileIsReceivedIntoTheRoot)
{
    const AsUser user(window.local.path());
    window.control<DirListBox>("dirLocalDir").setPath(QStringLiteral("/"));
    window.selectRow(file);
    window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("5 Access is denied."));
    window.click("cmdreceive");
    EXPECT_EQ(window.executed.texts(), QStringList{QStringLiteral("GET \"a b.txt\" \"/\\a b.txt\"")});
}

TEST_F(FtpTransfersTest, WithoutAFileThereIsNothingToSend)
{
    expectNothingToSend();
    window.click("cmdsend");
    window.addLocalFile("  ");
    expectNothingToSend();
    window.click("imgSendFile");
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(window.probe.states(), QString());
}

TEST_F(FtpTransfersTest, AsksBeforeItOverwritesOnTheServer)
{
    window.addLocalFile("a b.txt", "newer");
    expectOverwrite(file).press(QMessageBox::No);
    window.click("cmdsend");
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(lastAnswer, QStringLiteral("7"));
    EXPECT_EQ(served(file), "from the server");
    expectOverwrite(file).press(QMessageBox::Yes);
    window.click("cmdsend");
    EXPECT_EQ(window.commands(), put(file));
    EXPECT_EQ(served(file), "newer");
}

TEST_F(FtpTransfersTest, AsksForEachRowOfThatName)
{
    window.logOn({file, QStringLiteral("c"), file});
    window.addLocalFile("a b.txt");
    for (int i = 0; i < 2; ++i)
        expectOverwrite(file).press(QMessageBox::Yes);
    window.click("cmdsend");
    EXPECT_EQ(window.commands(), put(file));
}

TEST_F(FtpTransfersTest, ANoAfterAYesEndsTheSend)
{
    window.logOn({file, QStringLiteral("c"), file, file});
    window.addLocalFile("a b.txt", "newer");
    expectOverwrite(file).press(QMessageBox::Yes);
    expectOverwrite(file).press(QMessageBox::No);
    window.click("cmdsend");
    EXPECT_EQ(window.frame.dialogs.seen().size(), 2);
    EXPECT_EQ(window.probe.states(), QString());
    EXPECT_EQ(served(file), "from the server");
}

TEST_F(FtpTransfersTest, AFolderOfThatNameOrAnotherCaseIsNotTheFile)
{
    window.server.reply("STOR", "226 Done.");
    for (const char *name : {"pub", "A b.txt"}) {
        window.addLocalFile(name);
        window.forget();
        window.click("cmdsend");
        EXPECT_EQ(window.commands(), put(QString::fromLatin1(name)));
    }
}

TEST_F(FtpTransfersTest, TheStatusFollowsTheSession)
{
    window.addLocalFile("new.txt");
    QString during;
    window.server.during("STOR", [&] { during = window.status(); });
    window.server.hold("MLSD");
    const WindowLog log(window.form(), window.control<QLabel>("lblStatus"));
    QTest::mouseClick(&window.control<QWidget>("cmdsend"), Qt::LeftButton);
    EXPECT_EQ(during, QStringLiteral("Request Sent"));
    EXPECT_EQ(log.statusTexts(),
              QStringLiteral("Sending Request|Request Sent|Receiving Response|Response Received|Connected"));
    EXPECT_TRUE(window.probe.states().endsWith(QStringLiteral("5 6 7 8 12")));
    EXPECT_EQ(window.beeps, 1);
}

TEST_F(FtpTransfersTest, BeforeAnyLogOnASendReachesTheSession)
{
    window.close();
    window.open();
    window.forget();
    window.control<DirListBox>("dirLocalDir").setPath(window.local.path());
    window.addLocalFile("new.txt");
    for (int i = 0; i < 2; ++i) // for the file and for the list behind it
        window.frame.dialogs.expectBox(
            QStringLiteral("Error"),
            QStringLiteral("12030 The connection with the server has been terminated."));
    window.click("cmdsend");
    EXPECT_EQ(window.probe.states(), QStringLiteral("11:12030 11:12030"));
    EXPECT_EQ(window.server.connections(), 1); // that of the window before
    EXPECT_FALSE(window.isEnabled("cmdsend"));
}

TEST_F(FtpTransfersTest, BeforeAnyLogOnAReceiveReachesTheSession)
{
    window.close();
    window.open();
    window.forget();
    window.control<DirListBox>("dirLocalDir").setPath(window.local.path());
    QString during;
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Error"));
        EXPECT_EQ(box.text(), QStringLiteral("12030 The connection with the server has been terminated."));
        during = window.status();
        box.accept();
    });
    window.control<QLabel>("lblStatus").setText(QStringLiteral("before"));
    window.click("cmdreceive");
    EXPECT_EQ(window.probe.states(), QStringLiteral("11:12030"));
    EXPECT_EQ(during, QStringLiteral("Not Connected"));
    EXPECT_EQ(window.status(), QStringLiteral("Connected")); // the flow goes on
    EXPECT_FALSE(window.isEnabled("cmdreceive"));
    EXPECT_TRUE(window.isEnabled("cmdLogOn"));
    EXPECT_EQ(window.control<FileListBox>("filLocalFile").ListCount(), 0);
}

/// The session logs on again as before; the buttons stay as they are.
TEST_F(FtpTransfersTest, AfterALogOffTheSendImageSends)
{
    window.addLocalFile("new.txt", "from this computer");
    window.click("cmdLogOff");
    window.forget();
    window.click("imgSendFile");
    EXPECT_EQ(window.commands(), QStringLiteral("USER tester|PASS secret|") + put(QStringLiteral("new.txt")));
    EXPECT_EQ(served(QStringLiteral("new.txt")), "from this computer");
    EXPECT_EQ(window.rows(), QStringList({QStringLiteral("pub/"), file}));
    for (const char *name : {"cmdsend", "cmdreceive", "lstRemoteFile", "cmdLogOff"})
        EXPECT_FALSE(window.isEnabled(name)) << name;
    EXPECT_TRUE(window.isEnabled("cmdLogOn"));
}

/// The list is empty then.
TEST_F(FtpTransfersTest, AfterALogOffTheReceiveImageSendsEmptyNames)
{
    window.selectRow(file);
    window.click("cmdLogOff");
    window.forget();
    window.click("imgReceiveFile");
    EXPECT_EQ(window.probe.states(), QStringLiteral("11:87"));
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(window.server.openConnections(), 0);
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_FALSE(window.isEnabled("cmdreceive"));
}

TEST_F(FtpTransfersTest, ReceivesTheSelectedFile)
{
    for (const char *name : {"cmdreceive", "imgReceiveFile"}) {
        window.forget();
        window.selectRow(file);
        window.click(name);
        EXPECT_EQ(window.commands(), got) << name;
        EXPECT_EQ(window.control<FileListBox>("filLocalFile").List(0), file);
        EXPECT_EQ(received(file), "from the server");
        EXPECT_EQ(window.status(), QStringLiteral("Connected"));
        EXPECT_EQ(window.beeps, 1);
        ASSERT_EQ(::unlink(window.local.file("a b.txt").constData()), 0);
        window.control<FileListBox>("filLocalFile").Refresh();
    }
}

TEST_F(FtpTransfersTest, AFolderIsNotReceived)
{
    window.frame.dialogs
        .expectBox(QStringLiteral("Error"), QStringLiteral("pub/ is a folder and cannot be sent."))
        .icon(QMessageBox::Critical)
        .buttons(QMessageBox::Ok);
    window.selectRow(QStringLiteral("pub/"));
    window.click("cmdreceive");
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(window.probe.states(), QString());
}

TEST_F(FtpTransfersTest, AReceiveNeverOverwrites)
{
    window.logOn({file, QStringLiteral(".hidden")});
    for (const char *name : {"a b.txt", ".hidden"}) {
        window.addLocalFile(name);
        window.selectRow(QString::fromLatin1(name));
        window.frame.dialogs
            .expectBox(QStringLiteral("Recieve"), QStringLiteral("File ") + QString::fromLatin1(name) +
                                                      QStringLiteral(" already exists."))
            .icon(QMessageBox::Information)
            .buttons(QMessageBox::Ok);
        window.click("cmdreceive");
    }
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(window.probe.states(), QString());
}

TEST_F(FtpTransfersTest, AFileOfAnotherCaseIsReceived)
{
    window.addLocalFile("A b.txt");
    window.selectRow(file);
    window.click("cmdreceive");
    EXPECT_EQ(window.commands(), got);
    EXPECT_EQ(received(file), "from the server");
}

/// The session refuses them, which is shown.
TEST_F(FtpTransfersTest, NoNameLeadsOutOfTheLocalFolder)
{
    const QStringList names = {QStringLiteral("../x"), QStringLiteral("/etc/quill-x"),
                               QStringLiteral("a/../../x"), QStringLiteral(".."), QStringLiteral(".")};
    window.local.addFolder("inner");
    window.control<DirListBox>("dirLocalDir").setPath(window.local.path() + QStringLiteral("/inner"));
    window.logOn(names);
    for (const QString &name : names) {
        window.selectRow(name);
        window.frame.dialogs
            .expectBox(
                QStringLiteral("Error"),
                QStringLiteral("123 The filename, directory name, or volume label syntax is incorrect."))
            .icon(QMessageBox::Critical);
        window.click("cmdreceive");
        EXPECT_EQ(window.executed.texts().last(),
                  QStringLiteral("GET \"%1\" \"%2/inner\\%1\"").arg(name, window.local.path()));
        EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    }
    EXPECT_EQ(window.server.commands(), QByteArrayList());
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    EXPECT_EQ(QDir(window.local.path()).entryList(all), QStringList{QStringLiteral("inner")});
    EXPECT_EQ(QDir(window.local.path() + QStringLiteral("/inner")).entryList(all), QStringList());
    EXPECT_NE(::access("/etc/quill-x", F_OK), 0);
}

/// The session refuses it, which nobody sees.
TEST_F(FtpTransfersTest, ANameWithANulIsNotReceived)
{
    window.server.setListing(QByteArray("type=file; a b.txt\0.exe\r\n", 25));
    window.click("cmdUpFolder");
    window.forget();
    window.remote().setListIndex(0);
    window.click("cmdreceive");
    EXPECT_EQ(window.probe.states(), QStringLiteral("11:87"));
    EXPECT_EQ(window.server.commands(), QByteArrayList());
    EXPECT_EQ(window.control<FileListBox>("filLocalFile").ListCount(), 0);
}

/// The session refuses them, which nobody sees.
TEST_F(FtpTransfersTest, WithoutARowEmptyNamesGoOut)
{
    window.control<QLabel>("lblStatus").setText(QStringLiteral("before"));
    window.click("cmdreceive");
    EXPECT_EQ(window.executed.texts(),
              QStringList{QStringLiteral("GET \"\" \"%1\\\"").arg(window.local.path())});
    EXPECT_EQ(window.probe.states(), QStringLiteral("11:87"));
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
}

TEST_F(FtpTransfersTest, ARefusedTransferIsReported)
{
    window.server.reply("RETR", "550 No such file.");
    window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("12003 550 No such file."));
    window.selectRow(file);
    window.click("cmdreceive");
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_TRUE(window.isEnabled("cmdreceive"));
    EXPECT_EQ(window.control<FileListBox>("filLocalFile").ListCount(), 0);
}

/// The list is refreshed all the same.
TEST_F(FtpTransfersTest, ARefusedSendIsReported)
{
    window.server.reply("STOR", "553 <b>Not</b> allowed.");
    window.server.setListing("type=file; other\r\n");
    window.addLocalFile("new.txt");
    window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("12003 553 <b>Not</b> allowed."))
        .icon(QMessageBox::Critical)
        .buttons(QMessageBox::Ok);
    const WindowLog log(window.form(), window.control<QLabel>("lblStatus"));
    window.click("cmdsend");
    EXPECT_EQ(window.commands(), put(QStringLiteral("new.txt")));
    EXPECT_EQ(window.rows(), QStringList{QStringLiteral("other")});
    EXPECT_TRUE(log.entries().contains(QStringLiteral("Connected")));
    EXPECT_TRUE(window.isEnabled("cmdsend"));
    EXPECT_EQ(window.beeps, 1); // of the list
    EXPECT_NE(::access(window.served.file("new.txt").constData(), F_OK), 0);
}

TEST_F(FtpTransfersTest, AFileDroppedOnTheServersListIsSent)
{
    window.addLocalFile("new.txt");
    Q_EMIT window.remote().findChild<RowDrop *>()->Dropped();
    window.settle();
    EXPECT_EQ(window.commands(), put(QStringLiteral("new.txt")));
    EXPECT_TRUE(window.control<FileListBox>("filLocalFile").dragEnabled());
}

TEST_F(FtpTransfersTest, ARowDroppedOnTheLocalFilesIsReceived)
{
    window.selectRow(file);
    Q_EMIT window.control<FileListBox>("filLocalFile").findChild<RowDrop *>()->Dropped();
    EXPECT_EQ(window.commands(), got);
    EXPECT_TRUE(window.remote().dragEnabled());
}

/// From elsewhere nothing can be dropped.
TEST_F(FtpTransfersTest, AForeignDragIsNotTaken)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(window.local.path())});
    data.setData(QStringLiteral("application/x-qabstractitemmodeldatalist"), "x");
    for (QAbstractItemView *list :
         {static_cast<QAbstractItemView *>(&window.remote()),
          static_cast<QAbstractItemView *>(&window.control<FileListBox>("filLocalFile"))}) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list->viewport(), &enter);
        EXPECT_FALSE(enter.isAccepted());
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list->viewport(), &drop);
        EXPECT_FALSE(drop.isAccepted());
    }
    QCoreApplication::sendPostedEvents(); // among which a drop would come
    EXPECT_EQ(window.probe.states(), QString());
    EXPECT_EQ(window.rows().size(), 2);
}

/// A name with a line end cannot be sent, which nobody sees.
TEST_P(FtpLocalNameTest, IsSentAsItIs)
{
    FtpWindow window;
    window.logOn();
    window.addLocalFile(GetParam().bytes, "content");
    const QString name = GetParam().text();
    const bool canBeSent = !name.contains(u'\n');
    window.click("cmdsend");
    EXPECT_EQ(window.commands(),
              canBeSent ? QStringLiteral("STOR ") + name + QStringLiteral("|MLSD") : QStringLiteral("MLSD"));
    EXPECT_EQ(window.probe.states().startsWith(QStringLiteral("11:87 ")), !canBeSent);
    if (canBeSent) {
        EXPECT_EQ(Files::read(FileNames::fromBytes(window.served.file(GetParam().bytes))), "content");
        EXPECT_EQ(window.rows(), QStringList{name});
    }
}

INSTANTIATE_TEST_SUITE_P(Names, FtpLocalNameTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
