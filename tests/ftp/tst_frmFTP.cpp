#include "Colors.h"
#include "DirListBox.h"
#include "DriveListBox.h"
#include "ErrorReports.h"
#include "EventGate.h"
#include "FileListBox.h"
#include "Forms.h"
#include "FtpWindow.h"
#include "Globals.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "RowName.h"
#include "StandInTool.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

struct FtpWindowTest : testing::Test
{
    FtpWindow window;

    QString text(const char *name) const { return window.control<QLineEdit>(name).text(); }
    QStringList itemsOf(int menu) const
    {
        QStringList items;
        for (const QAction *item : window.form().menus().at(menu)->actions())
            items << item->objectName() + u' ' + item->text();
        return items;
    }
    QString path() const { return window.control<DirListBox>("dirLocalDir").Path(); }
};

struct ControlCase
{
    const char *name;
    const char *kind;    // its class
    const char *caption; // of a frame, label or button
    const char *toolTip;
    const char *spoken;
    bool isEnabled = true;
};

struct FtpWindowControlTest : testing::TestWithParam<ControlCase>
{};

constexpr ControlCase controls[] = {
    {"fraLoginInfo", "QGroupBox", "Login Options", "", "Login Options"},
    {"Label1", "QLabel", "Account Profile:", "", "Account Profile:"},
    {"txtAccount", "QLineEdit", "", "FTP Server Name", "Account Profile"},
    {"lblServer", "QLabel", "Server:", "", "Server:"},
    {"txtServer", "QLineEdit", "", "FTP Server Name", "Server"},
    {"lblUserName", "QLabel", "User Name:", "", "User Name:"},
    {"txtUserName", "QLineEdit", "", "User Name", "User Name"},
    {"lblPassword", "QLabel", "Password:", "", "Password:"},
    {"txtPassword", "QLineEdit", "", "Password", "Password"},
    {"cmdLogOn", "QPushButton", "", "Connect", "Connect"},
    {"cmdLogOff", "QPushButton", "", "Disconnect", "Disconnect", false},
    {"cmdAccounts", "QPushButton", "", "Saved Account Profiles", "Saved Account Profiles"},
    {"fraStatus", "QGroupBox", "Status", "", "Status"},
    {"lblStatus", "QLabel", "Not Connected", "Connection Status", ""},
    {"fraLocalFiles", "QGroupBox", "Local Files", "", "Local Files"},
    {"drvLocalDrive", "DriveListBox", "", "Local Drive List", "Local Drive List"},
    {"dirLocalDir", "DirListBox", "", "Local Directory", "Local Directory"},
    {"filLocalFile", "FileListBox", "", "Local Files", "Local Files"},
    {"fraRemoteFiles", "QGroupBox", "Remote Files", "", "Remote Files"},
    {"lstRemoteFile", "ListBox", "", "Remote Files", "Remote Files", false},
    {"cmdNewFolder", "QPushButton", "", "New Folder", "New Folder", false},
    {"cmdUpFolder", "QPushButton", "", "Move Up One Folder", "Move Up One Folder", false},
    {"cmdDelete", "QPushButton", "", "Delete", "Delete", false},
    {"cmdSize", "QPushButton", "", "Get File Size Information", "Get File Size Information", false},
    {"cmdRename", "QPushButton", "", "Rename File", "Rename File", false},
    {"fraControls", "QGroupBox", "Controls", "", "Controls"},
    {"cmdsend", "QPushButton", "", "Send Selected File", "Send Selected File"},
    {"imgSendFile", "QToolButton", "", "Send Selected File", "Send Selected File"},
    {"lblSendFile", "QLabel", "Send File", "", "Send File"},
    {"cmdreceive", "QPushButton", "", "Receive Selected File", "Receive Selected File"},
    {"imgReceiveFile", "QToolButton", "", "Recieve Selected File", "Recieve Selected File"},
    {"lblReceiveFile", "QLabel", "Receive File", "", "Receive File"},
};

QString captionOf(const QWidget &control)
{
    if (const auto *frame = qobject_cast<const QGroupBox *>(&control))
        return frame->title();
    if (const auto *label = qobject_cast<const QLabel *>(&control))
        return label->text();
    const auto *button = qobject_cast<const QAbstractButton *>(&control);
    return button ? button->text() : QString();
}

} // namespace

TEST_P(FtpWindowControlTest, IsAsDesigned)
{
    const FtpWindow window;
    const ControlCase &expected = GetParam();
    const QWidget &control = window.control<QWidget>(expected.name);
    EXPECT_TRUE(control.inherits(expected.kind));
    EXPECT_TRUE(control.isVisible());
    EXPECT_EQ(captionOf(control), QString::fromLatin1(expected.caption));
    EXPECT_EQ(control.toolTip(), QString::fromLatin1(expected.toolTip));
    EXPECT_EQ(control.accessibleName(), QString::fromLatin1(expected.spoken));
    EXPECT_EQ(control.isEnabled(), expected.isEnabled);
    if (const auto *button = qobject_cast<const QAbstractButton *>(&control)) {
        EXPECT_FALSE(button->icon().isNull());
    }
    if (const auto *label = qobject_cast<const QLabel *>(&control)) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, FtpWindowControlTest, testing::ValuesIn(controls), RowName());

