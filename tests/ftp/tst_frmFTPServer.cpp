#include "Files.h"
#include "FtpWindow.h"
#include "PrintQt.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

/// The window beside a server whose folder it changes.
struct FtpServerTest : testing::Test
{
    FtpWindow window;

    QString rows() const { return window.rows().join(u'|'); }
    QByteArray served(const char *name) const
    {
        return Files::read(window.served.path() + u'/' + QString::fromLatin1(name));
    }
};

} // namespace

TEST_F(FtpServerTest, WalksThroughTheFolders)
{
    window.served.addFolder("pub");
    window.served.addFile("pub/inner", "x");
    window.logOn();
    window.doubleClickRow(QStringLiteral("pub/"));
    EXPECT_EQ(rows(), QStringLiteral("inner"));
    window.click("cmdUpFolder");
    EXPECT_EQ(rows(), QStringLiteral("pub/"));
    EXPECT_EQ(window.beeps, 4);
}

TEST_F(FtpServerTest, ChangesTheFolder)
{
    window.served.addFile("one", "12345");
    window.logOn();
    window.frame.dialogs.expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
        .type(QStringLiteral("made here"));
    window.click("cmdNewFolder");
    EXPECT_EQ(rows(), QStringLiteral("made here/|one"));

    window.selectRow(QStringLiteral("made here/"));
    window.frame.dialogs
        .expectInput(QStringLiteral("Rename"), QStringLiteral("Enter new file name for made here/"))
        .type(QStringLiteral("other"));
    window.click("cmdRename");
    EXPECT_EQ(rows(), QStringLiteral("one|other/"));

    for (const char *row : {"other/", "one"}) {
        window.selectRow(QString::fromLatin1(row));
        window.frame.dialogs.expectBox(QStringLiteral("Delete"), QStringLiteral("Delete ") +
                                                                     QString::fromLatin1(row) +
                                                                     QStringLiteral(" ?"));
        window.click("cmdDelete");
    }
    EXPECT_EQ(rows(), QString());
}

TEST_F(FtpServerTest, ShowsASize)
{
    window.served.addFile("one", "12345");
    window.logOn();
    window.selectRow(QStringLiteral("one"));
    window.frame.dialogs.expectBox(QStringLiteral("Size"), QStringLiteral("The size of file one is 5 bytes"));
    window.click("cmdSize");
    EXPECT_EQ(rows(), QStringLiteral("one"));
}

TEST_F(FtpServerTest, ShowsASizeAbove4GiB)
{
    window.logOn({QStringLiteral("one")});
    window.server.reply("SIZE", "213 5368709120");
    window.selectRow(QStringLiteral("one"));
    window.frame.dialogs.expectBox(QStringLiteral("Size"),
                                   QStringLiteral("The size of file one is 5368709120 bytes"));
    window.click("cmdSize");
}

TEST_F(FtpServerTest, SendsAndReceives)
{
    window.served.addFile("there", "from the server");
    window.logOn();
    window.addLocalFile("here", "from this computer");
    window.click("cmdsend");
    EXPECT_EQ(rows(), QStringLiteral("here|there"));
    EXPECT_EQ(served("here"), "from this computer");
    window.selectRow(QStringLiteral("there"));
    window.click("cmdreceive");
    EXPECT_EQ(Files::read(window.local.path() + QStringLiteral("/there")), "from the server");
    window.selectLocalFile("there");
}

TEST_F(FtpServerTest, ARefusalIsShownAsPlainText)
{
    window.served.addFile("one", "x");
    window.logOn();
    window.server.reply("DELE", "550 <b>Not</b> allowed.");
    window.selectRow(QStringLiteral("one"));
    window.frame.dialogs.expectBox(QStringLiteral("Delete"), QStringLiteral("Delete one ?"));
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [](QMessageBox &box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Error"));
        EXPECT_EQ(box.text(), QStringLiteral("12003 550 <b>Not</b> allowed."));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        box.accept();
    });
    window.click("cmdDelete");
    EXPECT_EQ(rows(), QStringLiteral("one"));
}

TEST_F(FtpServerTest, AfterALostConnectionANewLogOnWorks)
{
    window.served.addFile("one", "x");
    window.logOn();
    window.server.dropBefore("SIZE");
    window.selectRow(QStringLiteral("one"));
    window.frame.dialogs.expectBox(
        QStringLiteral("Error"), QStringLiteral("12030 The connection with the server has been terminated."));
    window.click("cmdSize");
    EXPECT_TRUE(window.isEnabled("cmdLogOn"));
    EXPECT_FALSE(window.isEnabled("cmdSize"));
    window.click("cmdLogOn");
    EXPECT_TRUE(window.isEnabled("cmdSize"));
    EXPECT_EQ(window.server.connections(), 2);
}

/// Between two pieces of the response the window is alive, and the rows come into the list at once, of which
/// only those in sight are measured and drawn.
TEST_F(FtpServerTest, TwoHundredThousandRowsAreListed)
{
    constexpr int count = 200000;
    QByteArray listing;
    qsizetype length = 0; // of the response
    for (int i = 0; i < count; ++i) {
        const QByteArray name = "file number " + QByteArray::number(i);
        listing += "type=file;size=1; " + name + "\r\n";
        length += name.size() + 2;
    }
    window.logOn();
    window.server.setListing(listing);
    int turns = 0;
    std::function<void()> turn = [&] {
        if (window.remote().ListCount() == 0) {
            ++turns;
            QMetaObject::invokeMethod(&window.form(), turn, Qt::QueuedConnection);
        }
    };
    int insertions = 0;
    QObject::connect(window.remote().model(), &QAbstractItemModel::rowsInserted, &window.form(),
                     [&] { ++insertions; });
    window.whileListIsRead(turn);
    window.click("cmdUpFolder");
    EXPECT_EQ(turns, (length + 4095) / 4096);
    EXPECT_EQ(insertions, 1);
    EXPECT_EQ(window.remote().ListCount(), count);
    EXPECT_EQ(window.remote().List(count - 1), QStringLiteral("file number 199999"));
}
