#include "ArchiveEntry.h"
#include "ArchiveMaker.h"
#include "AsUser.h"
#include "FaultyCalls.h"
#include "FolderContent.h"
#include "FullDisk.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "UnzipRun.h"
#include "ZipRun.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

MadeEntry extracted(const QByteArray &name, const QByteArray &data)
{
    MadeEntry entry;
    entry.name = name;
    entry.data = data;
    return entry;
}

QByteArray unixTime(quint64 seconds)
{
    return ArchiveMaker::extraField(0x5455, "\x01" + ArchiveMaker::number(seconds, 4));
}

struct UnzipLibraryTest : testing::Test
{
    ScratchFolder scratch;
    QByteArray archive = scratch.file("a.zip");
    QByteArray target = scratch.file("target");
    UnzipRun job;

    void make(const QList<MadeEntry> &entries) const
    {
        scratch.addFile("a.zip", ArchiveMaker::make(entries));
    }
    int extract() { return job.extract(archive, target); }
    QMap<QByteArray, QByteArray> files() const { return FolderContent::filesOf(target); }
    struct stat stateOf(const QByteArray &name) const
    {
        struct stat state = {};
        EXPECT_EQ(::lstat((target + '/' + name).constData(), &state), 0) << name.constData();
        return state;
    }
    void addTarget(const QByteArray &name, const QByteArray &content) const
    {
        ::mkdir(target.constData(), 0755);
        scratch.addFile("target/" + name, content);
    }
};

struct HostileEntryTest : UnzipLibraryTest, testing::WithParamInterface<HostileName>
{};

constexpr mode_t modeBits = 07777;

} // namespace

TEST_F(UnzipLibraryTest, ListsEntries)
{
    MadeEntry deflated = extracted("folder/b.txt", QByteArray(1000, 'b'));
    deflated.isDeflated = true;
    MadeEntry encrypted = extracted("c", "ccc");
    encrypted.flags = 1;
    make({extracted("folder/", {}), deflated, encrypted});
    EXPECT_EQ(job.list(archive), UnzipResult::Success);
    ASSERT_EQ(job.entries.size(), 3);
    const ListedEntry &entry = job.entries[1];
    EXPECT_EQ(entry.fname, QByteArray("folder/b.txt"));
    EXPECT_EQ(entry.ucsize, 1000);
    EXPECT_EQ(entry.csiz, ArchiveMaker::deflated(deflated.data).size());
    EXPECT_EQ(entry.cfactor, 99);
    EXPECT_EQ(entry.meth, QByteArray("Defl:N"));
    EXPECT_EQ(entry.yr, 2004);
    EXPECT_EQ(entry.mo, 3);
    EXPECT_EQ(entry.dy, 12);
    EXPECT_EQ(entry.hh, 9);
    EXPECT_EQ(entry.mm, 40);
    EXPECT_EQ(entry.fCrypt, ' ');
    EXPECT_EQ(job.entries[0].fname, QByteArray("folder/"));
    EXPECT_EQ(job.entries[2].fCrypt, 'E');
    EXPECT_EQ(job.entries[2].cfactor, 0);
    EXPECT_FALSE(std::filesystem::exists(target.toStdString()));
}

