#include "DropFiles.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ZipWindow.h"

#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

const QString prompt =
    QStringLiteral("Select a Folder and type file name (select a zip file to append the files)...");

struct frmZipTest : testing::Test
{
    ZipWindow window;
};

struct ZipControlCase
{
    const char *name;
    const char *kind;    // its class
    const char *caption; // of a label or button, or the text of a box
    const char *spoken;
};

struct frmZipControlTest : testing::TestWithParam<ZipControlCase>
{};

constexpr ZipControlCase zipControls[] = {
    {"Label2", "QLabel", "Selected Files to Zip", "Selected Files to Zip"},
    {"FileList1", "ListBox", "", "Selected Files to Zip"},
    {"cmdSingleFile", "QPushButton", "Select a &File to zip...", "Select a File to zip..."},
    {"txtzipfolder", "QLineEdit",
     "Select a Folder and type file name (select a zip file to append the files)...",
     "Destination File to Zip to"},
    {"cmdzipfolder", "QPushButton", "Select File &To Zip to ...", "Select File To Zip to ..."},
    {"chkEncrypt", "QCheckBox", "En&crypt (password )", "Encrypt (password )"},
    {"chkAddComment", "QCheckBox", "Add &Comment", "Add Comment"},
    {"chkDirectories", "QCheckBox", "&Store Directories", "Store Directories"},
    {"chkFolders", "QCheckBox", "&Store Folders", "Store Folders"},
    {"cmdRecurse", "QPushButton", "&Recurse...", "Recurse..."},
    {"cmdCreateZip", "QPushButton", "Create &Zip File", "Create Zip File"},
    {"Label1", "QLabel", "Progress Window", "Progress Window"},
    {"lstLog", "ListBox", "", "Progress Window"},
    {"sbrMain", "QStatusBar", "", ""},
};

QString zipCaptionOf(const QWidget &control)
{
    if (const auto *label = qobject_cast<const QLabel *>(&control))
        return label->text();
    if (const auto *box = qobject_cast<const QLineEdit *>(&control))
        return box->text();
    const auto *button = qobject_cast<const QAbstractButton *>(&control);
    return button ? button->text() : QString();
}

struct ToggleCase
{
    const char *name; // of the item
    const char *box;
};

struct frmZipToggleTest : testing::TestWithParam<ToggleCase>
{};

} // namespace

