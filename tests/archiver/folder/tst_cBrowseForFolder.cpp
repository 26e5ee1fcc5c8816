#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "FakeFrame.h"
#include "FolderDialog.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "ShownText.h"
#include "cBrowseForFolder.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {

struct cBrowseForFolderTest : testing::Test
{
    ScratchFolder scratch;
    FakeFrame frame;
    cBrowseForFolder browse;
    FolderDialog *dialog = nullptr; ///< in a step

    cBrowseForFolderTest()
    {
        scratch.addFolder("a");
        scratch.addFolder("a/sub");
        scratch.addFolder("b");
        browse.InitialDir = path("a");
        browse.EditBox = true;
    }

    QString path(const char *name) const { return QString::fromUtf8(scratch.file(name)); }
    /// Shows the dialog, runs \a act in it and returns what was chosen.
    QString choose(const std::function<void()> &act)
    {
        frame.dialogs.expectWindow<FolderDialog>(QStringLiteral("FolderDialog"), [&](FolderDialog &shown) {
            dialog = &shown;
            act();
        });
        return browse.BrowseForFolder();
    }
    template<class Control>
    Control &control(const char *name) const
    {
        return *dialog->findChild<Control *>(QString::fromLatin1(name));
    }
    void press(const char *name) const { control<QPushButton>(name).click(); }
    QString status() const { return control<QLabel>("lblStatus").text(); }
    QLineEdit &box() const { return control<QLineEdit>("txtFolder"); }
    void type(const QString &text) const
    {
        box().selectAll();
        QTest::keyClicks(&box(), text);
    }
};

struct cBrowseForFolderNameTest : cBrowseForFolderTest, testing::WithParamInterface<HostileName>
{};

/// The error that \a step throws, as its number, description and source.
QString failureOf(const std::function<void()> &step)
{
    try {
        step();
    } catch (const RuntimeError &error) {
        return QString::number(error.number()) + u'|' + error.description() + u'|' + error.source();
    }
    return {};
}

} // namespace

TEST_F(cBrowseForFolderTest, BeginsWithTheseProperties)
{
    const cBrowseForFolder fresh;
    EXPECT_EQ(fresh.Title, QStringLiteral("Choose Folder"));
    EXPECT_FALSE(fresh.EditBox || fresh.StatusText || fresh.FileSystemOnly || fresh.ValidateEditBox ||
                 fresh.UseNewUI || fresh.IncludeFiles);
    EXPECT_EQ(fresh.InitialDir + fresh.RootDir + fresh.DisplayName(), QString());
}

TEST_F(cBrowseForFolderTest, GivesTheSelectedFolder)
{
    browse.Title = QStringLiteral("Where to?");
    EXPECT_EQ(choose([this] {
                  EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Where to?"));
                  EXPECT_EQ(box().text(), path("a"));
                  EXPECT_TRUE(control<QTreeView>("tvwFolders").hasFocus());
                  press("cmdOK");
              }),
              path("a"));
    EXPECT_EQ(browse.DisplayName(), QStringLiteral("a"));
}

TEST_F(cBrowseForFolderTest, ACancelledDialogGivesAnEmptyText)
{
    EXPECT_EQ(choose([this] { press("cmdCancel"); }), QString());
    EXPECT_EQ(choose([this] { dialog->close(); }), QString());
    EXPECT_EQ(choose([this] { QTest::keyClick(dialog, Qt::Key_Escape); }), QString());
}

TEST_F(cBrowseForFolderTest, TheKeysChooseAFolder)
{
    EXPECT_EQ(choose([this] {
                  auto &tree = control<QTreeView>("tvwFolders");
                  QTest::keyClick(&tree, Qt::Key_Down); // "a" is open
                  EXPECT_EQ(box().text(), path("a/sub"));
                  QTest::keyClick(&tree, Qt::Key_Down);
                  QTest::keyClick(&tree, Qt::Key_Return);
              }),
              path("b"));
}

TEST_F(cBrowseForFolderTest, AnInitialFolderThatIsMissingDoesNotStopIt)
{
    browse.InitialDir = path("none");
    EXPECT_EQ(choose([this] { press("cmdOK"); }), QDir::homePath());
}

TEST_F(cBrowseForFolderTest, TheRootIsAllThereIs)
{
    browse.RootDir = path("a");
    browse.InitialDir = path("b");
    EXPECT_EQ(choose([this] {
                  EXPECT_EQ(control<QTreeView>("tvwFolders").model()->rowCount(), 1);
                  press("cmdOK");
              }),
              path("a"));
}