TEST_F(UnzipLibraryTest, ListsLongNamesAndLargeFilesWithinTheirFields)
{
    MadeEntry large = extracted(QByteArray(254, 'n') + "\u00e9x", "data");
    large.is64 = true;
    large.size = Q_UINT64_C(5'000'000'000);
    make({large});
    EXPECT_EQ(job.list(archive), UnzipResult::Success);
    EXPECT_EQ(job.entries.at(0).fname, QByteArray(254, 'n'));
    EXPECT_EQ(job.entries.at(0).ucsize, 0x7fffffff);
}

/// So that callers know them, whatever the archive says by their attributes alone or behind the 255 bytes.
TEST_F(UnzipLibraryTest, ListsFoldersWithASlash)
{
    MadeEntry byMode = extracted("folder", {});
    byMode.attributes = 040755u << 16;
    make({byMode, extracted(QByteArray(300, 'n') + '/', {}), extracted("other/", {}), extracted("file", {})});
    EXPECT_EQ(job.list(archive), UnzipResult::Success);
    ASSERT_EQ(job.entries.size(), 4);
    EXPECT_EQ(job.entries[0].fname, QByteArray("folder/"));
    EXPECT_EQ(job.entries[1].fname, QByteArray(254, 'n') + '/');
    EXPECT_EQ(job.entries[2].fname, QByteArray("other/"));
    EXPECT_EQ(job.entries[3].fname, QByteArray("file"));
}

TEST_F(UnzipLibraryTest, TakesFoldersByTheNamesThatItLists)
{
    MadeEntry byMode = extracted("folder", {});
    byMode.attributes = 040755u << 16;
    make({byMode, extracted(QByteArray(254, 'n') + "m/", {}), extracted("file", {})});
    ASSERT_EQ(job.list(archive), UnzipResult::Success);
    for (const int row : {0, 1}) {
        job.included = {job.entries[row].fname};
        job.messages.clear();
        EXPECT_EQ(extract(), UnzipResult::Success) << row;
        EXPECT_EQ(job.messages.size(), 1) << row;
    }
}

TEST_F(UnzipLibraryTest, ExtractsAll)
{
    MadeEntry deflated = extracted("sub/deep/b", QByteArray(100'000, 'b'));
    deflated.isDeflated = true;
    MadeEntry described = extracted("c", "described");
    described.hasDescriptor = true;
    make({extracted("a", "one"), deflated, described, extracted("empty/", {}), extracted("d", {})});
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files(),
              (QMap<QByteArray, QByteArray>{
                  {"a", "one"}, {"sub/deep/b", QByteArray(100'000, 'b')}, {"c", "described"}, {"d", {}}}));
    EXPECT_TRUE(S_ISDIR(stateOf("empty").st_mode));
    EXPECT_EQ(job.messages, QByteArrayList({"   creating: empty/", " extracting: a",
                                            "  inflating: sub/deep/b", " extracting: c", " extracting: d"}));
    EXPECT_TRUE(job.services.contains("sub/deep/b"));
    EXPECT_TRUE(job.services.contains("./a")); // callers hear no text of one character
}

/// Too large to be unpacked at once.
TEST_F(UnzipLibraryTest, ExtractsLargeFiles)
{
    QByteArray data;
    for (qint64 i = 0; data.size() < 20 << 20; ++i)
        data += QByteArray::number(i * 7919) + (i % 100 ? ", " : "\n");
    MadeEntry deflated = extracted("deflated", data);
    deflated.isDeflated = true;
    make({deflated, extracted("stored", data), extracted("after", "x")});
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_TRUE(files().value("deflated") == data);
    EXPECT_TRUE(files().value("stored") == data);
    EXPECT_EQ(files().value("after"), QByteArray("x"));
    EXPECT_GT(job.services.size(), 10); // so that a window can be painted meanwhile
}

TEST_F(UnzipLibraryTest, ExtractsTheNamesThatAreWanted)
{
    make({extracted("a", "1"), extracted("sub/b", "2"), extracted("sub/B", "3"), extracted("sub\\c", "4"),
          extracted("e/", {})});
    job.included = {"sub/b", "sub/c"};
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"sub/b", "2"}, {"sub\\c", "4"}}));
    job.included = {"none"};
    EXPECT_EQ(extract(), UnzipResult::NothingFound);
}

TEST_F(UnzipLibraryTest, FindsNamesInAnotherCaseUnlessCaseCounts)
{
    make({extracted("Read.Me", "1")});
    job.included = {"read.me"};
    job.options.C_flag = 1;
    EXPECT_EQ(extract(), UnzipResult::NothingFound);
    job.options.C_flag = 0;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files().value("Read.Me"), QByteArray("1"));
}

TEST_F(UnzipLibraryTest, TellsNamesApartThatDifferInTheirCase)
{
    make({extracted("name", "1"), extracted("NAME", "2")});
    job.included = {"NAME"};
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"NAME", "2"}}));
    job.included.clear();
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"NAME", "2"}, {"name", "1"}}));
    EXPECT_TRUE(job.questions.isEmpty());
}

