#include "DropFiles.h"
#include "EventGate.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "RowName.h"
#include "TestData.h"
#include "Tool.h"
#include "UnzipWindow.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

const QString complete = QStringLiteral("UnZipping complete..");

struct frmUnzipJobTest : testing::Test
{
    UnzipWindow window;

    void expectQuestion(const QString &name, const char *button, bool all = false)
    {
        window.frame.dialogs.expectWindow<frmOverwrite>(
            QStringLiteral("frmOverwrite"), [=](frmOverwrite &question) {
                EXPECT_EQ(question.TheCaption(),
                          QStringLiteral("Do you want to overwrite the existing copy of ") + name + u'?');
                if (all)
                    question.member<QCheckBox>(QStringLiteral("chkAllFiles")).click();
                question.member<QPushButton>(QString::fromLatin1(button)).click();
            });
    }
    void expectPassword(const QString &password)
    {
        window.frame.dialogs.expectWindow<frmPassword>(QStringLiteral("frmPassword"), [=](frmPassword &box) {
            box.member<QLineEdit>(QStringLiteral("txtPassword")).setText(password);
            box.member<QPushButton>(QString::fromLatin1(password.isEmpty() ? "cmdCancel" : "cmdOK")).click();
        });
    }
    /// An archive by zip of a secret and a plain file.
    void makeSecret() const
    {
        window.scratch.addFile("secret.txt", "secret");
        window.scratch.addFile("plain.txt", "plain");
        const QByteArray folder = window.scratch.file("");
        ASSERT_EQ(Tool::run("zip", {"-q", "-P", "key", "a.zip", "secret.txt"}, folder).code, 0);
        ASSERT_EQ(Tool::run("zip", {"-q", "a.zip", "plain.txt"}, folder).code, 0);
    }
    void openMany()
    {
        QList<MadeEntry> entries;
        for (int i = 0; i < 100; ++i) {
            entries +=
                UnzipWindow::entry("noise" + QByteArray::number(i), TestData::noise(200000, quint32(i)));
            entries.last().isDeflated = true;
        }
        window.openWith(entries);
    }
};

struct frmUnzipExtractNameTest : frmUnzipJobTest, testing::WithParamInterface<HostileName>
{};

struct ReplyCase
{
    const char *name;
    const char *button; // of the first question
    bool all;
    bool asksAgain;
    const char *first; // what the files hold afterwards
    const char *second;
};

struct frmUnzipReplyTest : frmUnzipJobTest, testing::WithParamInterface<ReplyCase>
{};

constexpr ReplyCase replies[] = {
    {"Yes", "cmdYes", false, true, "new", "old"},
    {"YesToAll", "cmdYes", true, false, "new", "new"},
    {"No", "cmdNo", false, true, "old", "old"},
    {"NoToAll", "cmdNo", true, false, "old", "old"},
    {"Cancel", "cmdCancel", false, false, "old", "old"},
    {"CancelAll", "cmdCancel", true, false, "old", "old"},
};

} // namespace

TEST_F(frmUnzipJobTest, NoSelectionExtractsAll)
{
    window.openWith({UnzipWindow::entry("a.txt", "first"), UnzipWindow::entry("b.txt", "second")});
    window.extract();
    EXPECT_EQ(window.files(), (QMap<QByteArray, QByteArray>{{"a.txt", "first"}, {"b.txt", "second"}}));
    EXPECT_EQ(window.status(), complete);
}

TEST_F(frmUnzipJobTest, TheSelectionIsExtracted)
{
    window.openWith(
        {UnzipWindow::entry("a.txt"), UnzipWindow::entry("d/b.txt"), UnzipWindow::entry("c.txt")});
    window.view().setSelected(2, true);
    window.expectFolder(window.path("out"));
    window.choose("mnuFile_1");
    EXPECT_EQ(window.files().keys(), QByteArrayList{"b.txt"});
    window.view().setSelected(2, false); // none is all again
    window.extract();
    EXPECT_EQ(window.files().keys(), QByteArrayList({"a.txt", "b.txt", "c.txt"}));
}

