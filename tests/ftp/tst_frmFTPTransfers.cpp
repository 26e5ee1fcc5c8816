#include "DirListBox.h"
#include "FileListBox.h"
#include "FtpWindow.h"
#include "Globals.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "RowDrop.h"
#include "ShownText.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

const QString file = QStringLiteral("a b.txt");

struct FtpTransfersTest : testing::Test
{
    FtpWindow window;

    FtpTransfersTest() { window.logOn({QStringLiteral("pub/"), file}); }

    QString put(const QString &name) const
    {
        return QStringLiteral("PUT \"") + window.local.path() + u'\\' + name + QStringLiteral("\" \"") +
               name + u'"';
    }
    QString get(const QString &name) const
    {
        return QStringLiteral("GET \"") + name + QStringLiteral("\" \"") + window.local.path() + u'\\' +
               name + u'"';
    }
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
    window.addLocalFile("new.txt");
    for (const char *name : {"cmdsend", "imgSendFile"}) {
        StandInSession::calls.clear();
        window.beeps = 0;
        window.click(name);
        EXPECT_EQ(window.commands(), put(QStringLiteral("new.txt")) + QStringLiteral("|DIR")) << name;
        EXPECT_EQ(window.beeps, 2);
        EXPECT_EQ(window.rows(), QStringList({QStringLiteral("pub/"), file}));
    }
}

TEST_F(FtpTransfersTest, AtTheRootTheNameIsJoinedByABackslashToo)
{
    window.control<DirListBox>("dirLocalDir").setPath(QStringLiteral("/"));
    window.selectRow(file);
    window.click("cmdreceive");
    EXPECT_EQ(window.commands(), QStringLiteral("GET \"a b.txt\" \"/\\a b.txt\""));
}

TEST_F(FtpTransfersTest, WithoutAFileThereIsNothingToSend)
{
    expectNothingToSend();
    window.click("cmdsend");
    window.addLocalFile("  ");
    expectNothingToSend();
    window.click("imgSendFile");
    EXPECT_EQ(window.commands(), QString());
}

TEST_F(FtpTransfersTest, AsksBeforeItOverwritesOnTheServer)
{
    window.addLocalFile("a b.txt");
    expectOverwrite(file).press(QMessageBox::No);
    window.click("cmdsend");
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(lastAnswer, QStringLiteral("7"));
    expectOverwrite(file).press(QMessageBox::Yes);
    window.click("cmdsend");
    EXPECT_EQ(window.commands(), put(file) + QStringLiteral("|DIR"));
}

TEST_F(FtpTransfersTest, AsksForEachRowOfThatName)
{
    window.logOn({file, QStringLiteral("c"), file});
    window.addLocalFile("a b.txt");
    for (int i = 0; i < 2; ++i)
        expectOverwrite(file).press(QMessageBox::Yes);
    window.click("cmdsend");
    EXPECT_EQ(window.commands(), put(file) + QStringLiteral("|DIR"));
}

TEST_F(FtpTransfersTest, AFolderOfThatNameOrAnotherCaseIsNotTheFile)
{
    for (const char *name : {"pub", "A b.txt"}) {
        window.addLocalFile(name);
        StandInSession::calls.clear();
        window.click("cmdsend");
        EXPECT_EQ(window.commands(), put(QString::fromLatin1(name)) + QStringLiteral("|DIR"));
    }
}

TEST_F(FtpTransfersTest, TheStatusFollowsTheSession)
{
    window.addLocalFile("new.txt");
    QString during;
    window.session().during(QStringLiteral("PUT"), [&] { during = window.status(); });
    window.session().hold(QStringLiteral("DIR"));
    QTest::mouseClick(&window.control<QWidget>("cmdsend"), Qt::LeftButton);
    EXPECT_EQ(during, QStringLiteral("Response Received"));
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_EQ(window.beeps, 1);
}

TEST_F(FtpTransfersTest, BeforeAnyLogOnASendReachesTheSession)
{
    window.close();
    window.open();
    window.control<DirListBox>("dirLocalDir").setPath(window.local.path());
    window.addLocalFile("new.txt");
    window.session().refuse(QStringLiteral("PUT"), 12030, QStringLiteral("no server"));
    window.session().refuse(QStringLiteral("DIR"), 12030, QStringLiteral("no server"));
    for (int i = 0; i < 2; ++i)
        window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("12030 no server"));
    window.click("cmdsend");
    EXPECT_EQ(window.commands(), put(QStringLiteral("new.txt")) + QStringLiteral("|DIR"));
    EXPECT_FALSE(window.isEnabled("cmdsend"));
}

TEST_F(FtpTransfersTest, ReceivesTheSelectedFile)
{
    for (const char *name : {"cmdreceive", "imgReceiveFile"}) {
        StandInSession::calls.clear();
        window.beeps = 0;
        window.selectRow(file);
        window.session().during(QStringLiteral("GET"), [this] { window.local.addFile("arrived"); });
        window.click(name);
        EXPECT_EQ(window.commands(), get(file)) << name;
        EXPECT_EQ(window.control<FileListBox>("filLocalFile").List(0), QStringLiteral("arrived"));
        EXPECT_EQ(window.status(), QStringLiteral("Connected"));
        EXPECT_EQ(window.beeps, 1);
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
}

TEST_F(FtpTransfersTest, AFileOfAnotherCaseIsReceived)
{
    window.addLocalFile("A b.txt");
    window.selectRow(file);
    window.click("cmdreceive");
    EXPECT_EQ(window.commands(), get(file));
}

TEST_F(FtpTransfersTest, WithoutARowEmptyNamesGoOut)
{
    window.click("cmdreceive");
    EXPECT_EQ(window.commands(), get({}));
}

TEST_F(FtpTransfersTest, ARefusedTransferIsReported)
{
    window.session().refuse(QStringLiteral("GET"), 12003, QStringLiteral("550 No such file."));
    window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("12003 550 No such file."));
    window.selectRow(file);
    window.click("cmdreceive");
    EXPECT_EQ(window.status(), QStringLiteral("Connected"));
    EXPECT_TRUE(window.isEnabled("cmdreceive"));
}

TEST_F(FtpTransfersTest, AFileDroppedOnTheServersListIsSent)
{
    window.addLocalFile("new.txt");
    Q_EMIT window.remote().findChild<RowDrop *>()->Dropped();
    EXPECT_EQ(window.commands(), put(QStringLiteral("new.txt")) + QStringLiteral("|DIR"));
    EXPECT_TRUE(window.control<FileListBox>("filLocalFile").dragEnabled());
}

TEST_F(FtpTransfersTest, ARowDroppedOnTheLocalFilesIsReceived)
{
    window.selectRow(file);
    Q_EMIT window.control<FileListBox>("filLocalFile").findChild<RowDrop *>()->Dropped();
    EXPECT_EQ(window.commands(), get(file));
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
    QTest::qWait(0);
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(window.rows().size(), 2);
}

TEST_P(FtpLocalNameTest, IsSentAsItIs)
{
    FtpWindow window;
    window.logOn();
    window.addLocalFile(GetParam().bytes);
    const QString name = GetParam().text();
    window.click("cmdsend");
    EXPECT_EQ(window.commands(), QStringLiteral("PUT \"") + window.local.path() + u'\\' + name +
                                     QStringLiteral("\" \"") + name + QStringLiteral("\"|DIR"));
}

INSTANTIATE_TEST_SUITE_P(Names, FtpLocalNameTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