TEST_F(FtpWindowTest, TakesTheFirstProfile)
{
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-FTP"));
    EXPECT_EQ(text("txtAccount"), QStringLiteral("Mirror"));
    EXPECT_EQ(text("txtServer"), window.server.address());
    EXPECT_EQ(text("txtUserName"), QStringLiteral("tester"));
    EXPECT_EQ(text("txtPassword"), QStringLiteral("secret"));
    EXPECT_EQ(window.session().RemoteHost(), QString());
    EXPECT_EQ(window.server.connections(), 0);
    EXPECT_EQ(window.probe.states(), QString());
}

TEST_F(FtpWindowTest, ThePasswordIsShownAsAsterisks)
{
    EXPECT_EQ(window.control<QLineEdit>("txtPassword").displayText(), QStringLiteral("******"));
    EXPECT_EQ(text("txtPassword"), QStringLiteral("secret"));
}

TEST_F(FtpWindowTest, FramesHoldTheirControls)
{
    const auto holds = [this](const char *frame, std::initializer_list<const char *> names) {
        for (const char *name : names) {
            EXPECT_TRUE(window.control<QGroupBox>(frame).isAncestorOf(&window.control<QWidget>(name)))
                << name;
        }
    };
    holds("fraLoginInfo",
          {"txtAccount", "txtServer", "txtUserName", "txtPassword", "cmdLogOn", "cmdLogOff", "cmdAccounts"});
    holds("fraStatus", {"lblStatus"});
    holds("fraLocalFiles", {"drvLocalDrive", "dirLocalDir", "filLocalFile"});
    holds("fraRemoteFiles",
          {"lstRemoteFile", "cmdNewFolder", "cmdUpFolder", "cmdDelete", "cmdSize", "cmdRename"});
    holds("fraControls",
          {"cmdsend", "imgSendFile", "lblSendFile", "cmdreceive", "imgReceiveFile", "lblReceiveFile"});
}

TEST_F(FtpWindowTest, TabFollowsThePanes)
{
    window.logOn();
    QStringList order;
    QTest::mouseClick(&window.control<QLineEdit>("txtAccount"), Qt::LeftButton);
    for (int i = 0; i < 17; ++i) {
        order << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              QStringLiteral("txtAccount txtServer txtUserName txtPassword cmdLogOff cmdAccounts "
                             "drvLocalDrive dirLocalDir filLocalFile cmdsend cmdreceive lstRemoteFile "
                             "cmdNewFolder cmdUpFolder cmdDelete cmdSize cmdRename"));
}

TEST_F(FtpWindowTest, TheListsTakeWhatALargerWindowGives)
{
    const QSize local = window.control<QWidget>("filLocalFile").size();
    const QSize remote = window.remote().size();
    const int login = window.control<QWidget>("fraLoginInfo").height();
    QWidget *outer = window.form().parentWidget();
    outer->resize(outer->size() + QSize(200, 160));
    QCoreApplication::processEvents();
    EXPECT_GT(window.control<QWidget>("filLocalFile").height(), local.height() + 80);
    EXPECT_GT(window.control<QWidget>("filLocalFile").width(), local.width() + 80);
    EXPECT_GT(window.remote().height(), remote.height() + 140);
    EXPECT_GT(window.remote().width(), remote.width() + 80);
    EXPECT_EQ(window.control<QWidget>("fraLoginInfo").height(), login);
}

TEST_F(FtpWindowTest, TheListsKeepFourRowsInASmallWindow)
{
    window.local.addFile("file");
    window.control<DirListBox>("dirLocalDir").setPath(window.local.path());
    window.logOn({QStringLiteral("row")});
    window.form().parentWidget()->resize(1, 1);
    QCoreApplication::processEvents();
    for (const char *name : {"dirLocalDir", "filLocalFile", "lstRemoteFile"}) {
        const auto &list = window.control<QListView>(name);
        const int row = list.visualRect(list.model()->index(0, 0)).height();
        EXPECT_GE(list.viewport()->height(), 4 * row) << name;
    }
}

TEST_F(FtpWindowTest, AStatusOfAnyLengthLeavesTheLayout)
{
    const QRect before = window.remote().geometry();
    for (int state = 1; state <= 10; ++state) {
        Q_EMIT window.session().StateChanged(state);
        QCoreApplication::processEvents();
        EXPECT_EQ(window.remote().geometry(), before) << state;
    }
}