TEST_F(frmUnzipJobTest, FolderNamesAreUsedWhereTheBoxSaysSo)
{
    window.openWith({UnzipWindow::entry("d/e/"), UnzipWindow::entry("d/b.txt")});
    window.choose("mnuusefolders");
    window.extract();
    EXPECT_EQ(window.files().keys(), QByteArrayList{"d/b.txt"});
    EXPECT_TRUE(std::filesystem::is_directory((window.scratch.file("out") + "/d/e").constData()));
    EXPECT_TRUE(window.unzip().UseFolderNames());
}

TEST_F(frmUnzipJobTest, ACancelledFolderExtractsNothingAndSaysComplete)
{
    window.openWith({UnzipWindow::entry("a.txt")});
    window.expectCancelledFolder();
    window.click("cmdExtract");
    EXPECT_EQ(window.files().size(), 0);
    EXPECT_EQ(window.status(), complete);
    EXPECT_TRUE(window.unzip().FileSelected(1));
}

TEST_F(frmUnzipJobTest, AFailureSaysCompleteToo)
{
    MadeEntry damaged = UnzipWindow::entry("a.txt");
    damaged.crc = 1;
    window.openWith({damaged});
    window.extract();
    EXPECT_EQ(window.files().size(), 0);
    EXPECT_EQ(window.status(), complete);
}

TEST_F(frmUnzipJobTest, TheNextExtractionBeginsInTheLastFolder)
{
    window.openWith({UnzipWindow::entry("a.txt")});
    window.extract();
    window.close();
    window.open();
    window.openArchive("a.zip");
    window.frame.dialogs.expectWindow<QDialog>(QStringLiteral("FolderDialog"), [this](QDialog &dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit *>(QStringLiteral("txtFolder"))->text(), window.path("out"));
        dialog.reject();
    });
    window.click("cmdExtract");
}

TEST_F(frmUnzipJobTest, ANewFolderIsMade)
{
    window.openWith({UnzipWindow::entry("a.txt", "first")});
    window.expectFolder(window.path("out/new"));
    window.click("cmdExtract");
    EXPECT_EQ(window.files().value("new/a.txt"), "first");
}

TEST_F(frmUnzipJobTest, TheStatusHasTheMessages)
{
    window.openWith({UnzipWindow::entry("a.txt"), UnzipWindow::entry("b.txt")});
    QStringList seen;
    on(&window.unzip(), &cUnzip::Progress, &window.form(), [&](int, const QString &text) {
        EXPECT_EQ(window.status(), text);
        seen << text;
    });
    window.extract();
    EXPECT_TRUE(seen.join(u'\n').contains(QStringLiteral("b.txt")));
}

/// As the library has no room for more names, and nothing catches that.
TEST_F(frmUnzipJobTest, MoreThan1023SelectedFilesEndTheProcess)
{
    QList<MadeEntry> entries;
    for (int i = 0; i < 1025; ++i)
        entries += UnzipWindow::entry("f" + QByteArray::number(i), {});
    window.openWith(entries);
    window.click("cmdAll");
    window.view().setSelected(1, false);
    window.view().setSelected(2, false);
    window.extract();
    EXPECT_EQ(window.files().size(), 1023);
    window.view().setSelected(1, true);
    window.frame.fatal.expect(9);
    window.extract();
    EXPECT_TRUE(window.isEnabled("cmdExtract"));
}

// ---- Files that exist

TEST_F(frmUnzipJobTest, WithoutThePromptFilesStay)
{
    window.scratch.addFile("out/a.txt", "old");
    window.openWith({UnzipWindow::entry("a.txt", "new")});
    window.extract();
    EXPECT_EQ(window.files().value("a.txt"), "old");
}

