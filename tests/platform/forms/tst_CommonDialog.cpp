#include "CommonDialog.h"
#include "DialogDriver.h"
#include "DialogHook.h"
#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "Files.h"
#include "Form.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ScratchHome.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QPointer>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {

struct CommonDialogTest : testing::Test
{
    ScratchHome home;
    DialogDriver dialogs;
    CommonDialog dialog{nullptr};
    QString title = QStringLiteral("Save As RTF");

    CommonDialogTest()
    {
        dialog.DialogTitle = title;
        dialog.InitDir = home.path();
        dialog.Filter = QStringLiteral("Rich Text Format (*.rtf)|*.rtf|All Files (*.*)|*.*");
        dialog.DefaultExt = QStringLiteral("rtf");
    }
    QString made(const char *name)
    {
        const QString path = home.file(QString::fromLatin1(name));
        Files::write(path, "x");
        return path;
    }
    /// The question that the file dialog itself asks.
    void expectQuestion(const QString &text, QMessageBox::StandardButton answer)
    {
        dialogs.expectBox(title, text).press(answer);
    }
    static QString overwriteText(const char *name)
    {
        return QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(QLatin1String(name));
    }
};

/// As on a desktop that has file dialogs of its own.
struct DesktopsOwnDialogs
{
    DesktopsOwnDialogs() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false); }
    ~DesktopsOwnDialogs() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
};

} // namespace

TEST_F(CommonDialogTest, OneThatIsFollowedOrHasABoxOfItsOwnIsNotTheDesktops)
{
    const DesktopsOwnDialogs desktop;
    const auto isQts = [&](void (CommonDialog::*show)()) {
        bool isForced = false;
        dialogs.expectWindow<QFileDialog>(QStringLiteral("FileDialog"), [&](QFileDialog &shown) {
            isForced = shown.testOption(QFileDialog::DontUseNativeDialog);
            shown.reject();
        });
        (dialog.*show)();
        return isForced;
    };
    EXPECT_FALSE(isQts(&CommonDialog::ShowOpen));
    EXPECT_FALSE(isQts(&CommonDialog::ShowSave));
    dialog.OffersReadOnly = true;
    EXPECT_TRUE(isQts(&CommonDialog::ShowOpen));
    dialog.OffersReadOnly = false;
    DialogHook hook;
    dialog.Hook = &hook;
    EXPECT_TRUE(isQts(&CommonDialog::ShowOpen));
    EXPECT_TRUE(isQts(&CommonDialog::ShowSave));
}

TEST_F(CommonDialogTest, OpensAnExistingFile)
{
    const QString path = made("one.rtf");
    dialogs.expectFileDialog(title)
        .folder(home.path())
        .filters({QStringLiteral("Rich Text Format (*.rtf)"), QStringLiteral("All Files (*.*)")})
        .accept(QStringLiteral("one.rtf"));
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, path);
}

TEST_F(CommonDialogTest, TheListsColumnsAreWholeAndWithinTheList)
{
    made("a letter with rather a long name that has to give way.rtf");
    dialogs.expectWindow<QFileDialog>(QStringLiteral("FileDialog"), [](QFileDialog &shown) {
        shown.setViewMode(QFileDialog::Detail);
        const auto *list = shown.findChild<QTreeView *>(QStringLiteral("treeView"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
        const QHeaderView &header = *list->header();
        EXPECT_EQ(header.length(), list->viewport()->width());
        for (int column = 1; column < header.count(); ++column) {
            const QString text = list->model()->index(0, column, list->rootIndex()).data().toString();
            EXPECT_GT(header.sectionSize(column), list->fontMetrics().horizontalAdvance(text)) << column;
        }
        shown.reject();
    });
    dialog.ShowOpen();
}

TEST_F(CommonDialogTest, OffersTheUsualFoldersBesideTheList)
{
    QDir(home.path()).mkdir(QStringLiteral("Documents"));
    dialogs.expectWindow<QFileDialog>(QStringLiteral("FileDialog"), [this](QFileDialog &shown) {
        EXPECT_TRUE(
            shown.sidebarUrls().contains(QUrl::fromLocalFile(home.file(QStringLiteral("Documents")))));
        shown.reject();
    });
    dialog.ShowOpen();
}

TEST_F(CommonDialogTest, AllFilesAreThoseWithoutADotToo)
{
    made("README");
    dialog.FilterIndex = 2;
    dialogs.expectWindow<QFileDialog>(QStringLiteral("FileDialog"), [](QFileDialog &shown) {
        const auto *list = shown.findChild<QTreeView *>(QStringLiteral("treeView"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
        shown.reject();
    });
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FilterIndex, 2);
}

TEST_F(CommonDialogTest, OpensByTheDefaultExtension)
{
    const QString path = made("one.rtf");
    dialogs.expectFileDialog(title).accept(QStringLiteral("one"));
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, path);
}

TEST_F(CommonDialogTest, OpensAFileThatHasNoExtension)
{
    const QString path = made("README");
    dialogs.expectFileDialog(title).accept(QStringLiteral("README"));
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, path);
}

TEST_F(CommonDialogTest, DoesNotOpenAMissingFile)
{
    dialogs.expectFileDialog(title).accept(QStringLiteral("gone.rtf"));
    expectQuestion(
        QStringLiteral("gone.rtf\nFile not found.\nPlease verify the correct file name was given."),
        QMessageBox::Ok);
    dialogs.expectFileDialog(title).cancel();
    dialog.ShowOpen();
    EXPECT_TRUE(dialog.FileName.isEmpty());
}

TEST_F(CommonDialogTest, TakesAFolderWithBackslashes)
{
    QDir(home.path()).mkdir(QStringLiteral("docs"));
    dialog.InitDir = home.path() + QStringLiteral("\\docs\\");
    dialogs.expectFileDialog(title).folder(home.file(QStringLiteral("docs"))).accept(QStringLiteral("a.rtf"));
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, home.file(QStringLiteral("docs/a.rtf")));
}

