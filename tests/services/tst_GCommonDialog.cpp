#include "DialogDriver.h"
#include "DialogHook.h"
#include "Files.h"
#include "GCommonDialog.h"
#include "PrintQt.h"
#include "RuntimeError.h"
#include "ScratchHome.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr int readOnly = 1;
constexpr int hideReadOnly = 4;

struct GCommonDialogTest : testing::Test
{
    ScratchHome home;
    DialogDriver dialogs;
    GCommonDialog common;
    QString title = QStringLiteral("Choose Zip FIle to Open");
    OpenFileName open{.Filter = QStringLiteral("Zip Files (*.ZIP)|*.ZIP|All Files (*.*)|*.*"),
                      .InitDir = home.path(),
                      .DlgTitle = title,
                      .DefaultExt = QStringLiteral("ZIP")};
    SaveFileName save{.Filter = open.Filter, .InitDir = home.path(), .DlgTitle = title};

    QString made(const char *name)
    {
        const QString path = home.file(QString::fromLatin1(name));
        Files::write(path, "x");
        return path;
    }
    using Act = std::function<void(QFileDialog &)>;
    void onDialog(Act act)
    {
        dialogs.expectWindow<QFileDialog>(QStringLiteral("FileDialog"), std::move(act));
    }
    /// Types \a name and presses Enter.
    static void take(QFileDialog &dialog, const QString &name)
    {
        auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    static void chooseNextFilter(QFileDialog &dialog)
    {
        QTest::keyClick(dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo")), Qt::Key_Down);
    }
};

QString shownFilter(const QFileDialog &dialog)
{
    return dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"))->currentText();
}

/// Records its calls, and refuses \a refusals times.
struct NotingHook : DialogHook
{
    QStringList notes;
    int refusals = 0;
    bool failsAtOnce = false;

    void InitDialog(WId window) override
    {
        notes << QStringLiteral("init %1").arg(window != 0);
        if (failsAtOnce)
            throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    void TypeChange(int index) override { notes << QStringLiteral("type %1").arg(index); }
    void FolderChange(const QString &folder) override { notes << QStringLiteral("folder ") + folder; }
    void FileChange(const QString &path) override { notes << QStringLiteral("file ") + path; }
    bool ConfirmOK(const QString &path) override
    {
        notes << QStringLiteral("ok ") + path;
        return refusals-- <= 0;
    }
    void DialogClose() override { notes << QStringLiteral("close"); }
};

} // namespace

TEST_F(GCommonDialogTest, OpensAFileAndWritesBackWhatIsInOut)
{
    const QString path = made("one.zip");
    dialogs.expectFileDialog(title)
        .folder(home.path())
        .filters({QStringLiteral("Zip Files (*.ZIP)"), QStringLiteral("All Files (*.*)")})
        .accept(QStringLiteral("one.zip"));
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_EQ(open.FileName, path);
    EXPECT_EQ(open.FileTitle, QStringLiteral("one.zip"));
    EXPECT_EQ(open.Filter, QStringLiteral("Zip Files (*.ZIP)|*.ZIP"));
    EXPECT_EQ(open.FilterIndex, 1);
    EXPECT_FALSE(open.ReadOnly);
    EXPECT_EQ(open.Flags, 4096 | hideReadOnly);
    EXPECT_EQ(common.APIReturn(), 1);
    EXPECT_EQ(common.ExtendedError(), 0);
}

TEST_F(GCommonDialogTest, ACancelGivesFalseAndChangesNothing)
{
    open.FileName = QStringLiteral("before.zip");
    open.Flags = 32;
    dialogs.expectFileDialog(title).suggests(QStringLiteral("before.zip")).cancel();
    EXPECT_FALSE(common.VBGetOpenFileName(open));
    EXPECT_EQ(open.FileName, QStringLiteral("before.zip"));
    EXPECT_TRUE(open.FileTitle.isEmpty());
    EXPECT_EQ(open.Flags, 32);
    EXPECT_EQ(common.APIReturn(), 0);
    EXPECT_EQ(common.ExtendedError(), 0);
}

TEST_F(GCommonDialogTest, ColonsMayReplaceBarsInAFilter)
{
    made("one.zip");
    open.Filter = QStringLiteral("Zip Files (*.zip):*.zip:All Files (*.*):*.*");
    open.FilterIndex = 2;
    dialogs.expectFileDialog(title)
        .filters({QStringLiteral("Zip Files (*.zip)"), QStringLiteral("All Files (*.*)")})
        .accept(QStringLiteral("one.zip"));
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_EQ(open.FilterIndex, 2);
    EXPECT_EQ(open.Filter, QStringLiteral("All Files (*.*)|*.*"));
}

TEST_F(GCommonDialogTest, TheChosenFilterComesBack)
{
    made("one.zip");
    onDialog([](QFileDialog &dialog) {
        EXPECT_EQ(shownFilter(dialog), QStringLiteral("Zip Files (*.ZIP)"));
        chooseNextFilter(dialog);
        take(dialog, QStringLiteral("one.zip"));
    });
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_EQ(open.FilterIndex, 2);
}

TEST_F(GCommonDialogTest, AFilterIndexOutsideShowsTheFirst)
{
    open.FilterIndex = 7;
    onDialog([](QFileDialog &dialog) {
        EXPECT_EQ(shownFilter(dialog), QStringLiteral("Zip Files (*.ZIP)"));
        dialog.reject();
    });
    EXPECT_FALSE(common.VBGetOpenFileName(open));
    EXPECT_EQ(open.FilterIndex, 7);
}

TEST_F(GCommonDialogTest, AMissingFileIsTakenWhereItNeedNotExist)
{
    dialogs.expectFileDialog(title).accept(QStringLiteral("gone.zip"));
    dialogs.expectBox(title,
                      QStringLiteral("gone.zip\nFile not found.\nPlease verify the correct file name was "
                                     "given."));
    dialogs.expectFileDialog(title).cancel();
    EXPECT_FALSE(common.VBGetOpenFileName(open));

    open.FileMustExist = false;
    dialogs.expectFileDialog(title).accept(QStringLiteral("gone"));
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_EQ(open.FileName, home.file(QStringLiteral("gone.ZIP")));
    EXPECT_EQ(open.Flags & 4096, 0);
}

TEST_F(GCommonDialogTest, SeveralFilesComeAsTheirFolderAndTheirNames)
{
    made("a b.zip");
    made("two.zip");
    open.MultiSelect = true;
    dialogs.expectFileDialog(title).accept(QStringLiteral("\"a b.zip\" \"two.zip\""));
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_EQ(open.FileName.split(QChar(u'\0')),
              QStringList({home.path(), QStringLiteral("a b.zip"), QStringLiteral("two.zip")}));
    EXPECT_TRUE(open.FileTitle.isEmpty());
    EXPECT_EQ(open.Flags & 512, 512);

    open.FileName.clear();
    dialogs.expectFileDialog(title).accept(QStringLiteral("two.zip"));
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_EQ(open.FileName, home.file(QStringLiteral("two.zip")));
}

TEST_F(GCommonDialogTest, TheReadOnlyBoxComesBackAsItWasLeft)
{
    made("one.zip");
    open.HideReadOnly = false;
    for (const bool before : {false, true}) {
        open.FileName.clear();
        open.Flags = 0;
        open.ReadOnly = before;
        onDialog([before](QFileDialog &dialog) {
            auto *box = dialog.findChild<QCheckBox *>(QStringLiteral("readOnlyBox"));
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE(box->isVisible());
            EXPECT_EQ(box->isChecked(), before);
            box->click();
            take(dialog, QStringLiteral("one.zip"));
        });
        EXPECT_TRUE(common.VBGetOpenFileName(open));
        EXPECT_EQ(open.ReadOnly, !before);
        EXPECT_EQ(open.Flags & readOnly, before ? 0 : readOnly);
    }
}

TEST_F(GCommonDialogTest, WithoutItsBoxTheReadOnlyBitStays)
{
    made("one.zip");
    open.ReadOnly = true;
    onDialog([](QFileDialog &dialog) {
        EXPECT_EQ(dialog.findChild<QCheckBox *>(QStringLiteral("readOnlyBox")), nullptr);
        take(dialog, QStringLiteral("one.zip"));
    });
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_TRUE(open.ReadOnly);
    EXPECT_EQ(open.Flags, 4096 | hideReadOnly | readOnly);
}

TEST_F(GCommonDialogTest, FurtherBitsPassButThoseOfTheHook)
{
    made("one.zip");
    open.Flags = 32 | 64 | 2048;
    dialogs.expectFileDialog(title).accept(QStringLiteral("one.zip"));
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_EQ(open.Flags, 2048 | 4096 | hideReadOnly);
}

TEST_F(GCommonDialogTest, TheOwnerOwnsTheDialog)
{
    QWidget owner;
    open.Owner = &owner;
    onDialog([&owner](QFileDialog &dialog) {
        EXPECT_EQ(dialog.parentWidget(), &owner);
        dialog.reject();
    });
    EXPECT_FALSE(common.VBGetOpenFileName(open));
}

TEST_F(GCommonDialogTest, SavesUnderANewNameAndAsksBeforeOneThatExists)
{
    const QString path = made("one.zip");
    save.DefaultExt = QStringLiteral("zip");
    dialogs.expectFileDialog(title).accept(QStringLiteral("one"));
    dialogs.expectBox(title, QStringLiteral("one.zip already exists.\nDo you want to replace it?"))
        .press(QMessageBox::Yes);
    EXPECT_TRUE(common.VBGetSaveFileName(save));
    EXPECT_EQ(save.FileName, path);
    EXPECT_EQ(save.FileTitle, QStringLiteral("one.zip"));
    EXPECT_EQ(save.Flags, 2);

    save.OverwritePrompt = false;
    save.Flags = 0;
    dialogs.expectFileDialog(title).accept(QStringLiteral("one"));
    EXPECT_TRUE(common.VBGetSaveFileName(save));
    EXPECT_EQ(save.FileName, path);
}

TEST_F(GCommonDialogTest, TheHookFollowsTheDialog)
{
    const QString path = made("one.zip");
    QDir(home.path()).mkdir(QStringLiteral("below"));
    NotingHook hook;
    open.Hook = &hook;
    onDialog([](QFileDialog &dialog) {
        chooseNextFilter(dialog);
        take(dialog, QStringLiteral("below"));
        take(dialog, QStringLiteral(".."));
        Q_EMIT dialog.currentChanged(QStringLiteral("/x"));
        take(dialog, QStringLiteral("one.zip"));
    });
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_EQ(hook.notes.first(), QStringLiteral("init 1"));
    EXPECT_TRUE(hook.notes.contains(QStringLiteral("type 2")));
    EXPECT_TRUE(hook.notes.contains(QStringLiteral("folder ") + home.file(QStringLiteral("below"))));
    EXPECT_TRUE(hook.notes.contains(QStringLiteral("file /x")));
    EXPECT_EQ(hook.notes.mid(hook.notes.size() - 2),
              QStringList({QStringLiteral("ok ") + path, QStringLiteral("close")}));
    EXPECT_EQ(open.Hook, nullptr);
}

TEST_F(GCommonDialogTest, TheHookMayKeepTheDialogOpen)
{
    const QString path = made("one.zip");
    NotingHook hook;
    hook.refusals = 1;
    open.Hook = &hook;
    onDialog([](QFileDialog &dialog) {
        take(dialog, QStringLiteral("one.zip"));
        EXPECT_TRUE(dialog.isVisible());
        take(dialog, QStringLiteral("one.zip"));
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(common.VBGetOpenFileName(open));
    EXPECT_EQ(hook.notes.count(QStringLiteral("ok ") + path), 2);
}

TEST_F(GCommonDialogTest, ACancelDoesNotAskTheHook)
{
    NotingHook hook;
    open.Hook = &hook;
    dialogs.expectFileDialog(title).cancel();
    EXPECT_FALSE(common.VBGetOpenFileName(open));
    EXPECT_EQ(hook.notes, QStringList({QStringLiteral("init 1"), QStringLiteral("close")}));
}

TEST_F(GCommonDialogTest, ADialogThatFailsGivesFalseAndItsError)
{
    NotingHook hook;
    hook.failsAtOnce = true;
    open.Hook = &hook;
    EXPECT_FALSE(common.VBGetOpenFileName(open));
    EXPECT_EQ(common.APIReturn(), 0);
    EXPECT_EQ(common.ExtendedError(), ErrorNumber::InvalidProcedureCall);
    EXPECT_TRUE(dialogs.seen().isEmpty());

    dialogs.expectFileDialog(title).cancel();
    EXPECT_FALSE(common.VBGetOpenFileName(open));
    EXPECT_EQ(common.ExtendedError(), 0);
}

TEST_F(GCommonDialogTest, AFileTitleIsTheNameAtTheEnd)
{
    const std::pair<QString, const char *> cases[] = {
        {QStringLiteral("/home/a/one.zip"), "one.zip"},
        {QStringLiteral("/home\\docs\\one.zip"), "one.zip"},
        {QStringLiteral("one"), "one"},
        {QStringLiteral("/home/one\0two"), "one"},
        {QStringLiteral("/home/"), ""},
        {QString(), ""},
    };
    for (const auto &[path, name] : cases)
        EXPECT_EQ(GCommonDialog::VBGetFileTitle(path), QString::fromLatin1(name));
}

TEST_F(GCommonDialogTest, ChoosesAColour)
{
    int color = 0x0000FF; // red
    dialogs.expectWindow<QColorDialog>(QStringLiteral("ColorDialog"), [](QColorDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Colour Picker"));
        EXPECT_EQ(dialog.currentColor(), QColor(255, 0, 0));
        dialog.setCurrentColor(QColor(1, 2, 3));
        dialog.accept();
    });
    EXPECT_TRUE(common.VBChooseColor(color, nullptr, QStringLiteral("Colour Picker")));
    EXPECT_EQ(color, 0x030201);
    EXPECT_EQ(common.APIReturn(), 1);
}

TEST_F(GCommonDialogTest, ACancelledColourStays)
{
    int color = 0x123456;
    dialogs.expectWindow<QColorDialog>(QStringLiteral("ColorDialog"), [](QColorDialog &dialog) {
        dialog.setCurrentColor(QColor(1, 2, 3));
        dialog.reject();
    });
    EXPECT_FALSE(common.VBChooseColor(color));
    EXPECT_EQ(color, 0x123456);
    EXPECT_EQ(common.APIReturn(), 0);
}

TEST_F(GCommonDialogTest, EachInstanceHas16ColoursOfItsOwn)
{
    GCommonDialog other;
    common.setCustomColor(0, 0x0000FF);
    common.setCustomColor(15, 0x00FF00);
    other.setCustomColor(0, 0x111111);
    int color = 0;
    dialogs.expectWindow<QColorDialog>(QStringLiteral("ColorDialog"), [](QColorDialog &dialog) {
        EXPECT_EQ(QColorDialog::customColor(0), QColor(255, 0, 0));
        EXPECT_EQ(QColorDialog::customColor(15), QColor(0, 255, 0));
        QColorDialog::setCustomColor(3, QColor(1, 2, 3));
        dialog.reject();
    });
    EXPECT_FALSE(common.VBChooseColor(color));
    EXPECT_EQ(common.CustomColor(3), 0x030201);
    EXPECT_EQ(common.CustomColor(0), 0x0000FF);
    EXPECT_EQ(other.CustomColor(0), 0x111111);
    EXPECT_EQ(other.CustomColor(3), 0xFFFFFF);
}

TEST_F(GCommonDialogTest, ACustomColourOutsideIsIgnored)
{
    for (const int index : {-1, 16}) {
        common.setCustomColor(index, 5);
        EXPECT_EQ(common.CustomColor(index), -1);
    }
}