TEST_P(frmUnzipReplyTest, TheAnswerCounts)
{
    window.scratch.addFile("out/a.txt", "old");
    window.scratch.addFile("out/b.txt", "old");
    window.openWith({UnzipWindow::entry("a.txt", "new"), UnzipWindow::entry("b.txt", "new")});
    window.choose("mnuoverrideprompt");
    window.expectFolder(window.path("out"));
    expectQuestion(QStringLiteral("a.txt"), GetParam().button, GetParam().all);
    if (GetParam().asksAgain)
        expectQuestion(QStringLiteral("b.txt"), "cmdNo");
    window.click("cmdExtract");
    EXPECT_EQ(window.files().value("a.txt"), GetParam().first);
    EXPECT_EQ(window.files().value("b.txt"), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Replies, frmUnzipReplyTest, testing::ValuesIn(replies), RowName());

// ---- Passwords

TEST_F(frmUnzipJobTest, AsksForThePassword)
{
    makeSecret();
    window.openArchive("a.zip");
    EXPECT_EQ(window.names().value(0), QStringLiteral("+secret.txt"));
    window.expectFolder(window.path("out"));
    expectPassword(QStringLiteral("key"));
    window.click("cmdExtract");
    EXPECT_EQ(window.files(),
              (QMap<QByteArray, QByteArray>{{"secret.txt", "secret"}, {"plain.txt", "plain"}}));
}

TEST_F(frmUnzipJobTest, WithoutAPasswordThePlainFilesCome)
{
    makeSecret();
    window.openArchive("a.zip");
    window.expectFolder(window.path("out"));
    expectPassword({});
    window.click("cmdExtract");
    EXPECT_EQ(window.files().keys(), QByteArrayList{"plain.txt"});
    EXPECT_EQ(window.status(), complete);
}

// ---- While a job runs

TEST_F(frmUnzipJobTest, NothingElseCanBeBegunMeanwhile)
{
    window.openWith({UnzipWindow::entry("a.txt")});
    bool isChecked = false;
    on(&window.unzip(), &cUnzip::Progress, &window.form(), [&] {
        for (const char *name :
             {"cmdOpen", "cmdExtract", "cmdAll", "cmdInvert", "chkUseFolderNames", "chkOverwritePrompt"})
            EXPECT_FALSE(window.isEnabled(name)) << name;
        for (const char *name : {"mnuFile_0", "mnuFile_1", "mnuFile_2", "mnuEdit_0", "mnuEdit_1",
                                 "mnuusefolders", "mnuoverrideprompt"})
            EXPECT_FALSE(window.item(name).isEnabled()) << name;
        EXPECT_TRUE(window.item("mnuClose").isEnabled());
        dropFiles(window.form(), {window.scratch.file("a.zip")});
        EXPECT_EQ(window.names().size(), 1);
        isChecked = true;
    });
    window.extract();
    EXPECT_TRUE(isChecked);
    for (const char *name : {"cmdOpen", "cmdExtract", "cmdAll", "cmdInvert"})
        EXPECT_TRUE(window.isEnabled(name)) << name;
}

TEST_F(frmUnzipJobTest, TheWindowRepaintsMeanwhile)
{
    openMany();
    int ticks = 0;
    int ticksInTheJob = 0;
    QTimer timer;
    on(&timer, &QTimer::timeout, &window.form(), [&] { ++ticks; });
    on(&window.unzip(), &cUnzip::Cancel, &window.form(), [&] { ticksInTheJob = ticks; });
    timer.start(0);
    window.extract();
    EXPECT_GE(ticksInTheJob, 1);
    EXPECT_EQ(window.files().size(), 100);
}

TEST_F(frmUnzipJobTest, ClosingTheWindowEndsTheExtraction)
{
    openMany();
    bool closed = false;
    on(&window.unzip(), &cUnzip::Progress, &window.form(), [&] {
        if (!closed)
            window.choose("mnuClose");
        closed = true;
    });
    window.extract();
    window.settle();
    EXPECT_FALSE(window.isOpen());
    EXPECT_LT(window.files().size(), 100);
    const QByteArray noise = "noise";
    for (const QByteArray &name : window.files().keys())
        EXPECT_TRUE(name.startsWith(noise)) << name.constData(); // nothing half-written
}

TEST_F(frmUnzipJobTest, ClosingTheWindowEndsTheListing)
{
    window.scratch.addFile("many.zip", ArchiveMaker::makeMany(60000));
    int calls = 0;
    on(&window.unzip(), &cUnzip::Cancel, &window.form(), [&] {
        if (++calls == 2)
            window.closeInFrame();
    });
    EXPECT_TRUE(dropFiles(window.form(), {window.scratch.file("many.zip")}));
    window.settle();
    EXPECT_FALSE(window.isOpen());
    EXPECT_LE(calls, 3);
}

TEST_F(frmUnzipJobTest, ClosingItInTheQuestionLeavesTheFiles)
{
    window.scratch.addFile("out/a.txt", "old");
    window.openWith({UnzipWindow::entry("a.txt", "new"), UnzipWindow::entry("b.txt", "new")});
    window.choose("mnuoverrideprompt");
    window.expectFolder(window.path("out"));
    window.frame.dialogs.expectWindow<frmOverwrite>(QStringLiteral("frmOverwrite"),
                                                    [this](frmOverwrite &question) {
                                                        window.form().unload();
                                                        question.close();
                                                    });
    window.click("cmdExtract");
    window.settle();
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(window.files(), (QMap<QByteArray, QByteArray>{{"a.txt", "old"}}));
}

TEST_F(frmUnzipJobTest, ClosingItInThePasswordBoxSkipsTheSecret)
{
    makeSecret();
    window.openArchive("a.zip");
    window.expectFolder(window.path("out"));
    window.frame.dialogs.expectWindow<frmPassword>(QStringLiteral("frmPassword"), [this](frmPassword &box) {
        window.form().unload();
        box.member<QLineEdit>(QStringLiteral("txtPassword")).setText(QStringLiteral("key"));
        box.member<QPushButton>(QStringLiteral("cmdOK")).click();
    });
    window.click("cmdExtract");
    window.settle();
    EXPECT_FALSE(window.isOpen());
    EXPECT_FALSE(window.files().contains("secret.txt"));
}

TEST_F(frmUnzipJobTest, ClosingItInTheDialogsDoesNothing)
{
    window.openWith({UnzipWindow::entry("a.txt")});
    window.frame.dialogs.expectWindow<QDialog>(QStringLiteral("FolderDialog"), [this](QDialog &dialog) {
        window.form().unload();
        dialog.accept();
    });
    window.click("cmdExtract");
    window.settle();
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(window.files().size(), 0);
}

// ---- Archives of others, and names

TEST_F(frmUnzipJobTest, ReadsWhatZipMade)
{
    window.scratch.addFolder("tree");
    window.scratch.addFolder("tree/sub");
    for (int i = 0; i < 50; ++i)
        window.scratch.addFile("tree/sub/f" + QByteArray::number(i), TestData::noise(i * 100, quint32(i)));
    ASSERT_EQ(Tool::run("zip", {"-qr", "a.zip", "tree"}, window.scratch.file("")).code, 0);
    window.openArchive("a.zip");
    EXPECT_EQ(window.names().size(), 50);
    window.choose("mnuusefolders");
    window.extract();
    EXPECT_EQ(FolderContent::filesOf(window.scratch.file("out") + "/tree"),
              FolderContent::filesOf(window.scratch.file("tree")));
}

TEST_P(frmUnzipExtractNameTest, AnySelectedEntryIsExtracted)
{
    const MadeEntry other = UnzipWindow::entry("other");
    window.scratch.addFile(GetParam().bytes, "content");
    ASSERT_EQ(Tool::run("zip", {"-q", "a.zip", "--", "./" + GetParam().bytes}, window.scratch.file("")).code,
              0);
    window.scratch.addFile("other");
    ASSERT_EQ(Tool::run("zip", {"-q", "a.zip", "other"}, window.scratch.file("")).code, 0);
    window.openArchive("a.zip");
    for (int row = 1; row <= 2; ++row)
        window.view().setSelected(row, window.view().ListItems().Item(row).Text != u"other");
    window.choose("mnuoverrideprompt");
    window.extract();
    ASSERT_EQ(window.files().size(), 1);
    EXPECT_EQ(window.files().first(), "content");
}

INSTANTIATE_TEST_SUITE_P(Names, frmUnzipExtractNameTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