TEST_F(FtpWindowTest, HasTheStandardToolMenu)
{
    ASSERT_EQ(window.form().menus().size(), 2);
    EXPECT_EQ(window.form().menus().at(0)->menuAction()->objectName(), QStringLiteral("mnufile"));
    EXPECT_EQ(window.form().menus().at(1)->menuAction()->objectName(), QStringLiteral("mnuwindow"));
    EXPECT_EQ(itemsOf(0), QStringList({QStringLiteral("mnuNewQuillWord New Quill&Word Document"),
                                       QStringLiteral("mnuclose &Close"),
                                       QStringLiteral("mnuexittools E&xit Quill-Office Tools")}));
    EXPECT_EQ(itemsOf(1), QStringList({QStringLiteral("mnuCascade &Cascade"),
                                       QStringLiteral("mnuTileHorizontal Tile &Horizontal"),
                                       QStringLiteral("mnuTileVertical Tile &Vertical"),
                                       QStringLiteral("mnuArrangeIcons Arrange &Icons")}));
}

TEST_F(FtpWindowTest, ItsMenusCallTheFrame)
{
    for (const char *item : {"mnuNewQuillWord", "mnuCascade", "mnuTileHorizontal", "mnuTileVertical",
                             "mnuArrangeIcons", "mnuexittools"})
        window.form().findChild<QAction *>(QString::fromLatin1(item))->trigger();
    EXPECT_EQ(window.frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,mnuFileExit_Click"));
}

TEST_F(FtpWindowTest, OpenedTwiceItIsTheSameWindow)
{
    const frmFTP *first = &window.form();
    (new StandInTool(QStringLiteral("frmOther")))->showModeless();
    window.open();
    EXPECT_EQ(&window.form(), first);
    EXPECT_EQ(&window.frame.active(), first);
}

TEST_F(FtpWindowTest, ClosedAndOpenedAgainItReadsTheFile)
{
    window.close();
    EXPECT_FALSE(window.isOpen());
    window.programFolder.addFile("ftpprof.dat", "0,Other,other.example,,pw,\r\n");
    window.open();
    EXPECT_EQ(text("txtAccount"), QStringLiteral("Other"));
    EXPECT_EQ(text("txtUserName"), QString());
}

TEST_F(FtpWindowTest, AMissingProfileFileIsAnErrorOfTheLoad)
{
    window.close();
    ASSERT_EQ(::unlink(window.programFolder.file("ftpprof.dat").constData()), 0);
    const QPointer<Form> form = &Forms::refer<frmFTP>();
    try {
        form->showModeless();
        ADD_FAILURE() << "it was opened";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), ErrorNumber::FileNotFound);
        EXPECT_EQ(error.description(), QStringLiteral("File not found"));
    }
    EXPECT_FALSE(form && form->isVisible());
}

/// The frame's toolbar ignores errors, its menu does not; a load that has failed is none.
TEST_F(FtpWindowTest, AMissingProfileFileIsSilentInTheToolbarAndThenFatalInTheMenu)
{
    window.close();
    ASSERT_EQ(::unlink(window.programFolder.file("ftpprof.dat").constData()), 0);
    for (int i = 0; i < 2; ++i) {
        ignoreErrors([this] { window.open(); });
        EXPECT_FALSE(window.isOpen());
        EXPECT_TRUE(Forms::named(QStringLiteral("frmFTP")).isEmpty());
    }
    QAction item;
    on(&item, &QAction::triggered, &item, [this] { window.open(); });
    window.frame.fatal.expect(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
    item.trigger();
}

TEST_F(FtpWindowTest, OnceThereIsAProfileFileTheWindowOpens)
{
    window.close();
    ASSERT_EQ(::unlink(window.programFolder.file("ftpprof.dat").constData()), 0);
    ignoreErrors([this] { window.open(); });
    window.programFolder.addFile("ftpprof.dat", "0,Other,other.example,,pw,\r\n");
    window.open();
    EXPECT_TRUE(window.form().isVisible());
    EXPECT_EQ(text("txtAccount"), QStringLiteral("Other"));
}

/// As where the first record has no fields.
TEST_F(FtpWindowTest, AnEmptyProfileFileLeavesTheBoxesEmpty)
{
    for (const char *content : {"", "\r\n", "0"}) {
        window.close();
        window.programFolder.addFile("ftpprof.dat", content);
        window.open();
        for (const char *name : {"txtAccount", "txtServer", "txtUserName", "txtPassword"})
            EXPECT_EQ(text(name), QString()) << name;
        EXPECT_TRUE(window.isEnabled("cmdLogOn"));
    }
    window.frame.dialogs.expectBox(QStringLiteral("LogOn Failure"),
                                   QStringLiteral("You must specify a server and password."));
    window.click("cmdLogOn");
}

TEST_F(FtpWindowTest, IconsFollowThePalette)
{
    auto &button = window.control<QAbstractButton>("cmdUpFolder");
    button.setEnabled(true);
    const auto darkest = [&] {
        const QImage image = button.icon().pixmap(22, 22).toImage();
        QColor found = Qt::white;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                const QColor color = image.pixelColor(x, y);
                if (color.alpha() > 100 && color.lightnessF() < found.lightnessF())
                    found = color;
            }
        }
        return found.lightnessF();
    };
    EXPECT_LT(darkest(), 0.3);
    QApplication::setPalette(QColor(30, 30, 30));
    QCoreApplication::processEvents();
    EXPECT_GT(darkest(), 0.5);
}

