#include "DropFiles.h"
#include "EventGate.h"
#include "FolderContent.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "TestData.h"
#include "Tool.h"
#include "ZipWindow.h"

#include <QTimer>
#include <gtest/gtest.h>

namespace {

const QString title = QStringLiteral("QuillOfficeToolsv2");

struct frmZipJobTest : testing::Test
{
    ZipWindow window;

    frmZipJobTest() { window.setTarget(window.path("a.zip")); }

    /// What the archive \a name has, by unzip.
    QMap<QByteArray, QByteArray> unzipped(const QByteArray &name, const QByteArrayList &options = {}) const
    {
        const QByteArray folder = window.scratch.file("unzipped");
        std::filesystem::remove_all(folder.constData());
        const Tool unzip =
            Tool::run("unzip", options + QByteArrayList{"-q", "-d", folder, name}, window.scratch.file(""));
        EXPECT_EQ(unzip.code, 0) << unzip.output.constData();
        return FolderContent::filesOf(folder);
    }
    void create(int rows)
    {
        window.expectZipped(rows, window.target());
        window.click("cmdCreateZip");
    }
    void addMany() const
    {
        for (int i = 0; i < 100; ++i)
            window.addFile("noise" + QByteArray::number(i), TestData::noise(200000, quint32(i)));
    }
};

struct frmZipNameTest : frmZipJobTest, testing::WithParamInterface<HostileName>
{};

} // namespace

TEST_F(frmZipJobTest, MakesAnArchiveThatUnzipReads)
{
    window.addFile("one.txt", "first");
    window.addFile("two.txt", QByteArray(100000, 'x'));
    create(2);
    const QMap<QByteArray, QByteArray> files = unzipped("a.zip");
    EXPECT_EQ(files.value("one.txt"), "first");
    EXPECT_EQ(files.value("two.txt"), QByteArray(100000, 'x'));
    EXPECT_EQ(files.size(), 2);
}

TEST_F(frmZipJobTest, ListsAndTargetStayAndASecondPressUpdates)
{
    window.addFile("one.txt", "first");
    create(1);
    window.addFile("two.txt", "second");
    create(2);
    EXPECT_EQ(unzipped("a.zip").size(), 2);
    EXPECT_EQ(window.rows("FileList1").size(), 2);
    EXPECT_EQ(window.target(), window.path("a.zip"));
}

TEST_F(frmZipJobTest, UpdatesAnArchiveThatZipMade)
{
    window.addFile("one.txt", "first");
    window.scratch.addFile("old.txt", "old");
    ASSERT_EQ(Tool::run("zip", {"-q", "a.zip", "old.txt"}, window.scratch.file("")).code, 0);
    create(1);
    const QMap<QByteArray, QByteArray> files = unzipped("a.zip");
    EXPECT_EQ(files.value("old.txt"), "old");
    EXPECT_EQ(files.value("one.txt"), "first");
}

/// The number is that of the rows, not of what is in the archive.
TEST_F(frmZipJobTest, CountsTheRows)
{
    window.addFile("one.txt");
    window.control<ListBox>("FileList1").AddItem(window.path("one.txt"));
    create(2);
    EXPECT_EQ(unzipped("a.zip").size(), 1);
}

TEST_F(frmZipJobTest, TheBoxesAreTheOptions)
{
    window.scratch.addFolder("sub");
    window.addFile("sub/one.txt", "first");
    window.tick("chkFolders");
    window.tick("chkDirectories");
    create(1);
    EXPECT_TRUE(window.zip().StoreFolderNames());
    EXPECT_FALSE(window.zip().StoreDirectories()); // gives the opposite of what was set
    EXPECT_FALSE(window.zip().RecurseSubDirs());
    EXPECT_FALSE(window.zip().Encrypt());
    EXPECT_TRUE(unzipped("a.zip").firstKey().endsWith("sub/one.txt"));
    window.click("chkFolders");
    window.click("chkDirectories");
    window.setTarget(window.path("b.zip"));
    create(1);
    EXPECT_FALSE(window.zip().StoreFolderNames());
    EXPECT_TRUE(window.zip().StoreDirectories());
    EXPECT_EQ(unzipped("b.zip").keys(), QByteArrayList{"one.txt"});
}

TEST_F(frmZipJobTest, TheLogFollowsAndTheStatusHasTheLastMessage)
{
    window.addFile("one.txt");
    window.addFile("two.txt");
    create(2);
    const QStringList log = window.rows("lstLog");
    EXPECT_EQ(log.size(), 2);
    EXPECT_TRUE(log.value(0).contains(QStringLiteral("one.txt")));
    EXPECT_TRUE(log.value(1).contains(QStringLiteral("two.txt")));
    EXPECT_EQ(window.control<ListBox>("lstLog").ListIndex(), 1);
    EXPECT_EQ(window.status(), log.last());
}