TEST_P(frmZipControlTest, IsAsDesigned)
{
    const ZipWindow window;
    const ZipControlCase &expected = GetParam();
    const QWidget &control = window.control<QWidget>(expected.name);
    EXPECT_TRUE(control.inherits(expected.kind));
    EXPECT_TRUE(control.isVisible());
    EXPECT_TRUE(control.isEnabled());
    EXPECT_EQ(zipCaptionOf(control), QString::fromLatin1(expected.caption));
    EXPECT_EQ(control.accessibleName(), QString::fromLatin1(expected.spoken));
    if (const auto *button = qobject_cast<const QPushButton *>(&control)) {
        EXPECT_FALSE(button->icon().isNull());
    }
    if (const auto *box = qobject_cast<const QCheckBox *>(&control)) {
        EXPECT_FALSE(box->isChecked());
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, frmZipControlTest, testing::ValuesIn(zipControls), RowName());

TEST_F(frmZipTest, HasItsMenus)
{
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-Zip Zipper"));
    QStringList menus;
    for (const QMenu *menu : window.form().menus())
        menus << menu->menuAction()->objectName() + u' ' + menu->title();
    EXPECT_EQ(menus.join(u'|'), QStringLiteral("mnufile &File|mnuoptions &Options|mnuWindow &Window"));
    EXPECT_EQ(window.items(0).join(u'|'),
              QStringLiteral("mnuaddfile &Add File to Zip|mnuoutput &Output File|-|"
                             "mnuNewQuillWord New Quill &Word Document|mnuClose &Close|"
                             "mnuexittools E&xit Quill-Office Tools"));
    EXPECT_EQ(window.items(1).join(u'|'),
              QStringLiteral("mnuencrypt &Encrypt|mnustorefolders &Store Folders|mnucreate &Create Zip"));
    EXPECT_EQ(window.items(2).join(u'|'),
              QStringLiteral("mnuCascade &Cascade|mnuTileHorizontal Tile &Horizontal|"
                             "mnuTileVertical Tile &Vertical|mnuArrangeIcons Arrange &Icons"));
}

TEST_F(frmZipTest, ItsMenusCallTheFrame)
{
    for (const char *item : {"mnuNewQuillWord", "mnuCascade", "mnuTileHorizontal", "mnuTileVertical",
                             "mnuArrangeIcons", "mnuexittools"})
        window.choose(item);
    EXPECT_EQ(window.frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,mnuFileExit_Click"));
}

TEST_P(frmZipToggleTest, ItemAndBox)
{
    const ZipWindow window;
    const auto &box = window.control<QCheckBox>(GetParam().box);
    window.choose(GetParam().name);
    EXPECT_TRUE(box.isChecked());
    EXPECT_TRUE(window.item(GetParam().name).isChecked());
    window.click(GetParam().box);
    EXPECT_FALSE(box.isChecked());
    EXPECT_TRUE(window.item(GetParam().name).isChecked());
    window.choose(GetParam().name);
    EXPECT_TRUE(box.isChecked());
    EXPECT_TRUE(window.item(GetParam().name).isChecked());
    window.choose(GetParam().name);
    EXPECT_FALSE(box.isChecked());
    EXPECT_FALSE(window.item(GetParam().name).isChecked());
}

INSTANTIATE_TEST_SUITE_P(Items, frmZipToggleTest,
                         testing::Values(ToggleCase{"mnuencrypt", "chkEncrypt"},
                                         ToggleCase{"mnustorefolders", "chkFolders"}),
                         RowName());

TEST_F(frmZipTest, TabFollowsTheWork)
{
    QStringList order;
    window.control<QWidget>("FileList1").setFocus();
    for (int i = 0; i < 11; ++i) {
        order << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              QStringLiteral("FileList1 cmdSingleFile txtzipfolder cmdzipfolder chkEncrypt chkAddComment "
                             "chkDirectories chkFolders cmdRecurse cmdCreateZip lstLog"));
}

TEST_F(frmZipTest, TheListsTakeWhatALargerWindowGives)
{
    const QSize files = window.control<QWidget>("FileList1").size();
    const QSize log = window.control<QWidget>("lstLog").size();
    QWidget *outer = window.form().parentWidget();
    outer->resize(outer->size() + QSize(150, 150));
    QCoreApplication::processEvents();
    EXPECT_EQ(window.control<QWidget>("FileList1").width(), files.width() + 150);
    EXPECT_EQ(window.control<QWidget>("lstLog").width(), log.width() + 150);
    EXPECT_EQ(window.control<QWidget>("FileList1").height() + window.control<QWidget>("lstLog").height(),
              files.height() + log.height() + 150);
}

// ---- Files

TEST_F(frmZipTest, AFileIsChosenAndAddedAtTheEnd)
{
    window.addFile("first");
    window.scratch.addFile("second");
    for (const char *command : {"cmdSingleFile", "mnuaddfile"}) {
        window.frame.dialogs.expectFileDialog(QStringLiteral("Choose File to Add to Zip"))
            .filters({QStringLiteral("All Files (*.*)")})
            .accept(window.path("second"));
        if (QLatin1String(command).startsWith(QLatin1String("mnu")))
            window.choose(command);
        else
            window.click(command);
    }
    EXPECT_EQ(window.rows("FileList1"),
              QStringList({window.path("first"), window.path("second"), window.path("second")}));
}

TEST_F(frmZipTest, ACancelledChoiceAddsNothing)
{
    window.frame.dialogs.expectFileDialog(QStringLiteral("Choose File to Add to Zip")).cancel();
    window.click("cmdSingleFile");
    EXPECT_EQ(window.rows("FileList1"), QStringList());
}

TEST_F(frmZipTest, TheTargetMayBeANewName)
{
    const QString title =
        QStringLiteral("Choose Folder and File to Zip to, or select directory and Type New File Name..");
    window.frame.dialogs.expectFileDialog(title)
        .filters({QStringLiteral("Zip Files (*.zip)")})
        .accept(window.path("new"));
    window.click("cmdzipfolder");
    EXPECT_EQ(window.target(), window.path("new.zip"));
    window.frame.dialogs.expectFileDialog(title).cancel();
    window.choose("mnuoutput");
    EXPECT_EQ(window.target(), window.path("new.zip"));
    window.scratch.addFile("old.zip");
    window.frame.dialogs.expectFileDialog(title).accept(window.path("old.zip"));
    window.choose("mnuoutput");
    EXPECT_EQ(window.target(), window.path("old.zip"));
}

TEST_F(frmZipTest, DroppedFilesAreAdded)
{
    window.addFile("first");
    window.scratch.addFile("a&b %1.txt");
    window.scratch.addFile("c");
    EXPECT_TRUE(dropFiles(window.form(), {window.scratch.file("a&b %1.txt"), window.scratch.file("c")}));
    EXPECT_EQ(window.rows("FileList1"),
              QStringList({window.path("first"), window.path("a&b %1.txt"), window.path("c")}));
    EXPECT_EQ(window.target(), prompt);
}

TEST_F(frmZipTest, AFileDroppedOnTheTargetIsTheTarget)
{
    window.scratch.addFile("old.zip");
    EXPECT_TRUE(dropFiles(window.control<QWidget>("txtzipfolder"), {window.scratch.file("old.zip")}));
    EXPECT_EQ(window.target(), window.path("old.zip"));
    EXPECT_EQ(window.rows("FileList1"), QStringList());
}

TEST_F(frmZipTest, NothingIsKept)
{
    window.addFile("first");
    window.setTarget(window.path("a.zip"));
    window.tick("chkEncrypt");
    window.close();
    EXPECT_FALSE(window.isOpen());
    window.open();
    EXPECT_EQ(window.rows("FileList1"), QStringList());
    EXPECT_EQ(window.target(), prompt);
    EXPECT_FALSE(window.control<QCheckBox>("chkEncrypt").isChecked());
}

// ---- Boxes before a job

TEST_F(frmZipTest, WithoutFilesNothingIsMade)
{
    for (const QString &target : {QString(), prompt, window.path("a.zip")}) {
        window.setTarget(target);
        window.expectBox(QStringLiteral("You have not selected any files!"), QMessageBox::Critical,
                         QStringLiteral("No Files to Zip.."));
        window.click("cmdCreateZip");
    }
    EXPECT_EQ(window.zip().FileSpecCount(), 0);
}

TEST_F(frmZipTest, WithoutATargetNothingIsMade)
{
    window.addFile("first");
    for (const QString &target : {QString(), prompt}) {
        window.setTarget(target);
        window.expectBox(QStringLiteral("You have not selected the destination file!"), QMessageBox::Critical,
                         QStringLiteral("No Destination File to Zip to.."));
        window.choose("mnucreate");
    }
    EXPECT_EQ(window.zip().FileSpecCount(), 0);
}
