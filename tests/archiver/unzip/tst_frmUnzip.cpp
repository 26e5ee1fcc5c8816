#include "DropFiles.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ShownText.h"
#include "UnzipWindow.h"
#include "cRegistry.h"

#include <QHeaderView>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

struct frmUnzipTest : testing::Test
{
    UnzipWindow window;

    void expectActions(bool enabled) const
    {
        for (const char *name : {"cmdExtract", "cmdAll", "cmdInvert"})
            EXPECT_EQ(window.isEnabled(name), enabled) << name;
        for (const char *name : {"mnuFile_1", "mnuEdit_0", "mnuEdit_1"})
            EXPECT_EQ(window.item(name).isEnabled(), enabled) << name;
        EXPECT_TRUE(window.isEnabled("cmdOpen"));
        EXPECT_TRUE(window.item("mnuFile_0").isEnabled());
    }
    QStringList recent() const
    {
        QStringList captions;
        for (const char *name : {"mnuFile_2", "mnuFile_3", "mnuFile_4", "mnuFile_5"}) {
            if (window.item(name).isVisible())
                captions << window.item(name).text();
        }
        return captions;
    }
};

struct frmUnzipNameTest : frmUnzipTest, testing::WithParamInterface<HostileName>
{};

struct frmUnzipFileNameTest : frmUnzipTest, testing::WithParamInterface<HostileName>
{};

struct UnzipControlCase
{
    const char *name;
    const char *kind; // its class
    const char *caption;
    const char *spoken;
    bool isEnabled = true;
};

struct frmUnzipControlTest : testing::TestWithParam<UnzipControlCase>
{};

constexpr UnzipControlCase unzipControls[] = {
    {"cmdOpen", "QPushButton", "&Open...", "Open..."},
    {"cmdExtract", "QPushButton", "&Extract...", "Extract...", false},
    {"cmdAll", "QPushButton", "&Select All", "Select All", false},
    {"cmdInvert", "QPushButton", "&Un-Select All", "Un-Select All", false},
    {"chkUseFolderNames", "QCheckBox", "&Use Folder Names", "Use Folder Names"},
    {"chkOverwritePrompt", "QCheckBox", "&Overwrite Prompt", "Overwrite Prompt"},
    {"lvwZip", "ListView", "", "Files of the archive"},
};

struct UnzipToggleCase
{
    const char *name; // of the item
    const char *box;
    bool frmUnzip::*property;
};

struct frmUnzipToggleTest : testing::TestWithParam<UnzipToggleCase>
{};

} // namespace