TEST_F(UnzipLibraryTest, FindsTheLongNamesThatItLists)
{
    const QByteArray folder = QByteArray(150, 'f') + '/';
    make({extracted(folder + QByteArray(150, 'n'), "1"), extracted("other", "2")});
    job.list(archive);
    job.included = {job.entries.at(0).fname};
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files().keys(), QByteArrayList{folder + QByteArray(150, 'n')});
}

TEST_F(UnzipLibraryTest, ANameThatIsCutBehindASlashIsNoFolders)
{
    const QByteArray name = QByteArray(254, 'f') + "/n";
    make({extracted(name, "1"), extracted("other", "2")});
    job.list(archive);
    EXPECT_EQ(job.entries.at(0).fname, QByteArray(254, 'f'));
    job.included = {job.entries.at(0).fname};
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files().keys(), QByteArrayList{name});
}

/// Whatever its mode says.
TEST_F(UnzipLibraryTest, DataMakesAFile)
{
    MadeEntry entry = extracted("a", "data");
    entry.attributes = 040755u << 16;
    make({entry});
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files().value("a"), QByteArray("data"));
}

TEST_F(UnzipLibraryTest, PutsAllFilesIntoOneFolder)
{
    make({extracted("a/b/", {}), extracted("a/b/c", "1"), extracted("d", "2")});
    job.options.ndflag = 0;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(FolderContent::of(target).keys(), QByteArrayList({"c", "d"}));
}

TEST_F(UnzipLibraryTest, TurnsBlanksToUnderscores)
{
    make({extracted("a b/c d", "1")});
    job.options.SpaceToUnderScore = 1;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files().keys(), QByteArrayList{"a_b/c_d"});
}