TEST_F(frmZipJobTest, SaysThatItFailed)
{
    window.addFile("one.txt");
    window.setTarget(window.path("none/a.zip"));
    window.expectBox(QStringLiteral("Zip Failed."), QMessageBox::Warning);
    window.click("cmdCreateZip");
    EXPECT_EQ(window.rows("FileList1").size(), 1);
}

// ---- Password and comment

TEST_F(frmZipJobTest, AsksTwiceForThePassword)
{
    window.addFile("one.txt", "first");
    window.choose("mnuencrypt");
    window.frame.dialogs.expectInput(title, QStringLiteral("Enter password:"))
        .suggests(QString())
        .type(QStringLiteral(" key "));
    window.frame.dialogs.expectInput(title, QStringLiteral("Confirm password:")).type(QStringLiteral("key"));
    create(1);
    EXPECT_EQ(unzipped("a.zip", {"-P", "key"}).value("one.txt"), "first");
    EXPECT_NE(Tool::run("unzip", {"-P", "wrong", "-t", "a.zip"}, window.scratch.file("")).code, 0);
}

TEST_F(frmZipJobTest, NoPasswordCancelsTheJob)
{
    window.addFile("one.txt");
    window.tick("chkEncrypt");
    for (const QString &answer : {QString(), QStringLiteral("  ")}) {
        window.frame.dialogs.expectInput(title, QStringLiteral("Enter password:")).type(answer);
        window.expectBox(QStringLiteral("Zip Failed."), QMessageBox::Warning);
        window.click("cmdCreateZip");
    }
    window.frame.dialogs.expectInput(title, QStringLiteral("Enter password:"))
        .type(QStringLiteral("key"))
        .press(QMessageBox::Cancel);
    window.expectBox(QStringLiteral("Zip Failed."), QMessageBox::Warning);
    window.click("cmdCreateZip");
    EXPECT_FALSE(std::filesystem::exists(window.scratch.file("a.zip").constData()));
}

TEST_F(frmZipJobTest, TheCommentIsStored)
{
    window.addFile("one.txt");
    window.tick("chkAddComment");
    window.frame.dialogs.expectInput(title, QStringLiteral("Enter comment:"))
        .type(QStringLiteral(" a comment "));
    create(1);
    EXPECT_TRUE(FolderContent::read(window.scratch.file("a.zip")).endsWith("a comment"));
}

TEST_F(frmZipJobTest, NoCommentIsNoFailure)
{
    window.addFile("one.txt");
    window.tick("chkAddComment");
    window.frame.dialogs.expectInput(title, QStringLiteral("Enter comment:")).type(QString());
    create(1);
    EXPECT_EQ(unzipped("a.zip").size(), 1);
}

// ---- The fixed job

TEST_F(frmZipJobTest, RecurseTakesItsPatternsBelowTheProgramsFolder)
{
    window.programFolder.addFolder("sub");
    for (const char *name : {"one.frm", "sub/two.frx", "three.cls", "sub/four.bas", "five.txt"})
        window.programFolder.addFile(name, name);
    window.addFile("row");
    const QString folder = window.programFolder.path();
    window.expectBox(QStringLiteral("Zipped files.\n\n   Source: files matching *.fr*;*.cls;*.bas from ") +
                         folder + QStringLiteral("\n   To: ") + folder + QStringLiteral("/Test_Rec.zip"),
                     QMessageBox::Information);
    window.click("cmdRecurse");
    EXPECT_EQ(unzipped(window.programFolder.file("Test_Rec.zip")).keys(),
              QByteArrayList({"one.frm", "sub/four.bas", "sub/two.frx", "three.cls"}));
    EXPECT_TRUE(window.zip().StoreFolderNames());
    EXPECT_TRUE(window.zip().RecurseSubDirs());
    EXPECT_EQ(window.rows("FileList1").size(), 1);
}

TEST_F(frmZipJobTest, RecurseSaysThatItFailed)
{
    window.expectBox(QStringLiteral("Zipping failed."), QMessageBox::Warning); // nothing matches
    window.click("cmdRecurse");
}

TEST_F(frmZipJobTest, RecurseTakesTheBoxesOfPasswordAndComment)
{
    window.programFolder.addFile("one.bas", "first");
    window.tick("chkEncrypt");
    window.tick("chkAddComment");
    window.frame.dialogs.expectInput(title, QStringLiteral("Enter password:")).press(QMessageBox::Cancel);
    window.expectBox(QStringLiteral("Zipping failed."), QMessageBox::Warning);
    window.click("cmdRecurse");
    EXPECT_TRUE(window.zip().Encrypt());
}

