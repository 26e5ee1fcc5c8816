#include "AsUser.h"
#include "FileAttributes.h"
#include "Files.h"
#include "FullDisk.h"
#include "ImageWindow.h"
#include "PrintQt.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLocale>

namespace {

using namespace FileAttributes;

struct FileOperationsWindowTest : testing::Test
{
    ImageWindow window;
    frmFileOperations *shown = nullptr;

    FileOperationsWindowTest()
    {
        window.open();
        window.scratch.addFile("other", "12345");
    }

    /// Opens the window and runs \a steps in it, each of which may open a dialog that it has expected before,
    /// then closes it.
    void inWindow(std::function<void()> steps)
    {
        window.frame.dialogs.expectWindow<frmFileOperations>(QStringLiteral("frmFileOperations"),
                                                             [this, steps](frmFileOperations &form) {
                                                                 shown = &form;
                                                                 steps();
                                                                 button("cmdOK").click();
                                                                 EXPECT_FALSE(form.isLoaded());
                                                             });
        window.choose("mnuFileProperties");
    }
    void openPicture() { window.openPicture(20, 15); } // 954 bytes

    QPushButton &button(const char *name) { return shown->member<QPushButton>(QString::fromLatin1(name)); }
    QCheckBox &box(const char *name) { return shown->member<QCheckBox>(QString::fromLatin1(name)); }
    QString text(const char *name) { return shown->member<QLabel>(QString::fromLatin1(name)).text(); }
    QString boxes()
    {
        QStringList checked;
        for (const char *name :
             {"chkNormal", "chkReadOnly", "chkHidden", "chkArchive", "chkSystem", "chkTemporary"}) {
            if (box(name).isChecked())
                checked << box(name).text();
        }
        return checked.join(u' ');
    }
    bool isEnabled()
    {
        const auto state = [this](const char *name) {
            return shown->member<QWidget>(QString::fromLatin1(name)).isEnabled();
        };
        const bool first = state("cmdMove");
        for (const char *name : {"cmdCopy", "cmdDelete", "cmdApply", "chkNormal", "chkReadOnly", "chkHidden",
                                 "chkArchive", "chkSystem", "chkTemporary"})
            EXPECT_EQ(state(name), first) << name;
        EXPECT_TRUE(state("cmdLoad") && state("cmdOK"));
        return first;
    }
    QString path(const QByteArray &name) { return window.path(name); }
    QStringList names() { return QDir(window.scratch.path()).entryList(QDir::Files | QDir::Hidden); }

    DialogDriver &dialogs() { return window.frame.dialogs; }
    void press(const char *name) { button(name).click(); }
    void load(const QByteArray &name)
    {
        dialogs()
            .expectFileDialog(QStringLiteral("Open"))
            .filters({QStringLiteral("All Files (*.*)")})
            .accept(path(name));
        press("cmdLoad");
    }
    void expectDeletion(QMessageBox::StandardButton answer)
    {
        dialogs()
            .expectBox(QStringLiteral("Question"),
                       QStringLiteral("Are you sure you want to delete this file?"))
            .icon(QMessageBox::Question)
            .buttons(QMessageBox::Yes | QMessageBox::No)
            .press(answer);
    }
    void expectError(const QString &title, const QString &text)
    {
        dialogs().expectBox(title, text).icon(QMessageBox::Critical);
    }
    void expectNoFile()
    {
        dialogs()
            .expectBox(QStringLiteral("Error"), QStringLiteral("No file loaded."))
            .icon(QMessageBox::Warning);
    }
};

} // namespace

TEST_F(FileOperationsWindowTest, WithoutAFileThereIsNothingToDo)
{
    inWindow([&] {
        EXPECT_EQ(shown->Caption(), QStringLiteral("File Properties/Operations"));
        EXPECT_EQ(text("lblName"), QStringLiteral("No File Loaded!"));
        EXPECT_EQ(text("lblAttr"), QStringLiteral("No File Loaded"));
        EXPECT_EQ(text("lblSize"), QStringLiteral("0 Bytes"));
        EXPECT_EQ(boxes(), QString());
        EXPECT_FALSE(isEnabled());
    });
}