TEST_F(cBrowseForFolderTest, AMissingRootIsAnError)
{
    browse.RootDir = path("none");
    EXPECT_TRUE(failureOf([this] { browse.BrowseForFolder(); }).startsWith(QStringLiteral("76|")));
    EXPECT_TRUE(
        failureOf([this] { browse.BrowseForFolder(); }).endsWith(QStringLiteral("|.cBrowseForFolder")));
}

TEST_F(cBrowseForFolderTest, SpecialFoldersBecomeTheRoot)
{
    browse.setSpecialFolderLocation(40);
    EXPECT_EQ(browse.SpecialFolderLocation(), 40);
    EXPECT_EQ(browse.RootDir, QDir::homePath());
    browse.setSpecialFolderLocation(5);
    EXPECT_EQ(browse.RootDir, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    EXPECT_EQ(errorNumberOf([this] { browse.setSpecialFolderLocation(999); }), 5);
    EXPECT_EQ(browse.SpecialFolderLocation(), 5);
}

TEST_F(cBrowseForFolderTest, ThePartsAreThereWhereTheyAreAskedFor)
{
    const auto expect = [&](bool shown) {
        choose([&] {
            EXPECT_EQ(box().isVisible(), shown);
            EXPECT_EQ(control<QLabel>("lblStatus").isVisible(), shown);
            EXPECT_EQ(control<QPushButton>("cmdNewFolder").isVisible(), shown);
            press("cmdCancel");
        });
    };
    browse.EditBox = browse.StatusText = browse.UseNewUI = false;
    expect(false);
    browse.EditBox = browse.StatusText = browse.UseNewUI = true;
    expect(true);
}

TEST_F(cBrowseForFolderTest, FilesCanBeIncluded)
{
    scratch.addFile("a/file");
    browse.IncludeFiles = true;
    EXPECT_EQ(choose([this] {
                  browse.SetFolder(path("a"));
                  auto &tree = control<QTreeView>("tvwFolders");
                  QTest::keyClick(&tree, Qt::Key_Down);
                  QTest::keyClick(&tree, Qt::Key_Down);
                  press("cmdOK");
              }),
              path("a/file"));
}

// ---- Typed paths

TEST_F(cBrowseForFolderTest, ATypedPathIsTaken)
{
    EXPECT_EQ(choose([this] {
                  type(path("b") + u'/');
                  QTest::keyClick(&box(), Qt::Key_Return);
              }),
              path("b"));
    EXPECT_EQ(choose([this] {
                  type(QStringLiteral(" new/folder ")); // below the selected one
                  press("cmdOK");
              }),
              path("a/new/folder"));
    EXPECT_EQ(choose([this] {
                  box().selectAll();
                  QTest::keyClick(&box(), Qt::Key_Delete);
                  press("cmdOK");
              }),
              path("a"));
}

TEST_F(cBrowseForFolderTest, SelectingReplacesWhatWasTyped)
{
    EXPECT_EQ(choose([this] {
                  type(path("none"));
                  browse.SetFolder(path("b"));
                  EXPECT_EQ(box().text(), path("b"));
                  press("cmdOK");
              }),
              path("b"));
}

TEST_F(cBrowseForFolderTest, AnInvalidPathIsRefused)
{
    browse.ValidateEditBox = true;
    browse.StatusText = true;
    QStringList failed;
    on(&browse, &cBrowseForFolder::ValidationFailed, &browse, [&](const QString &text, bool &keepOpen) {
        EXPECT_FALSE(keepOpen);
        keepOpen = failed.isEmpty();
        failed << text;
    });
    EXPECT_EQ(choose([&] {
                  type(path("none"));
                  press("cmdOK");
                  EXPECT_TRUE(dialog->isVisible());
                  EXPECT_EQ(status(), QStringLiteral("Path invalid: ") + path("none"));
                  EXPECT_FALSE(control<QPushButton>("cmdOK").isEnabled());
                  QTest::keyClick(&box(), Qt::Key_Return);
                  EXPECT_EQ(failed.size(), 1);
                  QTest::keyClicks(&box(), QStringLiteral("x"));
                  EXPECT_TRUE(control<QPushButton>("cmdOK").isEnabled());
                  press("cmdOK");
              }),
              QString());
    EXPECT_EQ(failed, QStringList({path("none"), path("nonex")}));
}

// ---- Steering the open dialog

TEST_F(cBrowseForFolderTest, CannotBeSteeredWhileItIsClosed)
{
    const QString error = QStringLiteral("5|Operation invalid unless dialog is displayed.|.cBrowseForFolder");
    EXPECT_EQ(failureOf([this] { browse.SetFolder(path("b")); }), error);
    EXPECT_EQ(failureOf([this] { browse.SetStatus(QStringLiteral("x")); }), error);
    choose([this] { press("cmdCancel"); });
    EXPECT_EQ(failureOf([this] { browse.SetFolder(path("b")); }), error);
}

TEST_F(cBrowseForFolderTest, CanBeSteeredFromTheFirstEventOn)
{
    int initialized = 0;
    on(&browse, &cBrowseForFolder::Initialized, &browse, [&] {
        ++initialized;
        browse.SetFolder(path("b"));
        browse.SetStatus(QStringLiteral("<b>Hello</b>"));
    });
    browse.StatusText = true;
    EXPECT_EQ(choose([this] {
                  EXPECT_EQ(status(), QStringLiteral("<b>Hello</b>"));
                  EXPECT_EQ(control<QLabel>("lblStatus").textFormat(), Qt::PlainText);
                  press("cmdOK");
              }),
              path("b"));
    EXPECT_EQ(initialized, 1);
}

TEST_F(cBrowseForFolderTest, AMissingFolderCannotBeSelected)
{
    choose([this] {
        EXPECT_TRUE(failureOf([this] { browse.SetFolder(path("none")); }).startsWith(QStringLiteral("76|")));
        EXPECT_EQ(box().text(), path("a"));
        press("cmdCancel");
    });
}

TEST_F(cBrowseForFolderTest, ASelectionMayBeRefused)
{
    QStringList selected;
    on(&browse, &cBrowseForFolder::SelectionChanged, &browse, [&](const QString &now, bool &allowOk) {
        EXPECT_TRUE(allowOk);
        allowOk = now != path("b");
        selected << now;
    });
    browse.StatusText = true;
    EXPECT_EQ(choose([this] {
                  EXPECT_TRUE(control<QPushButton>("cmdOK").isEnabled());
                  browse.SetFolder(path("b"));
                  EXPECT_FALSE(control<QPushButton>("cmdOK").isEnabled());
                  EXPECT_EQ(status(), path("b"));
                  QTest::keyClick(&control<QTreeView>("tvwFolders"), Qt::Key_Return);
                  EXPECT_TRUE(dialog->isVisible());
                  browse.SetFolder(path("a/sub"));
                  press("cmdOK");
              }),
              path("a/sub"));
    EXPECT_EQ(selected.mid(selected.size() - 3), QStringList({path("a"), path("b"), path("a/sub")}));
}

// ---- New folders

TEST_F(cBrowseForFolderTest, ANewFolderIsMadeAndSelected)
{
    browse.UseNewUI = true;
    EXPECT_EQ(choose([this] {
                  frame.dialogs
                      .expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
                      .type(QStringLiteral("new & <b>"));
                  press("cmdNewFolder");
                  const auto &tree = control<QTreeView>("tvwFolders");
                  EXPECT_FALSE(tree.isExpanded(tree.currentIndex())); // nothing is in it
                  press("cmdOK");
              }),
              path("a/new & <b>"));
    EXPECT_TRUE(QFileInfo(path("a/new & <b>")).isDir());
}

TEST_F(cBrowseForFolderTest, ANewFolderThatCannotBeMadeIsReported)
{
    browse.UseNewUI = true;
    EXPECT_EQ(
        choose([this] {
            frame.dialogs.expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
                .type(QStringLiteral("none/new"));
            frame.dialogs.expectBox(QStringLiteral("New Folder"), QStringLiteral("File not found"))
                .icon(QMessageBox::Warning);
            press("cmdNewFolder");
            frame.dialogs.expectInput(QStringLiteral("New Folder"), QStringLiteral("Enter new folder name"))
                .press(QMessageBox::Cancel);
            press("cmdNewFolder");
            press("cmdOK");
        }),
        path("a"));
}

// ---- Names

TEST_P(cBrowseForFolderNameTest, AnyNameIsShownPlainAndGivenAsItIs)
{
    scratch.addFolder(GetParam().bytes);
    const QString folder = path("") + GetParam().text();
    browse.Title = GetParam().text();
    browse.StatusText = true;
    EXPECT_EQ(choose([&] {
                  EXPECT_EQ(dialog->windowTitle(), ShownText::line(GetParam().text()));
                  browse.SetFolder(folder);
                  EXPECT_EQ(status(), ShownText::line(folder));
                  EXPECT_LT(dialog->width(), 600);
                  dialog->grab();
                  press("cmdOK");
              }),
              folder);
    EXPECT_EQ(browse.DisplayName(), GetParam().text());
}

INSTANTIATE_TEST_SUITE_P(Names, cBrowseForFolderNameTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