TEST_F(UnzipLibraryTest, KeepsModesAndTimes)
{
    MadeEntry script = extracted("script", "x");
    script.attributes = 0106711u << 16; // with set-id bits
    script.extra = unixTime(1'234'567'891);
    MadeEntry folder = extracted("folder/", {});
    folder.attributes = 040550u << 16;
    folder.extra = unixTime(1'111'111'111);
    MadeEntry device = extracted("device", "x");
    device.attributes = 060666u << 16;
    make({script, folder, extracted("folder/inside", "x"), device});
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(stateOf("script").st_mode, S_IFREG | 0711u);
    EXPECT_EQ(stateOf("script").st_mtime, 1'234'567'891);
    EXPECT_EQ(stateOf("folder").st_mode, S_IFDIR | 0550u);
    EXPECT_EQ(stateOf("folder").st_mtime, 1'111'111'111);
    EXPECT_EQ(stateOf("device").st_mode, S_IFREG | 0644u);
}

/// The folders were made for files that came before their entries.
TEST_F(UnzipLibraryTest, KeepsModesAndTimesOfFoldersThatComeLast)
{
    MadeEntry inner = extracted("folder/inner/", {});
    inner.attributes = 040500u << 16;
    inner.extra = unixTime(1'111'111'111);
    MadeEntry folder = extracted("folder/", {});
    folder.attributes = 040550u << 16;
    folder.extra = unixTime(1'222'222'222);
    make({extracted("folder/inner/a", "x"), folder, inner, extracted("folder/b", "x")});
    const AsUser user(scratch.path()); // for whom the permissions count
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(stateOf("folder").st_mode, S_IFDIR | 0550u);
    EXPECT_EQ(stateOf("folder").st_mtime, 1'222'222'222);
    EXPECT_EQ(stateOf("folder/inner").st_mode, S_IFDIR | 0500u);
    EXPECT_EQ(stateOf("folder/inner").st_mtime, 1'111'111'111);
    EXPECT_EQ(files().size(), 2);
    for (const char *name : {"folder", "folder/inner"})
        ASSERT_EQ(::chmod((target + '/' + name).constData(), 0755), 0);
}

/// Also of folders whose entries the job has not come to.
TEST_F(UnzipLibraryTest, KeepsModesAndTimesOfFoldersWhenItIsCancelled)
{
    MadeEntry first = extracted("first/", {});
    MadeEntry last = extracted("last/", {});
    for (MadeEntry *folder : {&first, &last}) {
        folder->attributes = 040700u << 16;
        folder->extra = unixTime(1'111'111'111);
    }
    make({first, extracted("first/a", "x"), extracted("last/b", "x"), extracted("stop", "x"), last});
    job.isCancelled = [](QByteArrayView name) { return name == "stop"; };
    EXPECT_EQ(extract(), UnzipResult::Cancelled);
    for (const char *name : {"first", "last"}) {
        EXPECT_EQ(stateOf(name).st_mode, S_IFDIR | 0700u);
        EXPECT_EQ(stateOf(name).st_mtime, 1'111'111'111);
    }
}

TEST_F(UnzipLibraryTest, KeepsModesOfFoldersOnAFullDisk)
{
    MadeEntry folder = extracted("folder/", {});
    folder.attributes = 040700u << 16;
    make({folder, extracted("folder/a", QByteArray(300'000, 'x'))});
    const FaultyCalls calls;
    calls.leaveRoom(100'000);
    EXPECT_EQ(extract(), UnzipResult::DiskFull);
    EXPECT_EQ(stateOf("folder").st_mode, S_IFDIR | 0700u);
    EXPECT_TRUE(files().isEmpty());
}

/// The call comes for each of them, and the folders that are left get their modes without one.
TEST_F(UnzipLibraryTest, KeepsModesOfFoldersWhenItIsCancelledWithThem)
{
    MadeEntry first = extracted("1/", {});
    MadeEntry second = extracted("2/", {});
    first.attributes = second.attributes = 040700u << 16;
    make({first, second});
    EXPECT_EQ(extract(), UnzipResult::Success);
    const qsizetype calls = job.services.size();
    std::filesystem::remove_all(target.toStdString());
    job.services.clear();
    job.isCancelled = [&](QByteArrayView) { return job.services.size() == calls; };
    EXPECT_EQ(extract(), UnzipResult::Cancelled);
    EXPECT_EQ(job.services.size(), calls);
    for (const char *name : {"1", "2"})
        EXPECT_EQ(stateOf(name).st_mode, S_IFDIR | 0700u);
}

TEST_F(UnzipLibraryTest, LeavesTheModeOfAFolderThatExists)
{
    MadeEntry folder = extracted("folder/", {});
    folder.attributes = 040777u << 16;
    make({folder});
    addTarget("x", {});
    scratch.addFolder("target/folder");
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(stateOf("folder").st_mode & modeBits, 0755u);
}

TEST_F(UnzipLibraryTest, FilesThatExistStay)
{
    make({extracted("a", "new"), extracted("b", "new")});
    addTarget("a", "old");
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"a", "old"}, {"b", "new"}}));
    EXPECT_TRUE(job.questions.isEmpty());
    job.options.PromptToOverwrite = 1;
    job.answers = {OverwriteAnswer::No, 7};
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(job.questions, QByteArrayList({"a", "b"}));
    EXPECT_EQ(files().value("a"), QByteArray("old"));
}

TEST_F(UnzipLibraryTest, OverwritesAsItIsAnswered)
{
    QList<MadeEntry> entries;
    for (char name = 'a'; name <= 'f'; ++name)
        entries.append(extracted(QByteArray("sub/") + name, "new"));
    make(entries);
    const auto reset = [&] {
        std::filesystem::remove_all(target.toStdString());
        addTarget("x", {});
        scratch.addFolder("target/sub");
        for (char name = 'a'; name <= 'f'; ++name)
            scratch.addFile(QByteArray("target/sub/") + name, "old");
        job.questions.clear();
    };
    job.options.PromptToOverwrite = 1;
    reset();
    job.answers = {OverwriteAnswer::Yes, OverwriteAnswer::No, OverwriteAnswer::All};
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(job.questions, QByteArrayList({"sub/a", "sub/b", "sub/c"}));
    EXPECT_EQ(files().value("sub/b"), QByteArray("old"));
    EXPECT_EQ(files().value("sub/a"), QByteArray("new"));
    EXPECT_EQ(files().value("sub/f"), QByteArray("new"));
    reset();
    job.answers = {OverwriteAnswer::Yes, OverwriteAnswer::None};
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(job.questions.size(), 2);
    EXPECT_EQ(files().value("sub/a"), QByteArray("new"));
    EXPECT_EQ(files().value("sub/f"), QByteArray("old"));
    reset();
    job.options.noflag = 1;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_TRUE(job.questions.isEmpty());
    EXPECT_EQ(files().value("sub/f"), QByteArray("new"));
}

TEST_F(UnzipLibraryTest, ExtractsOnlyWhatIsNewer)
{
    MadeEntry newer = extracted("a", "new");
    newer.extra = unixTime(2'000'000'000);
    MadeEntry older = extracted("b", "new");
    older.extra = unixTime(1'000'000'000);
    make({newer, older, extracted("c", "new")});
    for (int *option : {&job.options.ExtractOnlyNewer, &job.options.nUflag}) {
        std::filesystem::remove_all(target.toStdString());
        addTarget("a", "old");
        addTarget("b", "old");
        job.options.ExtractOnlyNewer = job.options.nUflag = 0;
        *option = 1;
        job.options.noflag = 1;
        EXPECT_EQ(extract(), UnzipResult::Success);
        EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"a", "new"}, {"b", "old"}, {"c", "new"}}));
    }
}

/// The second file of a name meets the first one.
TEST_F(UnzipLibraryTest, AsksAboutANameThatComesTwice)
{
    const QByteArray first(3 << 20, '1'); // which takes its time
    make({extracted("a", first), extracted("a", "second")});
    job.options.PromptToOverwrite = 1;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(job.questions, QByteArrayList{"a"});
    EXPECT_TRUE(files().value("a") == first);
}

TEST_F(UnzipLibraryTest, TestsWithoutWriting)
{
    MadeEntry damaged = extracted("b", "bbb");
    damaged.crc = 1;
    make({extracted("a", "1")});
    job.options.ntflag = 1;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(job.messages, QByteArrayList{"    testing: a   OK"});
    make({extracted("a", "1"), damaged});
    job.messages.clear();
    EXPECT_EQ(extract(), UnzipResult::DamagedEntry);
    EXPECT_EQ(job.messages.constLast(), QByteArray("error:  b: its checksum is wrong"));
    EXPECT_FALSE(std::filesystem::exists(target.toStdString()));
}

TEST_F(UnzipLibraryTest, PrintsFilesInstead)
{
    make({extracted("a", "content\n"), extracted("b", QByteArray(2500, 'x'))});
    job.options.ncflag = 1;
    job.options.fQuiet = 2;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(job.messages, QByteArrayList({"content\n", QByteArray(1023, 'x'), QByteArray(1023, 'x'),
                                            QByteArray(454, 'x')}));
    EXPECT_FALSE(std::filesystem::exists(target.toStdString()));
}

TEST_F(UnzipLibraryTest, PrintsTheComment)
{
    scratch.addFile("a.zip", ArchiveMaker::make({extracted("a", "1")}, {.comment = "a note"}));
    job.options.nzflag = 1;
    EXPECT_EQ(job.list(archive), UnzipResult::Success);
    EXPECT_EQ(job.messages, QByteArrayList{"a note"});
}

TEST_F(UnzipLibraryTest, SaysAsMuchAsIsWanted)
{
    MadeEntry damaged = extracted("b", "bbb");
    damaged.crc = 1;
    make({extracted("a", "1"), damaged});
    job.options.noflag = 1;
    job.options.fQuiet = 1;
    EXPECT_EQ(extract(), UnzipResult::DamagedEntry);
    EXPECT_EQ(job.messages, QByteArrayList{"error:  b: its checksum is wrong"});
    job.messages.clear();
    job.options.fQuiet = 2;
    EXPECT_EQ(extract(), UnzipResult::DamagedEntry);
    EXPECT_TRUE(job.messages.isEmpty());
}

TEST_F(UnzipLibraryTest, AddsLineFeedsToReturns)
{
    MadeEntry large = extracted("large", QByteArray("0123456789abcde\r").repeated(200'000));
    large.isDeflated = true;
    make({extracted("text", "a\rb\r\nc\r"), extracted("binary", QByteArray("a\r\0", 3)), large});
    job.options.naflag = 1;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files().value("text"), QByteArray("a\r\nb\r\nc\r\n"));
    EXPECT_EQ(files().value("binary"), QByteArray("a\r\0", 3));
    EXPECT_TRUE(files().value("large") == QByteArray("0123456789abcde\r\n").repeated(200'000));
}

TEST_F(UnzipLibraryTest, SkipsVolumeLabels)
{
    MadeEntry label = extracted("MY DISK", {});
    label.system = 0;
    label.attributes = 8;
    make({label, extracted("a", "1")});
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(files().keys(), QByteArrayList{"a"});
}

TEST_F(UnzipLibraryTest, StopsWhenItIsCancelled)
{
    MadeEntry large = extracted("large", QByteArray(30 << 20, 'x'));
    large.isDeflated = true;
    make({extracted("a", "1"), large, extracted("c", "1")});
    int left = 4;
    job.isCancelled = [&left](QByteArrayView) { return --left <= 0; };
    EXPECT_EQ(extract(), UnzipResult::Cancelled);
    EXPECT_FALSE(files().contains("large"));
    for (const QByteArray &name : files().keys())
        EXPECT_FALSE(name.startsWith('.')) << name.constData();
    job.isCancelled = [](QByteArrayView) { return true; };
    EXPECT_EQ(job.list(archive), UnzipResult::Cancelled);
}

TEST_F(UnzipLibraryTest, CallsWhileItReadsTheDirectory)
{
    scratch.addFile("a.zip", ArchiveMaker::makeMany(3000));
    job.isCancelled = [](QByteArrayView) { return true; };
    EXPECT_EQ(job.list(archive), UnzipResult::Cancelled);
    EXPECT_EQ(job.services, QByteArrayList{archive});
    EXPECT_TRUE(job.entries.isEmpty());
}

TEST_F(UnzipLibraryTest, CallsWhileItPassesEntries)
{
    constexpr int entries = 20000;
    scratch.addFile("a.zip", ArchiveMaker::makeMany(entries));
    EXPECT_EQ(job.list(archive), UnzipResult::Success);
    const qsizetype listing = job.services.size();
    job.services.clear();
    job.included = {"00000002"};
    EXPECT_EQ(extract(), UnzipResult::DamagedEntry);
    EXPECT_GE(job.services.size(), listing);
}

TEST_F(UnzipLibraryTest, CallsWhileItRestoresFolders)
{
    QList<MadeEntry> folders;
    for (int i = 0; i < 50; ++i)
        folders.append(extracted(QByteArray::number(i) + '/', {}));
    make(folders);
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_GE(job.services.size(), 2 * folders.size());
}

/// Encrypted entries too are written by the threads.
TEST_F(UnzipLibraryTest, CallsWhileTheDiskTakesItsTime)
{
    scratch.addFile("a", "content");
    ZipRun zip;
    zip.options.fEncrypt = zip.options.fJunkDir = 1;
    zip.passwords = {"secret", "secret"};
    ASSERT_EQ(zip.run(archive, {scratch.file("a")}), ZipResult::Success);
    job.passwords = {"secret"};
    const FaultyCalls calls;
    calls.hold(FaultyCalls::Write);
    int waits = 0;
    job.isCancelled = [&](QByteArrayView) {
        if (calls.held() > 0 && ++waits == 3)
            calls.release();
        return false;
    };
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(waits, 3);
    EXPECT_FALSE(calls.isOverdue());
    EXPECT_EQ(files().value("a"), QByteArray("content"));
}

TEST_F(UnzipLibraryTest, CallsWhileItPrints)
{
    make({extracted("a", QByteArray(1 << 20, 'x'))});
    job.options.ncflag = 1;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_GT(job.services.size(), 15);
}

TEST_F(UnzipLibraryTest, WhatIsReplacedIsOnTheDiskFirst)
{
    make({extracted("a", "new"), extracted("b", "new")});
    addTarget("a", "old");
    job.options.noflag = 1;
    const FaultyCalls calls;
    calls.fail(FaultyCalls::Fdatasync, EIO);
    EXPECT_EQ(extract(), UnzipResult::Warning);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"a", "old"}, {"b", "new"}}));
    EXPECT_TRUE(job.messages.contains("error:  a: Input/output error"));
    EXPECT_EQ(calls.count(FaultyCalls::Fdatasync), 1); // what is new does not wait for the disk
}

/// Servers may report a full disk only when a file is closed.
TEST_F(UnzipLibraryTest, NoFileAppearsThatCouldNotBeClosed)
{
    make({extracted("a", "new"), extracted("b", "new")});
    addTarget("a", "old");
    job.options.noflag = 1;
    const FaultyCalls calls;
    calls.fail(FaultyCalls::Close, EIO);
    EXPECT_EQ(extract(), UnzipResult::Warning);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"a", "old"}}));
}

TEST_F(UnzipLibraryTest, GoesOnWhereASignalInterruptsACall)
{
    make({extracted("a", QByteArray(300'000, 'x'))});
    job.options.noflag = 1;
    for (const auto call : {FaultyCalls::Read, FaultyCalls::Write}) {
        const FaultyCalls calls;
        calls.fail(call, EINTR, 1);
        EXPECT_EQ(extract(), UnzipResult::Success) << call;
        EXPECT_GT(calls.count(call), 1);
        EXPECT_EQ(files().value("a").size(), 300'000) << call;
    }
}

TEST_F(UnzipLibraryTest, SaysWhatCannotBeOpened)
{
    EXPECT_EQ(job.list("/dev/zero"), UnzipResult::CannotOpen);
    ASSERT_EQ(::mkfifo(scratch.file("pipe").constData(), 0600), 0);
    EXPECT_EQ(job.list(scratch.file("pipe")), UnzipResult::CannotOpen);
    EXPECT_EQ(job.list(scratch.file("none.zip")), UnzipResult::CannotOpen);
    EXPECT_EQ(job.list(scratch.path().toUtf8()), UnzipResult::CannotOpen);
    scratch.addFile("a.zip", "no archive");
    EXPECT_EQ(job.list(archive), UnzipResult::NoArchive);
    make({extracted("a", "1")});
    scratch.addFile("target", "a file");
    EXPECT_EQ(extract(), UnzipResult::BadParameters);
}

TEST_F(UnzipLibraryTest, LeavesNothingHalfOnAFullDisk)
{
    MadeEntry large = extracted("b", QByteArray(300'000, 'x'));
    QList<MadeEntry> entries = {extracted("a", "1"), large};
    for (int i = 0; i < 500; ++i)
        entries.append(extracted(QByteArray::number(i), "1"));
    make(entries);
    const FaultyCalls calls;
    calls.leaveRoom(100'000);
    EXPECT_EQ(extract(), UnzipResult::DiskFull);
    EXPECT_EQ(files().value("a"), QByteArray("1"));
    EXPECT_FALSE(files().contains("b"));
    EXPECT_FALSE(files().contains("499")); // the job has ended
    for (const QByteArray &name : files().keys())
        EXPECT_FALSE(name.startsWith('.')) << name.constData();
}

/// Some file systems hold no file of 4 GiB, but they do hold the others.
TEST_F(UnzipLibraryTest, ExtractsTheOthersWhereAFileIsTooLarge)
{
    make({extracted("a", "1"), extracted("b", QByteArray(300'000, 'x')), extracted("c", "1")});
    const FullDisk full(100'000);
    EXPECT_EQ(extract(), UnzipResult::Warning);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"a", "1"}, {"c", "1"}}));
    EXPECT_TRUE(job.messages.contains("error:  b: File too large"));
}

TEST_F(UnzipLibraryTest, WritesNothingIntoAReadOnlyFolder)
{
    make({extracted("a", "1")});
    addTarget("x", {});
    const AsUser user(scratch.path());
    ASSERT_EQ(::chmod(target.constData(), 0555), 0);
    EXPECT_EQ(extract(), UnzipResult::Warning);
    EXPECT_EQ(job.messages, QByteArrayList{"error:  a: Permission denied"});
    ASSERT_EQ(::chmod(target.constData(), 0755), 0);
}

TEST_F(UnzipLibraryTest, RefusesMethodsThatItDoesNotKnow)
{
    MadeEntry unknown = extracted("b", "bbb");
    unknown.method = 77;
    make({extracted("a", "1"), unknown});
    EXPECT_EQ(extract(), UnzipResult::Unsupported);
    EXPECT_EQ(files().keys(), QByteArrayList{"a"});
}

TEST_F(UnzipLibraryTest, AsksForNoPasswordWhereItCannotDecrypt)
{
    MadeEntry strong = extracted("strong", "sss");
    strong.flags = 1 | 1 << 6;
    MadeEntry aesWithoutField = extracted("aes", "aaa");
    aesWithoutField.flags = 1;
    aesWithoutField.method = aesWithoutField.localMethod = ArchiveEntry::Aes;
    for (const MadeEntry &entry : {strong, aesWithoutField}) {
        make({extracted("a", "1"), entry});
        EXPECT_EQ(extract(), UnzipResult::Unsupported) << entry.name.constData();
        EXPECT_EQ(files().keys(), QByteArrayList{"a"});
    }
    EXPECT_EQ(job.passwordRequests, 0);
}

TEST_F(UnzipLibraryTest, RunsOneJobAtATime)
{
    make({extracted("a", "1")});
    int inner = -1;
    job.isCancelled = [&](QByteArrayView) {
        if (inner < 0)
            inner = UnzipRun().list(archive);
        return false;
    };
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(inner, UnzipResult::BadParameters);
}

/// Whatever the name, the file is extracted under it, or nothing is.
TEST_P(HostileEntryTest, ExtractsOrRefuses)
{
    scratch.addFolder("beside");
    make({extracted(GetParam().bytes, "content")});
    const int result = extract();
    if (GetParam().canBeFile()) {
        EXPECT_EQ(result, UnzipResult::Success);
        EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{GetParam().bytes, "content"}}));
    } else {
        EXPECT_NE(result, UnzipResult::Success);
        EXPECT_TRUE(FolderContent::of(target).isEmpty());
    }
    EXPECT_TRUE(FolderContent::of(scratch.file("beside")).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Names, HostileEntryTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