TEST_F(FileOperationsWindowTest, HasItsCaptions)
{
    inWindow([&] {
        const std::pair<const char *, const char *> labels[] = {
            {"Label1", " File Details"}, {"lblFileName", "File Name:"},
            {"Label7", "File Size:"},    {"Label2", "Last Modified/Created:"},
            {"Label4", "Attributes:"},   {"Label3", " File Operations"},
        };
        for (const auto &[name, caption] : labels)
            EXPECT_EQ(text(name), QString::fromLatin1(caption));
        EXPECT_EQ(button("cmdApply").text(), QStringLiteral("Apply Attributes"));
        EXPECT_EQ(button("cmdDelete").text(), QStringLiteral("Delete File"));
        EXPECT_EQ(button("cmdOK").text(), QStringLiteral("Close"));
        for (const char *name : {"cmdApply", "cmdLoad", "cmdCopy", "cmdMove", "cmdDelete"})
            EXPECT_FALSE(button(name).icon().isNull()) << name;
    });
}

TEST_F(FileOperationsWindowTest, ShowsTheViewersFile)
{
    openPicture();
    FileAttributes::set(path("picture.bmp"), Archive | System);
    QFile file(path("picture.bmp"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime time(QDate(2024, 2, 29), QTime(13, 5));
    ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    inWindow([&] {
        EXPECT_EQ(text("lblName"), path("picture.bmp"));
        EXPECT_EQ(text("lblSize"), QStringLiteral("0.9316 KB"));
        EXPECT_EQ(text("lblModified"), QLocale().toString(time, QLocale::ShortFormat));
        EXPECT_EQ(text("lblAttr"), QStringLiteral("Archive, System"));
        EXPECT_EQ(boxes(), QStringLiteral("Archive System"));
        EXPECT_TRUE(isEnabled());
    });
}

TEST_F(FileOperationsWindowTest, AFileWithoutAttributesHasNoWords)
{
    openPicture();
    inWindow([&] { EXPECT_EQ(text("lblAttr"), QString()); });
}

TEST_F(FileOperationsWindowTest, AFileThatIsGoneIsReported)
{
    openPicture();
    ASSERT_TRUE(QFile::remove(path("picture.bmp")));
    expectError(QStringLiteral("System Error"), QStringLiteral("Error 53: File not found"));
    inWindow([&] { EXPECT_EQ(text("lblName"), path("picture.bmp")); });
}

TEST_F(FileOperationsWindowTest, LoadsAnotherFileAndKeepsTheBoxes)
{
    openPicture();
    FileAttributes::set(path("picture.bmp"), Archive);
    FileAttributes::set(path("other"), Hidden);
    inWindow([&] {
        load("other");
        EXPECT_EQ(text("lblName"), path("other"));
        EXPECT_EQ(text("lblSize"), QStringLiteral("0.0049 KB"));
        EXPECT_EQ(text("lblAttr"), QStringLiteral("Hidden"));
        EXPECT_EQ(boxes(), QStringLiteral("Hidden Archive"));
    });
    EXPECT_EQ(window.form().FileDialog().FileName, path("other"));
}

TEST_F(FileOperationsWindowTest, LoadsAFileWhereThereWasNone)
{
    inWindow([&] {
        dialogs().expectFileDialog(QStringLiteral("Open")).cancel();
        press("cmdLoad");
        EXPECT_FALSE(isEnabled());
        load("other");
        EXPECT_TRUE(isEnabled());
    });
}

TEST_F(FileOperationsWindowTest, AppliesTheAttributes)
{
    openPicture();
    const AsUser user(window.scratch.path());
    inWindow([&] {
        for (const char *name : {"chkReadOnly", "chkHidden", "chkArchive", "chkSystem", "chkTemporary"})
            box(name).click();
        EXPECT_EQ(FileAttributes::of(path("picture.bmp")), 0);
        press("cmdApply");
        EXPECT_EQ(FileAttributes::of(path("picture.bmp")), 1 + 2 + 32 + 4 + 256);
        EXPECT_EQ(text("lblAttr"), QStringLiteral("Archive, Hidden, Read-Only, System, Temporary"));
        box("chkReadOnly").click();
        box("chkHidden").click();
        press("cmdApply");
        EXPECT_EQ(FileAttributes::of(path("picture.bmp")), 32 + 4 + 256);
    });
}

TEST_F(FileOperationsWindowTest, NormalTakesAllAttributesAtOnce)
{
    openPicture();
    FileAttributes::set(path("picture.bmp"), Archive | Hidden | Temporary);
    inWindow([&] {
        box("chkNormal").click();
        EXPECT_EQ(FileAttributes::of(path("picture.bmp")), 0);
        EXPECT_EQ(boxes(), QStringLiteral("Normal"));
        box("chkArchive").click();
        box("chkNormal").click(); // taken away it does nothing
        EXPECT_EQ(boxes(), QStringLiteral("Archive"));
    });
}

TEST_F(FileOperationsWindowTest, AttributesThatCannotBeSetAreNotReported)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs root to make a file of another user";
    openPicture();
    inWindow([&] {
        box("chkHidden").click();
        const AsUser user(QDir::homePath()); // the file is root's
        press("cmdApply");
        EXPECT_EQ(text("lblAttr"), QString());
    });
    EXPECT_EQ(FileAttributes::of(path("picture.bmp")), 0);
}

TEST_F(FileOperationsWindowTest, CopiesTheFile)
{
    openPicture();
    inWindow([&] {
        dialogs().expectFileDialog(QStringLiteral("Copy to\u2026")).accept(path("copy.bmp"));
        press("cmdCopy");
        EXPECT_EQ(text("lblName"), path("picture.bmp"));
    });
    EXPECT_EQ(Files::read(path("copy.bmp")), Files::read(path("picture.bmp")));
}

TEST_F(FileOperationsWindowTest, ACopyAsksBeforeItReplaces)
{
    openPicture();
    inWindow([&] {
        dialogs().expectFileDialog(QStringLiteral("Copy to\u2026")).accept(path("other"));
        dialogs()
            .expectBox(QStringLiteral("Copy to\u2026"),
                       QStringLiteral("other already exists.\nDo you want to replace it?"))
            .press(QMessageBox::Yes);
        press("cmdCopy");
    });
    EXPECT_EQ(Files::read(path("other")), Files::read(path("picture.bmp")));
}

TEST_F(FileOperationsWindowTest, ACopyOrMoveOntoItselfLeavesTheFile)
{
    openPicture();
    const QByteArray before = Files::read(path("picture.bmp"));
    window.scratch.addLink("link.bmp", "picture.bmp");
    const std::pair<const char *, QString> operations[] = {{"cmdCopy", QStringLiteral("Copy to\u2026")},
                                                           {"cmdMove", QStringLiteral("Move to...")}};
    inWindow([&] {
        for (const auto &[operation, title] : operations) {
            for (const char *name : {"picture.bmp", "link.bmp"}) {
                dialogs().expectFileDialog(title).accept(path(name));
                dialogs()
                    .expectBox(title, QString::fromLatin1(name) +
                                          QStringLiteral(" already exists.\nDo you want to replace it?"))
                    .press(QMessageBox::Yes);
                expectError(
                    QStringLiteral("Access Error"),
                    QStringLiteral("Access denied. Make sure the write protection is turned off at the "
                                   "source you are saving to."));
                press(operation);
                EXPECT_EQ(Files::read(path("picture.bmp")), before);
            }
        }
        EXPECT_EQ(text("lblName"), path("picture.bmp"));
    });
}

TEST_F(FileOperationsWindowTest, AFullDiskLeavesTheFileWhereItIs)
{
    openPicture();
    inWindow([&] {
        for (const auto &[operation, title] : {std::pair("cmdCopy", QStringLiteral("Copy to\u2026")),
                                               std::pair("cmdMove", QStringLiteral("Move to..."))}) {
            dialogs().expectFileDialog(title).accept(path("new.bmp"));
            expectError(QStringLiteral("Disk Full Error"),
                        QStringLiteral("The disk is full. Try deleting some files before saving."));
            const FullDisk full(100);
            press(operation);
        }
        EXPECT_EQ(text("lblName"), path("picture.bmp"));
    });
    EXPECT_EQ(names(), QStringList({QStringLiteral("other"), QStringLiteral("picture.bmp")}));
}

TEST_F(FileOperationsWindowTest, ACancelledDialogIsSilent)
{
    openPicture();
    inWindow([&] {
        dialogs().expectFileDialog(QStringLiteral("Copy to\u2026")).cancel();
        press("cmdCopy");
        dialogs().expectFileDialog(QStringLiteral("Move to...")).cancel();
        press("cmdMove");
        dialogs().expectFileDialog(QStringLiteral("Open")).cancel();
        press("cmdLoad");
        EXPECT_EQ(text("lblName"), path("picture.bmp"));
    });
    EXPECT_EQ(names().size(), 2);
}

TEST_F(FileOperationsWindowTest, MovesTheFile)
{
    openPicture();
    const QByteArray before = Files::read(path("picture.bmp"));
    inWindow([&] {
        dialogs().expectFileDialog(QStringLiteral("Move to...")).accept(path("moved.bmp"));
        press("cmdMove");
        EXPECT_EQ(text("lblName"), path("moved.bmp"));
    });
    EXPECT_EQ(names(), QStringList({QStringLiteral("moved.bmp"), QStringLiteral("other")}));
    EXPECT_EQ(Files::read(path("moved.bmp")), before);
}

TEST_F(FileOperationsWindowTest, DeletesOnlyAfterYes)
{
    openPicture();
    inWindow([&] {
        expectDeletion(QMessageBox::No);
        press("cmdDelete");
        EXPECT_EQ(text("lblName"), path("picture.bmp"));
    });
    EXPECT_EQ(names().size(), 2);
}

TEST_F(FileOperationsWindowTest, TheViewerKeepsItsPictureAfterItsFileIsDeleted)
{
    openPicture();
    FileAttributes::set(path("picture.bmp"), Archive);
    inWindow([&] {
        box("chkNormal").setChecked(true);
        expectDeletion(QMessageBox::Yes);
        press("cmdDelete");
        EXPECT_EQ(text("lblName"), QStringLiteral("No File Loaded"));
        EXPECT_EQ(text("lblAttr"), QStringLiteral("No File Loaded"));
        EXPECT_EQ(text("lblSize"), QStringLiteral("0 Bytes"));
        EXPECT_EQ(text("lblModified"), QStringLiteral("--/--/---- --:--:-- --"));
        EXPECT_EQ(boxes(), QString());
        EXPECT_FALSE(isEnabled());
    });
    EXPECT_EQ(names(), QStringList(QStringLiteral("other")));
    EXPECT_EQ(window.picture().Picture().size(), QSize(20, 15));
}

TEST_F(FileOperationsWindowTest, AfterAnotherFileIsDeletedTheViewersIsShown)
{
    openPicture();
    inWindow([&] {
        load("other");
        expectDeletion(QMessageBox::Yes);
        press("cmdDelete");
        EXPECT_EQ(text("lblName"), path("picture.bmp"));
        EXPECT_TRUE(isEnabled());
    });
    EXPECT_EQ(names(), QStringList(QStringLiteral("picture.bmp")));
}

TEST_F(FileOperationsWindowTest, WhatCannotBeDeletedIsReported)
{
    openPicture();
    inWindow([&] {
        ASSERT_TRUE(QFile::remove(path("picture.bmp")));
        expectDeletion(QMessageBox::Yes);
        expectError(QStringLiteral("System Error"), QStringLiteral("Error 53: File not found"));
        press("cmdDelete");
        EXPECT_EQ(text("lblName"), path("picture.bmp"));
        EXPECT_TRUE(isEnabled());
    });
}

TEST_F(FileOperationsWindowTest, WithoutAFileEachOperationSaysSo)
{
    inWindow([&] {
        for (const char *name : {"cmdCopy", "cmdMove", "cmdDelete"}) {
            button(name).setEnabled(true);
            expectNoFile();
            press(name);
        }
        box("chkNormal").setEnabled(true);
        expectNoFile();
        box("chkNormal").click();
    });
}