TEST_F(CommonDialogTest, SavesUnderANewNameWithTheDefaultExtension)
{
    dialog.Flags = CommonDialog::OverwritePrompt | CommonDialog::HideReadOnly;
    dialogs.expectFileDialog(title).defaultSuffix(QStringLiteral("rtf")).accept(QStringLiteral("letter"));
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, home.file(QStringLiteral("letter.rtf")));
}

TEST_F(CommonDialogTest, ATypedExtensionStays)
{
    dialogs.expectFileDialog(title).accept(QStringLiteral("letter.doc"));
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, home.file(QStringLiteral("letter.doc")));
}

TEST_F(CommonDialogTest, AsksBeforeItTakesANameThatExists)
{
    const QString path = made("one.rtf");
    dialog.Flags = CommonDialog::OverwritePrompt;
    dialogs.expectFileDialog(title).accept(QStringLiteral("one"));
    expectQuestion(overwriteText("one.rtf"), QMessageBox::No);
    dialogs.expectFileDialog(title).accept(QStringLiteral("one.rtf"));
    expectQuestion(overwriteText("one.rtf"), QMessageBox::Yes);
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, path);
    EXPECT_EQ(Files::read(path), QByteArray("x"));
}

TEST_F(CommonDialogTest, OpensAndAsksAboutAnyName)
{
    for (const HostileName &name : HostileNames::files()) {
        if (!name.isUtf8())
            continue; // Qt's dialog cannot name such a file
        const QString file = name.text() + QStringLiteral(".rtf");
        const QString path = home.file(file);
        Files::write(path, "x");
        dialogs.expectFileDialog(title).accept(file);
        dialog.ShowOpen();
        EXPECT_EQ(dialog.FileName, path) << name.what;
        dialog.FileName.clear();
        dialog.Flags = CommonDialog::OverwritePrompt;
        dialogs.expectFileDialog(title).accept(file);
        expectQuestion(QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(file),
                       QMessageBox::Yes);
        dialog.ShowSave();
        EXPECT_EQ(dialog.FileName, path) << name.what;
    }
}

TEST_F(CommonDialogTest, TakesANameThatExistsWithoutAskingByDefault)
{
    const QString path = made("one.rtf");
    dialogs.expectFileDialog(title).accept(QStringLiteral("one.rtf"));
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, path);
}

TEST_F(CommonDialogTest, ACancelLeavesTheNameAndIsSilent)
{
    dialog.FileName = QStringLiteral("before.rtf");
    dialogs.expectFileDialog(title).suggests(QStringLiteral("before.rtf")).cancel();
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, QStringLiteral("before.rtf"));
}

TEST_F(CommonDialogTest, ACancelIsAnErrorWhereAskedFor)
{
    dialog.CancelError = true;
    dialogs.expectFileDialog(title).cancel();
    dialogs.expectFileDialog(title).cancel();
    EXPECT_EQ(errorNumberOf([&] { dialog.ShowSave(); }), ErrorNumber::DialogCancelled);
    EXPECT_EQ(errorNumberOf([&] { dialog.ShowOpen(); }), ErrorNumber::DialogCancelled);
    EXPECT_TRUE(dialog.FileName.isEmpty());
}

TEST_F(CommonDialogTest, KeepsItsSettingsFromOneShowingToTheNext)
{
    dialogs.expectFileDialog(title).accept(QStringLiteral("one"));
    dialogs.expectFileDialog(title).suggests(QStringLiteral("one.rtf")).folder(home.path()).cancel();
    dialog.ShowSave();
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, home.file(QStringLiteral("one.rtf")));
}

TEST_F(CommonDialogTest, AWindowUnloadedWhileItsDialogIsUpLivesUntilItsHandlerReturns)
{
    QPointer<Form> owner = new Form(QStringLiteral("frmOwner"));
    owner->showModeless();
    dialogs.expectWindow<QFileDialog>(QStringLiteral("FileDialog"), [&](QFileDialog &shown) {
        owner->unload();
        shown.reject();
    });
    run([&] {
        CommonDialog owned(owner);
        owned.CancelError = true;
        EXPECT_EQ(errorNumberOf([&] { owned.ShowSave(); }), ErrorNumber::DialogCancelled);
        EXPECT_TRUE(owner);
    });
    QCoreApplication::processEvents();
    EXPECT_FALSE(owner);
}