TEST_P(frmUnzipControlTest, IsAsDesigned)
{
    const UnzipWindow window;
    const UnzipControlCase &expected = GetParam();
    const QWidget &control = window.control<QWidget>(expected.name);
    EXPECT_TRUE(control.inherits(expected.kind));
    EXPECT_TRUE(control.isVisible());
    EXPECT_EQ(control.isEnabled(), expected.isEnabled);
    EXPECT_EQ(control.accessibleName(), QString::fromLatin1(expected.spoken));
    if (const auto *button = qobject_cast<const QAbstractButton *>(&control)) {
        EXPECT_EQ(button->text(), QString::fromLatin1(expected.caption));
        EXPECT_FALSE(button->isChecked());
    }
    if (const auto *button = qobject_cast<const QPushButton *>(&control)) {
        EXPECT_FALSE(button->icon().isNull());
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, frmUnzipControlTest, testing::ValuesIn(unzipControls), RowName());

TEST_F(frmUnzipTest, BeginsReady)
{
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-Zip Unzipper"));
    EXPECT_EQ(window.status(), QStringLiteral("Ready.."));
    expectActions(false);
}

TEST_F(frmUnzipTest, HasItsColumns)
{
    const char *const columns[] = {"Filename", "Size", "Date", "Packed", "Folder"};
    for (int i = 1; i <= 5; ++i) {
        EXPECT_EQ(window.view().ColumnHeaders(i).Text, QString::fromLatin1(columns[i - 1]));
        EXPECT_EQ(window.view().ColumnHeaders(i).Width, 190 * 15);
    }
    EXPECT_THROW(window.view().ColumnHeaders(6), std::exception);
    EXPECT_EQ(window.view().View(), 3);
}

TEST_F(frmUnzipTest, HasItsMenus)
{
    QStringList menus;
    for (const QMenu *menu : window.form().menus())
        menus << menu->menuAction()->objectName() + u' ' + menu->title();
    EXPECT_EQ(menus.join(u'|'),
              QStringLiteral("mnuFileTOP &File|mnuEditTOP &Options|mnuWindow &Window|mnuHelpTOP &Help"));
    EXPECT_EQ(window.items(0).join(u'|'),
              QStringLiteral("mnuFile_0 &Open...|mnuFile_1 Ex&tract...|-|mnuFile_2 |mnuFile_3 |mnuFile_4 |"
                             "mnuFile_5 |-|mnuNewQuillWord New Quill &Word Document|mnuClose &Close|"
                             "mnuexittools E&xit Quill-Office Tools"));
    EXPECT_EQ(window.items(1).join(u'|'),
              QStringLiteral("mnuEdit_0 &Select All|mnuEdit_1 &Invert Selection|-|"
                             "mnuusefolders &Use Folder Names|mnuoverrideprompt &Overwrite Prompt"));
    EXPECT_EQ(window.items(2).join(u'|'),
              QStringLiteral("mnuCascade &Cascade|mnuTileHorizontal Tile &Horizontal|"
                             "mnuTileVertical Tile &Vertical|mnuArrangeIcons Arrange &Icons"));
    EXPECT_EQ(window.items(3).join(u'|'), QStringLiteral("mnuHelp &About..."));
    EXPECT_EQ(recent(), QStringList());
}

TEST_F(frmUnzipTest, ItsMenusCallTheFrame)
{
    for (const char *item : {"mnuNewQuillWord", "mnuCascade", "mnuTileHorizontal", "mnuTileVertical",
                             "mnuArrangeIcons", "mnuexittools"})
        window.choose(item);
    EXPECT_EQ(window.frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,mnuFileExit_Click"));
}

TEST_F(frmUnzipTest, AboutNamesTheLibraries)
{
    window.frame.dialogs.leaveWhatComes();
    window.choose("mnuHelp");
    ASSERT_EQ(window.frame.dialogs.seen().size(), 1);
    const SeenDialog box = window.frame.dialogs.seen().first();
    EXPECT_EQ(box.icon, QMessageBox::Information);
    EXPECT_TRUE(box.text.startsWith(QStringLiteral("Brindlecode UnZip Demonstration.\n")));
    EXPECT_TRUE(box.text.contains(QStringLiteral("libdeflate")));
}

TEST_P(frmUnzipToggleTest, ItemBoxAndProperty)
{
    const UnzipWindow window;
    const auto &box = window.control<QCheckBox>(GetParam().box);
    const auto expect = [&](bool ticked, bool marked) {
        EXPECT_EQ(box.isChecked(), ticked);
        EXPECT_EQ(window.item(GetParam().name).isChecked(), marked);
        EXPECT_EQ(window.form().*GetParam().property, ticked);
    };
    expect(false, false);
    window.choose(GetParam().name);
    expect(true, true);
    window.click(GetParam().box);
    expect(false, true);
    window.choose(GetParam().name);
    expect(true, true);
    window.choose(GetParam().name);
    expect(false, false);
}

INSTANTIATE_TEST_SUITE_P(
    Items, frmUnzipToggleTest,
    testing::Values(UnzipToggleCase{"mnuusefolders", "chkUseFolderNames", &frmUnzip::UseFolderNames},
                    UnzipToggleCase{"mnuoverrideprompt", "chkOverwritePrompt", &frmUnzip::OverwritePrompt}),
    RowName());

TEST_F(frmUnzipTest, TabFollowsTheWork)
{
    window.make("a.zip", {UnzipWindow::entry("a.txt")});
    dropFiles(window.form(), {window.scratch.file("a.zip")});
    QStringList order;
    window.control<QWidget>("cmdOpen").setFocus();
    for (int i = 0; i < 6; ++i) {
        order << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              QStringLiteral("cmdOpen cmdExtract cmdAll cmdInvert chkUseFolderNames chkOverwritePrompt"));
    EXPECT_TRUE(window.view().isAncestorOf(QApplication::focusWidget()));
}

TEST_F(frmUnzipTest, TheListKeepsItsMarginsAndTakesTheRest)
{
    const QRect before = window.view().geometry();
    QWidget *outer = window.form().parentWidget();
    outer->resize(outer->size() + QSize(120, 90));
    QCoreApplication::processEvents();
    EXPECT_EQ(window.view().geometry(), before.adjusted(0, 0, 120, 90));
    EXPECT_EQ(window.view().x(), window.form().width() - window.view().geometry().right() - 1);
    outer->resize(1, 1);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isOpen());
}

// ---- Listing

TEST_F(frmUnzipTest, ListsAnArchive)
{
    MadeEntry packed = UnzipWindow::entry("dir/sub/b.txt", QByteArray(1000, 'x'));
    packed.isDeflated = true;
    window.openWith({UnzipWindow::entry("a.txt", "12345"), UnzipWindow::entry("dir/"), packed});
    const QString date = QLocale().toString(QDate(2004, 3, 9), QLocale::ShortFormat) + u' ' +
                         QLocale().toString(QTime(9, 40), QLocale::ShortFormat);
    ASSERT_EQ(window.names(), QStringList({QStringLiteral("a.txt"), QStringLiteral("b.txt")}));
    EXPECT_EQ(window.row(1), QStringLiteral("a.txt|5|") + date + QStringLiteral("|0|"));
    EXPECT_EQ(window.row(2), QStringLiteral("b.txt|%1|").arg(window.unzip().FileSize(2)) + date +
                                 QStringLiteral("|%1|dir\\sub").arg(window.unzip().FilePackedSize(2)));
    EXPECT_EQ(window.view().ListItems().Item(2).Key, QStringLiteral("File2"));
    expectActions(true);
}

TEST_F(frmUnzipTest, TheDialogOffersArchivesFirst)
{
    window.frame.dialogs.expectFileDialog(QStringLiteral("Choose Zip FIle to Open"))
        .filters({QStringLiteral("Zip Files (*.ZIP)"), QStringLiteral("All Files (*.*)")})
        .cancel();
    window.choose("mnuFile_0");
    EXPECT_EQ(window.unzip().ZipFile(), QString());
    EXPECT_EQ(window.status(), QStringLiteral("Ready.."));
}

TEST_F(frmUnzipTest, AnotherArchiveReplacesTheList)
{
    window.make("b.zip", {UnzipWindow::entry("b.txt")});
    window.openWith({UnzipWindow::entry("a.txt")});
    window.click("cmdAll");
    window.openArchive("b.zip");
    EXPECT_EQ(window.names(), QStringList(QStringLiteral("b.txt")));
    EXPECT_EQ(window.selected(), QStringList());
}

TEST_F(frmUnzipTest, ColumnsThatWereDraggedStayAsWideForAnotherArchive)
{
    window.make("b.zip", {UnzipWindow::entry("b.txt")});
    window.openWith({UnzipWindow::entry("a.txt")});
    auto *header = window.view().findChild<QHeaderView *>();
    header->resizeSection(0, 77);
    window.openArchive("b.zip");
    EXPECT_EQ(header->sectionSize(0), 77);
}

TEST_F(frmUnzipTest, WithoutEntriesTheActionsAreDisabled)
{
    window.openWith({UnzipWindow::entry("a.txt")});
    window.make("empty.zip", {});
    window.scratch.addFile("broken.zip", "no archive");
    for (const char *name : {"empty.zip", "broken.zip"}) {
        window.openArchive("a.zip");
        expectActions(true);
        window.openArchive(name);
        expectActions(false);
        EXPECT_EQ(window.names(), QStringList()) << name;
    }
    EXPECT_EQ(recent(), QStringList(QStringLiteral("&1) ") + window.path("a.zip")));
}

TEST_F(frmUnzipTest, AnEncryptedEntryHasAPlus)
{
    MadeEntry secret = UnzipWindow::entry("secret.txt", "0123456789ab");
    secret.flags = 1;
    window.openWith({secret, UnzipWindow::entry("plain.txt")});
    EXPECT_EQ(window.names(), QStringList({QStringLiteral("+secret.txt"), QStringLiteral("plain.txt")}));
}

TEST_F(frmUnzipTest, FilesOfOneKindShareAnIcon)
{
    window.openWith({UnzipWindow::entry("a.txt"), UnzipWindow::entry("b.TXT"), UnzipWindow::entry("c"),
                     UnzipWindow::entry("d.exe")});
    const auto icon = [this](int row) { return window.view().ListItems().Item(row).Icon.cacheKey(); };
    EXPECT_EQ(icon(1), icon(2));
    EXPECT_NE(icon(1), icon(3));
    EXPECT_NE(icon(4), icon(3));
    EXPECT_NE(icon(4), icon(1));
}

TEST_F(frmUnzipTest, ADroppedArchiveIsOpened)
{
    window.make("a.zip", {UnzipWindow::entry("a.txt")});
    window.make("b.zip", {UnzipWindow::entry("b.txt")});
    EXPECT_TRUE(dropFiles(window.form(), {window.scratch.file("a.zip"), window.scratch.file("b.zip")}));
    EXPECT_EQ(window.names(), QStringList(QStringLiteral("a.txt")));
    EXPECT_EQ(recent(), QStringList(QStringLiteral("&1) ") + window.path("a.zip")));
    expectActions(true);
}

// ---- Selecting

TEST_F(frmUnzipTest, SelectsAllAndInverts)
{
    window.openWith({UnzipWindow::entry("a"), UnzipWindow::entry("b"), UnzipWindow::entry("c")});
    const QStringList all = window.names();
    window.click("cmdAll");
    EXPECT_EQ(window.selected(), all);
    window.click("cmdInvert");
    EXPECT_EQ(window.selected(), QStringList());
    window.view().setSelected(2, true);
    window.choose("mnuEdit_1");
    EXPECT_EQ(window.selected(), QStringList({QStringLiteral("a"), QStringLiteral("c")}));
    window.choose("mnuEdit_0");
    EXPECT_EQ(window.selected(), all);
}

// ---- Recent archives

TEST_F(frmUnzipTest, FourRecentArchivesAreShown)
{
    QStringList expected;
    for (const char *name : {"a.zip", "b.zip", "c.zip", "d.zip", "e.zip"}) {
        window.make(name, {UnzipWindow::entry(name)});
        window.openArchive(name);
    }
    EXPECT_EQ(recent(), QStringList({QStringLiteral("&1) ") + window.path("e.zip"),
                                     QStringLiteral("&2) ") + window.path("d.zip"),
                                     QStringLiteral("&3) ") + window.path("c.zip"),
                                     QStringLiteral("&4) ") + window.path("b.zip")}));
}

TEST_F(frmUnzipTest, ARecentArchiveIsOpenedByItsPath)
{
    for (const char *name : {"a&b.zip", "c.zip"}) {
        window.make(name, {UnzipWindow::entry(name)});
        window.openArchive(name);
    }
    EXPECT_EQ(recent().value(1), QStringLiteral("&2) ") + window.path("a&b.zip"));
    window.choose("mnuFile_3");
    EXPECT_EQ(window.names(), QStringList(QStringLiteral("a&b.zip")));
    EXPECT_EQ(recent(), QStringList({QStringLiteral("&1) ") + window.path("a&b.zip"),
                                     QStringLiteral("&2) ") + window.path("c.zip")}));
}

TEST_F(frmUnzipTest, ARecentArchiveThatIsGoneEmptiesTheList)
{
    window.openWith({UnzipWindow::entry("a.txt")});
    std::filesystem::remove(window.scratch.file("a.zip").constData());
    window.choose("mnuFile_2");
    EXPECT_EQ(window.names(), QStringList());
    expectActions(false);
    EXPECT_EQ(recent().size(), 1);
}

TEST_F(frmUnzipTest, AnEmptyRecentRowDoesNothing)
{
    window.openWith({UnzipWindow::entry("a.txt")});
    window.close();
    cRegistry registry;
    for (const qint32 root : {cRegistry::CurrentUser, cRegistry::LocalMachine}) {
        registry.ClassKey = root;
        registry.SectionKey = QStringLiteral("SOFTWARE\\Brindlecode\\VBUnZip\\FileOpenMRU");
        registry.ValueKey = QStringLiteral("Item1");
        registry.setValue(QString());
    }
    window.open();
    window.choose("mnuFile_2");
    EXPECT_EQ(window.unzip().ZipFile(), QString());
}

// ---- What is kept

TEST_F(frmUnzipTest, TheRecentArchivesAreKept)
{
    window.openWith({UnzipWindow::entry("a.txt")});
    window.close();
    EXPECT_FALSE(window.isOpen());
    window.open();
    EXPECT_EQ(recent(), QStringList(QStringLiteral("&1) ") + window.path("a.zip")));
    EXPECT_EQ(window.names(), QStringList());
    expectActions(false);
}

TEST_F(frmUnzipTest, TheOptionsThatAreKeptAreThoseOfTheLastExtraction)
{
    window.choose("mnuusefolders");
    window.choose("mnuoverrideprompt");
    window.close();
    window.open();
    EXPECT_FALSE(window.unzip().UseFolderNames());
    EXPECT_FALSE(window.unzip().PromptToOverwrite());

    window.choose("mnuusefolders");
    window.click("chkOverwritePrompt");
    window.openWith({UnzipWindow::entry("a.txt")});
    window.extract();
    window.click("chkOverwritePrompt");
    window.close();
    window.open();
    EXPECT_TRUE(window.unzip().UseFolderNames());
    EXPECT_TRUE(window.unzip().PromptToOverwrite());
    EXPECT_FALSE(window.control<QCheckBox>("chkUseFolderNames").isChecked());
    EXPECT_FALSE(window.control<QCheckBox>("chkOverwritePrompt").isChecked());
    EXPECT_FALSE(window.item("mnuusefolders").isChecked());
    EXPECT_FALSE(window.item("mnuoverrideprompt").isChecked());
}

// ---- Names

TEST_P(frmUnzipNameTest, AnyNameOfAnEntryIsListedPlain)
{
    window.openWith({UnzipWindow::entry("dir/" + GetParam().bytes)});
    const QStringList names = window.names();
    ASSERT_EQ(names.size(), 1);
    EXPECT_EQ(window.row(1).section(u'|', -1).section(u'\\', 0, 0), QStringLiteral("dir"));
    window.click("cmdAll");
    EXPECT_FALSE(window.form().grab().isNull()); // painted with what has come
}

INSTANTIATE_TEST_SUITE_P(Names, frmUnzipNameTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

TEST_P(frmUnzipFileNameTest, AnyNameOfAnArchiveIsACaption)
{
    const QByteArray name = GetParam().bytes + ".zip";
    window.make(name, {UnzipWindow::entry("a.txt")});
    EXPECT_TRUE(dropFiles(window.form(), {window.scratch.file(name)}));
    EXPECT_EQ(recent(), QStringList(QStringLiteral("&1) ") + ShownText::line(window.path(name))));
    window.choose("mnuFile_2");
    EXPECT_EQ(window.names(), QStringList(QStringLiteral("a.txt")));
    EXPECT_EQ(window.unzip().ZipFile(), window.path(name));
    window.close();
    window.open();
    window.choose("mnuFile_2");
    EXPECT_EQ(window.names(), QStringList(QStringLiteral("a.txt")));
}

INSTANTIATE_TEST_SUITE_P(Names, frmUnzipFileNameTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