TEST_F(frmZipJobTest, AfterRecurseARelativeTargetIsInTheProgramsFolder)
{
    window.programFolder.addFile("one.bas");
    window.frame.dialogs.leaveWhatComes();
    window.click("cmdRecurse");
    window.addFile("row.txt");
    window.setTarget(QStringLiteral("relative.zip"));
    window.click("cmdCreateZip");
    EXPECT_EQ(unzipped(window.programFolder.file("relative.zip")).keys(), QByteArrayList{"row.txt"});
    EXPECT_EQ(window.zip().BasePath(), window.programFolder.path());
    EXPECT_FALSE(window.zip().RecurseSubDirs());
    EXPECT_FALSE(window.zip().StoreFolderNames());
}

// ---- While a job runs

TEST_F(frmZipJobTest, NothingElseCanBeBegunMeanwhile)
{
    window.addFile("one.txt");
    bool isChecked = false;
    on(&window.zip(), &cZip::Progress, &window.form(), [&] {
        for (const char *name :
             {"cmdSingleFile", "cmdzipfolder", "cmdCreateZip", "cmdRecurse", "txtzipfolder", "chkEncrypt",
              "chkAddComment", "chkDirectories", "chkFolders"})
            EXPECT_FALSE(window.isEnabled(name)) << name;
        for (const char *name : {"mnuaddfile", "mnuoutput", "mnucreate", "mnuencrypt", "mnustorefolders"})
            EXPECT_FALSE(window.item(name).isEnabled()) << name;
        EXPECT_TRUE(window.item("mnuClose").isEnabled());
        dropFiles(window.form(), {window.scratch.file("one.txt")});
        isChecked = true;
    });
    create(1);
    EXPECT_TRUE(isChecked);
    EXPECT_TRUE(window.isEnabled("cmdCreateZip"));
    EXPECT_TRUE(window.item("mnucreate").isEnabled());
    EXPECT_EQ(window.rows("FileList1").size(), 1);
}

TEST_F(frmZipJobTest, TheWindowRepaintsMeanwhile)
{
    addMany();
    int ticks = 0;
    int ticksInTheJob = 0;
    QTimer timer;
    on(&timer, &QTimer::timeout, &window.form(), [&] { ++ticks; });
    on(&window.zip(), &cZip::Cancel, &window.form(), [&] { ticksInTheJob = ticks; });
    timer.start(0);
    create(100);
    EXPECT_GE(ticksInTheJob, 2);
}

TEST_F(frmZipJobTest, ClosingTheWindowEndsTheJobAndSaysNothing)
{
    window.addFile("one.txt", "first");
    create(1);
    const QByteArray before = FolderContent::read(window.scratch.file("a.zip"));
    addMany();
    QTimer::singleShot(0, &window.form(), [this] { window.choose("mnuClose"); });
    window.click("cmdCreateZip");
    window.settle();
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(FolderContent::read(window.scratch.file("a.zip")), before);
}

TEST_F(frmZipJobTest, ItGoesWithItsWindowInTheFrame)
{
    addMany();
    QTimer::singleShot(0, &window.form(), [this] { window.closeInFrame(); });
    window.click("cmdCreateZip");
    window.settle();
    EXPECT_FALSE(window.isOpen());
    EXPECT_FALSE(std::filesystem::exists(window.scratch.file("a.zip").constData()));
}

TEST_F(frmZipJobTest, ClosingItInAQuestionEndsTheJob)
{
    for (const char *box : {"chkEncrypt", "chkAddComment"}) {
        if (!window.isOpen())
            window.open();
        window.addFile("one.txt");
        window.setTarget(window.path("a.zip"));
        window.tick(box);
        window.frame.dialogs.expectWindow<QDialog>(QStringLiteral("InputBox"), [this](QDialog &question) {
            window.form().unload();
            question.findChild<QLineEdit *>()->setText(QStringLiteral("key"));
            question.accept();
        });
        window.click("cmdCreateZip");
        window.settle();
        EXPECT_FALSE(window.isOpen());
        EXPECT_FALSE(std::filesystem::exists(window.scratch.file("a.zip").constData())) << box;
    }
}

// ---- Names

TEST_P(frmZipNameTest, AnyNameIsAddedAndNamed)
{
    const QByteArray target = GetParam().bytes + ".zip";
    window.addFile(GetParam().bytes, "first");
    EXPECT_EQ(window.rows("FileList1"), QStringList(window.path("") + GetParam().text()));
    window.setTarget(window.path(target));
    window.frame.dialogs.leaveWhatComes();
    window.click("cmdCreateZip");
    ASSERT_EQ(window.frame.dialogs.seen().size(), 1);
    EXPECT_TRUE(
        window.frame.dialogs.seen().first().text.startsWith(QStringLiteral("Zipped 1 file(s).\n\n   To: ")));
    const Tool test = Tool::run("unzip", {"-tq", "./" + target}, window.scratch.file(""));
    EXPECT_EQ(test.code, 0) << test.output.constData();
}

INSTANTIATE_TEST_SUITE_P(Names, frmZipNameTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