TEST_F(FtpWindowTest, TheLocalPanesFollowTheDrive)
{
    auto &drive = window.control<DriveListBox>("drvLocalDrive");
    const int root = drive.findData(QStringLiteral("/"));
    ASSERT_GE(root, 0);
    drive.setCurrentIndex(root);
    Q_EMIT drive.activated(root);
    EXPECT_EQ(path(), QStringLiteral("/"));
    EXPECT_EQ(window.control<FileListBox>("filLocalFile").Path(), QStringLiteral("/"));
}

TEST_F(FtpWindowTest, ADriveThatDoesNotOpenLeavesThePanes)
{
    auto &drive = window.control<DriveListBox>("drvLocalDrive");
    drive.addItem(QStringLiteral("gone"), window.local.path() + QStringLiteral("/absent"));
    drive.setCurrentIndex(drive.count() - 1);
    Q_EMIT drive.activated(drive.count() - 1);
    EXPECT_EQ(path(), window.local.path());
    EXPECT_EQ(window.control<FileListBox>("filLocalFile").Path(), window.local.path());
}

TEST_F(FtpWindowTest, TheFileListFollowsTheFolder)
{
    window.local.addFolder("sub");
    window.local.addFile("sub/.hidden");
    window.control<DirListBox>("dirLocalDir").setPath(window.local.path() + QStringLiteral("/sub"));
    const auto &files = window.control<FileListBox>("filLocalFile");
    EXPECT_EQ(files.Path(), window.local.path() + QStringLiteral("/sub"));
    ASSERT_EQ(files.ListCount(), 1);
    EXPECT_EQ(files.List(0), QStringLiteral(".hidden"));
}

TEST_F(FtpWindowTest, AFolderThatIsGoneLeavesTheFileList)
{
    window.local.addFolder("sub");
    window.local.addFile("sub/file");
    auto &folders = window.control<DirListBox>("dirLocalDir");
    const auto &files = window.control<FileListBox>("filLocalFile");
    folders.setPath(window.local.path() + QStringLiteral("/sub"));
    ASSERT_EQ(::unlink(window.local.file("sub/file").constData()), 0);
    ASSERT_EQ(::rmdir(window.local.file("sub").constData()), 0);
    Q_EMIT folders.Change();
    EXPECT_EQ(files.Path(), window.local.path() + QStringLiteral("/sub"));
    EXPECT_EQ(files.ListCount(), 1);
}

TEST_F(FtpWindowTest, ADoubleClickOpensALocalFolder)
{
    window.local.addFolder("sub");
    window.local.addFile("sub/file");
    auto &folders = window.control<DirListBox>("dirLocalDir");
    folders.setPath(QStringLiteral("/"));
    folders.setPath(window.local.path());
    const QModelIndex below = folders.model()->index(folders.currentIndex().row() + 1, 0);
    folders.scrollTo(below);
    const QPoint place = folders.visualRect(below).center();
    QTest::mouseClick(folders.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(folders.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(path(), window.local.path() + QStringLiteral("/sub"));
    EXPECT_EQ(window.control<FileListBox>("filLocalFile").Path(), path());
    EXPECT_EQ(window.control<FileListBox>("filLocalFile").List(0), QStringLiteral("file"));
}

TEST_F(FtpWindowTest, TheRefreshKeyReadsTheLocalFilesAgain)
{
    auto &files = window.control<FileListBox>("filLocalFile");
    const int before = files.ListCount();
    window.local.addFile("new");
    files.setFocus();
    QTest::keyClick(&files, Qt::Key_F5);
    EXPECT_EQ(files.ListCount(), before + 1);
}

TEST_F(FtpWindowTest, TheProfilesOpenAsAModalWindow)
{
    bool isModal = false;
    window.frame.dialogs.expectWindow<Form>(QStringLiteral("frmFTPAccounts"), [&](Form &profiles) {
        isModal = profiles.isModal();
        profiles.unload();
    });
    window.click("cmdAccounts");
    EXPECT_TRUE(isModal);
}
