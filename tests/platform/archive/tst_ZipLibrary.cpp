#include "ArchiveMaker.h"
#include "AsUser.h"
#include "DirectoryReader.h"
#include "ErrorNumberOf.h"
#include "FaultyCalls.h"
#include "FolderContent.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TestData.h"
#include "UnzipRun.h"
#include "ZipRun.h"

#include <QRandomGenerator>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

constexpr mode_t permissions = 07777;

struct ZipLibraryTest : testing::Test
{
    ScratchFolder scratch;
    std::filesystem::path before = std::filesystem::current_path();
    QByteArray archive = scratch.file("a.zip");
    ZipRun job;

    ZipLibraryTest()
    {
        scratch.addFolder("in");
        std::filesystem::current_path((scratch.path() + QStringLiteral("/in")).toStdString());
        add("one.txt", "first file, first file, first file");
        add("two.txt", "second file, second file");
    }
    ~ZipLibraryTest() override { std::filesystem::current_path(before); }

    void add(const QByteArray &name, const QByteArray &content) const
    {
        scratch.addFile("in/" + name, content);
    }
    ArchiveDirectory directory() const
    {
        return DirectoryReader(FileDescriptor::open(archive, O_RDONLY)).read();
    }
    QByteArrayList names() const
    {
        QByteArrayList names;
        for (const ArchiveEntry &entry : directory().entries)
            names.append(entry.name);
        return names;
    }
    /// The files of the archive, by extracting them.
    QMap<QByteArray, QByteArray> content(const QByteArrayList &passwords = {}) const
    {
        const ScratchFolder target;
        UnzipRun unzip;
        unzip.passwords = passwords;
        EXPECT_EQ(unzip.extract(archive, target.file("x")), UnzipResult::Success);
        return FolderContent::filesOf(target.file("x"));
    }
    QByteArray bytes() const { return FolderContent::read(archive); }
    /// What is in the archive's own folder.
    QByteArrayList beside() const
    {
        QByteArrayList files = FolderContent::filesOf(scratch.path().toUtf8()).keys();
        files.removeIf([](const QByteArray &name) { return name.startsWith("in/"); });
        return files;
    }
    mode_t modeOf(const QByteArray &path) const
    {
        struct stat state = {};
        EXPECT_EQ(::stat(path.constData(), &state), 0);
        return state.st_mode & permissions;
    }
};

void setModified(const QByteArray &path, time_t time)
{
    const timespec times[] = {{time, 0}, {time, 0}};
    EXPECT_EQ(::utimensat(AT_FDCWD, path.constData(), times, 0), 0);
}

} // namespace

TEST_F(ZipLibraryTest, MakesAnArchive)
{
    EXPECT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::Success);
    EXPECT_EQ(content(), (QMap<QByteArray, QByteArray>{{"one.txt", "first file, first file, first file"},
                                                       {"two.txt", "second file, second file"}}));
    EXPECT_EQ(job.messages,
              QByteArrayList({"  adding: one.txt (deflated 50%)", "  adding: two.txt (stored 0%)"}));
    EXPECT_TRUE(job.services.contains("one.txt"));
    EXPECT_TRUE(job.services.contains("two.txt"));
    EXPECT_EQ(beside(), QByteArrayList{"a.zip"});
    EXPECT_EQ(modeOf(archive), 0644u);
}

TEST_F(ZipLibraryTest, StoresWhatDoesNotShrink)
{
    add("noise", TestData::noise(5000));
    add("empty", {});
    EXPECT_EQ(job.run(archive, {"noise", "empty", "one.txt"}), ZipResult::Success);
    const auto entries = directory().entries;
    EXPECT_EQ(entries[0].methodName(), QByteArray("Stored"));
    EXPECT_EQ(entries[0].packedSize, 5000u);
    EXPECT_EQ(entries[1].methodName(), QByteArray("Stored"));
    EXPECT_EQ(entries[2].methodName(), QByteArray("Defl:N"));
    EXPECT_EQ(content().value("noise"), TestData::noise(5000));
    EXPECT_EQ(job.messages.value(1), QByteArray("  adding: empty (stored 0%)"));
}

/// In parts, which several threads compress.
TEST_F(ZipLibraryTest, ArchivesLargeFiles)
{
    QByteArray large =
        QByteArray(3 << 20, '\0') + TestData::noise(3 << 20) + QByteArray("text ").repeated(600'000);
    add("large", large);
    add("exact", QByteArray(8 << 20, 'x'));
    EXPECT_EQ(job.run(archive, {"one.txt", "large", "exact", "two.txt"}), ZipResult::Success);
    const auto files = content();
    EXPECT_TRUE(files.value("large") == large);
    EXPECT_TRUE(files.value("exact") == QByteArray(8 << 20, 'x'));
    EXPECT_EQ(files.size(), 4);
    EXPECT_GT(job.services.count("large"), 5); // so that a window can be painted meanwhile
}

TEST_F(ZipLibraryTest, ArchivesFilesBeyondFourGigabytes)
{
    constexpr qint64 size = (Q_INT64_C(4) << 30) + 5;
    add("sparse", {});
    ASSERT_EQ(::truncate("sparse", size), 0);
    EXPECT_EQ(job.run(archive, {"sparse", "one.txt"}), ZipResult::Success);
    const auto entries = directory().entries;
    EXPECT_EQ(entries[0].size, quint64(size));
    EXPECT_LT(entries[0].packedSize, 20u << 20);
    EXPECT_EQ(entries[0].savedPercentage(), 100);
    UnzipRun unzip;
    unzip.options.ntflag = 1;
    EXPECT_EQ(unzip.extract(archive, {}), UnzipResult::Success);
}

TEST_F(ZipLibraryTest, ReplacesAndAdds)
{
    ASSERT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::Success);
    add("two.txt", "changed");
    add("three.txt", "third");
    job.messages.clear();
    EXPECT_EQ(job.run(archive, {"three.txt", "two.txt"}), ZipResult::Success);
    EXPECT_EQ(names(), QByteArrayList({"one.txt", "two.txt", "three.txt"}));
    EXPECT_EQ(content().value("two.txt"), QByteArray("changed"));
    EXPECT_EQ(content().value("one.txt"), QByteArray("first file, first file, first file"));
    EXPECT_EQ(job.messages,
              QByteArrayList({"updating: two.txt (stored 0%)", "  adding: three.txt (stored 0%)"}));
}

/// The order of the archive is not that of the names.
TEST_F(ZipLibraryTest, ReplacesManyInAnyOrder)
{
    QByteArrayList all;
    for (int i = 0; i < 200; ++i) {
        all.append("f" + QByteArray::number(i));
        add(all.constLast(), TestData::noise(i * 50, quint32(i)) + QByteArray(i * 20, 'x'));
    }
    ASSERT_EQ(job.run(archive, all), ZipResult::Success);
    QByteArrayList some;
    for (int i = 190; i > 0; i -= 7) {
        some.append("f" + QByteArray::number(i));
        add(some.constLast(), "new" + some.constLast());
    }
    some.insert(5, "one.txt");
    EXPECT_EQ(job.run(archive, some), ZipResult::Success);
    const auto expected = FolderContent::filesOf(scratch.file("in"));
    const auto files = content();
    EXPECT_EQ(files.size(), 201);
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        EXPECT_TRUE(file.value() == expected.value(file.key())) << file.key().constData();
}

/// What does not change is not compressed again: it is copied byte for byte.
TEST_F(ZipLibraryTest, ReplacesTheEntryThatIsExtractedAsTheFile)
{
    MadeEntry dos;
    dos.name = "sub\\three.txt";
    dos.system = ArchiveEntry::Dos;
    dos.attributes = 0;
    MadeEntry outside;
    outside.name = "../one.txt";
    MadeEntry folder;
    folder.name = "./sub";
    folder.attributes = 0040755u << 16;
    MadeEntry one, two;
    one.name = "./one.txt";
    two.name = "/two.txt";
    scratch.addFile("a.zip", ArchiveMaker::make({outside, one, two, dos, folder}));
    scratch.addFolder("in/sub");
    add("sub/three.txt", "third");
    job.options.fNoDirEntries = 0;
    EXPECT_EQ(job.run(archive, {"one.txt", "two.txt", "sub/three.txt", "sub"}), ZipResult::Success);
    EXPECT_EQ(names(),
              QByteArrayList({"../one.txt", "one.txt", "two.txt", "sub/three.txt", "./sub", "sub/"}));
}

TEST_F(ZipLibraryTest, ReplacesRatherTheEntryOfTheSameName)
{
    MadeEntry plain, dotted;
    plain.name = "one.txt";
    dotted.name = "./one.txt";
    for (const QList<MadeEntry> &entries : {QList{plain, dotted}, QList{dotted, plain}}) {
        scratch.addFile("a.zip", ArchiveMaker::make(entries));
        EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
        QMap<QByteArray, quint64> sizes;
        for (const ArchiveEntry &entry : directory().entries)
            sizes.insert(entry.name, entry.size);
        EXPECT_EQ(sizes, (QMap<QByteArray, quint64>{{"./one.txt", 0}, {"one.txt", 34}}));
    }
}

TEST_F(ZipLibraryTest, CopiesOtherEntriesAsTheyAre)
{
    job.options.flevel = 1;
    add("words", QByteArray("some words and others ").repeated(2000));
    ASSERT_EQ(job.run(archive, {"words", "one.txt"}), ZipResult::Success);
    const quint64 packed = directory().entries[0].packedSize;
    const QByteArray start = bytes().left(qsizetype(packed));
    job.options.flevel = 9;
    EXPECT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::Success);
    EXPECT_EQ(directory().entries[0].packedSize, packed);
    EXPECT_TRUE(bytes().startsWith(start));
}

TEST_F(ZipLibraryTest, CompressesByTheLevel)
{
    add("words", TestData::noise(100'000).toHex() + QByteArray("some words and others ").repeated(5000));
    job.options.flevel = 1;
    ASSERT_EQ(job.run(archive, {"words"}), ZipResult::Success);
    const quint64 fast = directory().entries[0].packedSize;
    job.options.flevel = 9;
    ASSERT_EQ(job.run(archive, {"words"}), ZipResult::Success);
    EXPECT_LT(directory().entries[0].packedSize, fast);
}

TEST_F(ZipLibraryTest, UpdatesFilesThatAreNewer)
{
    setModified("one.txt", 1'000'000'000);
    setModified("two.txt", 1'000'000'000);
    ASSERT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::Success);
    add("one.txt", "same time");
    setModified("one.txt", 1'000'000'000);
    add("two.txt", "a second newer");
    setModified("two.txt", 1'000'000'001);
    add("three.txt", "new");
    job.options.fUpdate = 1;
    EXPECT_EQ(job.run(archive, {"one.txt", "two.txt", "three.txt"}), ZipResult::Success);
    EXPECT_EQ(content(), (QMap<QByteArray, QByteArray>{{"one.txt", "first file, first file, first file"},
                                                       {"two.txt", "a second newer"},
                                                       {"three.txt", "new"}}));
    EXPECT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::NothingToDo);
}

TEST_F(ZipLibraryTest, FreshensFilesThatAreInTheArchive)
{
    setModified("one.txt", 1'000'000'000);
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    setModified("one.txt", 1'000'000'001);
    job.options.fFreshen = 1;
    EXPECT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::Success);
    EXPECT_EQ(names(), QByteArrayList{"one.txt"});
    EXPECT_EQ(directory().entries[0].modified(), 1'000'000'001);
    EXPECT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::NothingToDo);
}

TEST_F(ZipLibraryTest, DeletesEntriesByNameAndPattern)
{
    add("a[b].txt", "brackets");
    ASSERT_EQ(job.run(archive, {"one.txt", "two.txt", "a[b].txt"}), ZipResult::Success);
    job.messages.clear();
    EXPECT_EQ(job.remove(archive, {"ONE.TXT", "x*"}), ZipResult::NothingToDo);
    EXPECT_EQ(job.remove(archive, {"a[b].txt", "t*"}), ZipResult::Success);
    EXPECT_EQ(names(), QByteArrayList{"one.txt"});
    EXPECT_EQ(job.messages, QByteArrayList({"deleting: two.txt", "deleting: a[b].txt"}));
    EXPECT_EQ(content().value("one.txt"), QByteArray("first file, first file, first file"));
}

TEST_F(ZipLibraryTest, KeepsTheProgramOfAnArchiveThatUnpacksItself)
{
    const QByteArray program = "#!/bin/sh\n" + QByteArray(3000, '#');
    MadeEntry one;
    one.name = "one.txt";
    for (const bool countsPrefix : {false, true}) {
        scratch.addFile(
            "a.zip",
            ArchiveMaker::make({one}, {.prefix = program, .comment = "note", .countsPrefix = countsPrefix}));
        EXPECT_EQ(job.remove(archive, {"*"}), ZipResult::Success);
        EXPECT_TRUE(bytes().startsWith(program));
        EXPECT_EQ(bytes().size(), program.size() + 22 + 4);
        EXPECT_EQ(directory().comment, QByteArray("note"));
        EXPECT_EQ(job.run(archive, {"two.txt"}), ZipResult::Success);
        EXPECT_TRUE(bytes().startsWith(program));
        EXPECT_EQ(names(), QByteArrayList{"two.txt"});
        EXPECT_EQ(directory().comment, QByteArray("note"));
    }
}

TEST_F(ZipLibraryTest, GivesAnEmptyArchiveAComment)
{
    scratch.addFile("a.zip", ArchiveMaker::make({}));
    job.options.fComment = 1;
    job.comment = "hello";
    EXPECT_EQ(job.run(archive, {}), ZipResult::Success);
    EXPECT_EQ(directory().comment, QByteArray("hello"));
    EXPECT_TRUE(names().isEmpty());
    for (const QByteArray &name : {QByteArray("none.zip"), QByteArray("zero.zip")}) {
        EXPECT_EQ(job.run(scratch.file(name), {}), ZipResult::NothingToDo); // what would it be a comment of
        scratch.addFile("zero.zip");
    }
    EXPECT_EQ(beside(), QByteArrayList({"a.zip", "zero.zip"}));
}

TEST_F(ZipLibraryTest, RemovesAnArchiveWithoutEntries)
{
    EXPECT_EQ(job.remove(archive, {"one.txt"}), ZipResult::MissingArchive);
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    EXPECT_EQ(job.remove(archive, {"*"}), ZipResult::Success);
    EXPECT_TRUE(beside().isEmpty());
}

TEST_F(ZipLibraryTest, StoresFoldersAndTheirTimes)
{
    scratch.addFolder("in/sub");
    add("sub/x", "x");
    ASSERT_EQ(::chmod("sub", 0750), 0);
    setModified("sub", 1'100'000'001);
    job.options.fRecurse = 1;
    job.options.fNoDirEntries = 0;
    EXPECT_EQ(job.run(archive, {"sub"}), ZipResult::Success);
    EXPECT_EQ(job.run(archive, {"sub"}), ZipResult::Success); // over the old ones
    const auto entries = directory().entries;
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].name, QByteArray("sub/"));
    EXPECT_TRUE(entries[0].isFolder());
    EXPECT_EQ(entries[0].permissions(), 0750);
    EXPECT_EQ(entries[0].modified(), 1'100'000'001);
}

TEST_F(ZipLibraryTest, KeepsModesTimesAndNames)
{
    const QByteArrayList hostile = {"caf\xc3\xa9.txt", "caf\xe9.txt", "-rf", "a\\b",
                                    "line\nfeed",      "%1 & <b>"};
    for (const QByteArray &name : hostile) {
        add(name, "content of " + name);
        setModified(name, 1'234'567'891);
        ASSERT_EQ(::chmod(name.constData(), 0751), 0);
    }
    EXPECT_EQ(job.run(archive, hostile), ZipResult::Success);
    EXPECT_EQ(names(), hostile);
    for (const ArchiveEntry &entry : directory().entries) {
        EXPECT_EQ(entry.modified(), 1'234'567'891);
        EXPECT_EQ(entry.permissions(), 0751);
        EXPECT_EQ(bool(entry.flags & 0x800), entry.name == hostile[0]) << entry.name.constData();
    }
    auto expected = FolderContent::filesOf(scratch.file("in"));
    expected.remove("one.txt");
    expected.remove("two.txt");
    EXPECT_EQ(content(), expected);
}

TEST_F(ZipLibraryTest, ConvertsLineEndsOfTexts)
{
    const QByteArray text = "a\r\nb\nc\r\n";
    const QByteArray binary = text + '\0';
    add("text", text);
    add("binary", binary);
    const QByteArray large = QByteArray("0123456789abcde\r\n").repeated(400'000); // in parts
    add("large", large);
    job.options.fCRLF_LF = 1;
    EXPECT_EQ(job.run(archive, {"text", "binary", "large"}), ZipResult::Success);
    EXPECT_EQ(content().value("text"), QByteArray("a\nb\nc\n"));
    EXPECT_EQ(content().value("binary"), binary);
    EXPECT_TRUE(content().value("large") == QByteArray(large).replace("\r\n", "\n"));
    job.options.fCRLF_LF = 0;
    job.options.fLF_CRLF = 1;
    EXPECT_EQ(job.run(archive, {"text", "large"}), ZipResult::Success);
    EXPECT_EQ(content().value("text"), QByteArray("a\r\r\nb\r\nc\r\r\n"));
    EXPECT_TRUE(content().value("large") == QByteArray(large).replace("\n", "\r\n"));
}

TEST_F(ZipLibraryTest, StoresTheComment)
{
    job.options.fComment = 1;
    job.comment = "hello";
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    EXPECT_EQ(directory().comment, QByteArray("hello"));
    job.comment.clear();
    EXPECT_EQ(job.run(archive, {"two.txt"}), ZipResult::Success);
    EXPECT_EQ(directory().comment, QByteArray("hello")); // an answer left empty changes nothing
    job.comment = "other";
    EXPECT_EQ(job.run(archive, {}), ZipResult::Success);
    EXPECT_EQ(directory().comment, QByteArray("other"));
    EXPECT_EQ(names(), QByteArrayList({"one.txt", "two.txt"}));
    EXPECT_EQ(job.commentRequests, 3);
}

TEST_F(ZipLibraryTest, EncryptsWithAPasswordThatIsGivenTwice)
{
    add("large", TestData::noise(5 << 20));
    job.options.fEncrypt = 1;
    job.passwords = {"p\u00e4ss", "p\u00e4ss"};
    EXPECT_EQ(job.run(archive, {"one.txt", "large"}), ZipResult::Success);
    EXPECT_TRUE(directory().entries[0].isEncrypted());
    EXPECT_FALSE(bytes().contains("first file"));
    EXPECT_EQ(content({"p\u00e4ss"}).value("one.txt"), QByteArray("first file, first file, first file"));
    EXPECT_TRUE(content({"p\u00e4ss"}).value("large") == TestData::noise(5 << 20));
    job.options.fEncrypt = 0;
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    EXPECT_FALSE(directory().entries[0].isEncrypted()); // replaced by a plain one
}

TEST_F(ZipLibraryTest, MakesNothingWithoutThePassword)
{
    job.options.fEncrypt = 1;
    for (const QByteArrayList &passwords : {QByteArrayList(), QByteArrayList{"one"}, QByteArrayList{""}}) {
        job.passwords = passwords;
        EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Cancelled);
    }
    job.passwords = {"one", "two"};
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::BadParameters);
    EXPECT_TRUE(beside().isEmpty());
}

TEST_F(ZipLibraryTest, SaysAsMuchAsIsWanted)
{
    job.options.fVerbose = 1;
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    EXPECT_EQ(job.messages, QByteArrayList{"  adding: one.txt (in=34) (out=17) (deflated 50%)"});
    job.options.fVerbose = 0;
    job.options.fQuiet = 1;
    job.messages.clear();
    EXPECT_EQ(job.run(archive, {"one.txt", "none"}), ZipResult::CannotOpen);
    EXPECT_EQ(job.messages, QByteArrayList{"warning:  none: No such file or directory"});
}

TEST_F(ZipLibraryTest, ArchivesTheOthersWhereAFileIsMissing)
{
    EXPECT_EQ(job.run(archive, {"none", "one.txt"}), ZipResult::CannotOpen);
    EXPECT_EQ(names(), QByteArrayList{"one.txt"});
    EXPECT_EQ(job.run(archive, {"none"}), ZipResult::CannotOpen);
    EXPECT_EQ(job.run(archive, {}), ZipResult::NothingToDo);
    EXPECT_EQ(job.run(archive, {"*.none"}), ZipResult::NothingToDo);
}

TEST_F(ZipLibraryTest, ArchivesTheOthersWhereAFileMayNotBeRead)
{
    ASSERT_EQ(::chmod("one.txt", 0), 0);
    const AsUser user(scratch.path());
    EXPECT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::CannotOpen);
    EXPECT_EQ(names(), QByteArrayList{"two.txt"});
}

TEST_F(ZipLibraryTest, NeverTakesTheArchiveItself)
{
    archive = scratch.file("in/a.zip");
    job.options.fRecurse = 2;
    ASSERT_EQ(job.run(archive, {"*"}), ZipResult::Success);
    EXPECT_EQ(job.run(archive, {"*"}), ZipResult::Success);
    EXPECT_EQ(names(), QByteArrayList({"one.txt", "two.txt"}));
    job.options.fRecurse = 0;
    EXPECT_EQ(job.run("a.zip", {"a.zip"}), ZipResult::NothingToDo);
}

TEST_F(ZipLibraryTest, LeavesAFileThatIsNoArchive)
{
    scratch.addFile("a.zip", "no archive");
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::NoArchive);
    EXPECT_EQ(bytes(), QByteArray("no archive"));
    scratch.addFile("a.zip");
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success); // an empty file is an archive to be
    EXPECT_EQ(job.run(scratch.file("in"), {"one.txt"}), ZipResult::CannotCreate);
    EXPECT_EQ(job.run(scratch.file("none/a.zip"), {"one.txt"}), ZipResult::CannotCreate);
}

TEST_F(ZipLibraryTest, StopsWhenItIsCancelled)
{
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    const QByteArray old = bytes();
    add("large", TestData::noise(6 << 20));
    for (int calls : {1, 2, 3, 5, 8}) {
        int left = calls;
        job.isCancelled = [&left](QByteArrayView) { return --left <= 0; };
        EXPECT_EQ(job.run(archive, {"one.txt", "large", "two.txt"}), ZipResult::Cancelled) << calls;
        EXPECT_EQ(bytes(), old);
        EXPECT_EQ(beside(), QByteArrayList{"a.zip"});
    }
}

/// Also while libzip reads the old directory and writes the new one, and while the disk takes the data.
TEST_F(ZipLibraryTest, StopsAtEachCallWithAnArchiveOfManyEntries)
{
    constexpr int entries = 1500; // more than libzip reads at once
    scratch.addFile("a.zip", ArchiveMaker::makeMany(entries));
    const QByteArray old = bytes();
    int calls = 0;
    int result = ZipResult::Cancelled;
    for (int last = 1; result == ZipResult::Cancelled; last += calls / 8 + 1) {
        calls = 0;
        job.isCancelled = [&](QByteArrayView) { return ++calls >= last; };
        EXPECT_TRUE(bytes() == old) << last;
        EXPECT_EQ(beside(), QByteArrayList{"a.zip"}) << last;
        result = job.run(archive, {"one.txt"});
    }
    EXPECT_EQ(result, ZipResult::Success);
    EXPECT_GT(calls, entries);
    EXPECT_EQ(names().size(), entries + 1);
}

TEST_F(ZipLibraryTest, LeavesTheOldArchiveOnAFullDisk)
{
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    const QByteArray old = bytes();
    add("large", TestData::noise(300'000));
    for (const rlim_t room : {0, 10, 100, 1000, 200'000}) {
        const FullDisk full(room);
        EXPECT_EQ(job.run(archive, {"large", "two.txt"}), ZipResult::WriteFailed) << room;
        EXPECT_EQ(bytes(), old);
        EXPECT_EQ(beside(), QByteArrayList{"a.zip"});
    }
    EXPECT_TRUE(job.messages.contains("warning:  " + archive + ": File too large"));
}

TEST_F(ZipLibraryTest, LeavesTheOldArchiveInAReadOnlyFolder)
{
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    const QByteArray old = bytes();
    const AsUser user(scratch.path());
    ASSERT_EQ(::chmod(scratch.path().toUtf8().constData(), 0555), 0);
    EXPECT_EQ(job.run(archive, {"two.txt"}), ZipResult::CannotCreate);
    EXPECT_EQ(bytes(), old);
    ASSERT_EQ(::chmod(scratch.path().toUtf8().constData(), 0755), 0);
    ASSERT_EQ(::chmod(archive.constData(), 0444), 0);
    EXPECT_EQ(job.run(archive, {"two.txt"}), ZipResult::CannotCreate);
    EXPECT_EQ(bytes(), old);
}

TEST_F(ZipLibraryTest, KeepsWhoseTheArchiveIs)
{
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    ASSERT_EQ(::chmod(archive.constData(), 0640), 0);
    const bool isRoot = ::geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(::chown(archive.constData(), 65534, 65534), 0);
    }
    scratch.addLink("link.zip", "a.zip");
    const bool hasAttributes = ::setxattr(archive.constData(), "user.note", "mine", 4, 0) == 0;
    EXPECT_EQ(job.run(scratch.file("link.zip"), {"two.txt"}), ZipResult::Success);
    struct stat state = {};
    ASSERT_EQ(::lstat(scratch.file("link.zip").constData(), &state), 0);
    EXPECT_TRUE(S_ISLNK(state.st_mode));
    ASSERT_EQ(::lstat(archive.constData(), &state), 0);
    EXPECT_EQ(state.st_mode & permissions, 0640u);
    if (isRoot) {
        EXPECT_EQ(state.st_uid, 65534u);
        EXPECT_EQ(state.st_gid, 65534u);
    }
    if (hasAttributes) {
        char note[8] = {};
        EXPECT_EQ(::getxattr(archive.constData(), "user.note", note, sizeof note), 4);
    }
    EXPECT_EQ(names(), QByteArrayList({"one.txt", "two.txt"}));
}

TEST_F(ZipLibraryTest, MakesTheArchiveThatALinkLeadsTo)
{
    scratch.addFolder("sub");
    scratch.addLink("link.zip", "sub/other.zip");
    scratch.addLink("sub/other.zip", "../a.zip");
    EXPECT_EQ(job.run(scratch.file("link.zip"), {"one.txt"}), ZipResult::Success);
    EXPECT_EQ(names(), QByteArrayList{"one.txt"});
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.file("link.zip").toStdString()));
    scratch.addLink("nowhere.zip", "none/a.zip");
    EXPECT_EQ(job.run(scratch.file("nowhere.zip"), {"one.txt"}), ZipResult::CannotCreate);
    scratch.addLink("circle.zip", "circle.zip");
    EXPECT_EQ(job.run(scratch.file("circle.zip"), {"one.txt"}), ZipResult::CannotCreate);
}

TEST_F(ZipLibraryTest, NeverWaitsForAPipe)
{
    ASSERT_EQ(::mkfifo(archive.constData(), 0600), 0);
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::CannotCreate);
}

TEST_F(ZipLibraryTest, LeavesAnArchiveThatAnotherProgramChanges)
{
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    const QByteArray old = bytes();
    const QByteArray withComment = QByteArray(old).replace(old.size() - 2, 2, QByteArray("\1\0x", 3));
    const std::vector<std::function<void()>> changes = {
        [&] { scratch.addFile("a.zip", withComment); },
        [&] { scratch.addFile("a.zip", QByteArray(old).replace(50, 1, "#")); }, // of the same size
        [&] {
            scratch.addFile("b.zip", old);
            std::filesystem::rename(scratch.file("b.zip").toStdString(), archive.toStdString());
        },
        [&] { std::filesystem::remove(archive.toStdString()); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        for (const bool removesAll : {false, true}) {
            scratch.addFile("a.zip", old);
            bool isChanged = false;
            QByteArray changed;
            job.isCancelled = [&](QByteArrayView) {
                // Not before the job has opened the archive, which it does before the first call.
                if (!std::exchange(isChanged, true)) {
                    changes[i]();
                    changed = bytes();
                }
                return false;
            };
            const int result =
                removesAll ? job.remove(archive, {"*"}) : job.run(archive, {"one.txt", "two.txt"});
            EXPECT_EQ(result, ZipResult::WriteFailed) << i;
            EXPECT_EQ(bytes(), changed) << i;
        }
    }
    EXPECT_TRUE(beside().isEmpty());
    EXPECT_EQ(job.messages.constLast(),
              "warning:  " + archive + ": another program has changed it meanwhile");
}

TEST_F(ZipLibraryTest, LeavesAnArchiveThatAnotherProgramMakes)
{
    job.isCancelled = [&](QByteArrayView) {
        scratch.addFile("a.zip", "theirs");
        return false;
    };
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::WriteFailed);
    EXPECT_EQ(bytes(), QByteArray("theirs"));
    EXPECT_EQ(beside(), QByteArrayList{"a.zip"});
}

TEST_F(ZipLibraryTest, CallsWhileTheDiskTakesItsTime)
{
    for (const auto call : {FaultyCalls::Write, FaultyCalls::Fsync}) {
        const FaultyCalls calls;
        calls.hold(call);
        int waits = 0;
        job.isCancelled = [&](QByteArrayView) {
            if (calls.held() > 0 && ++waits == 3)
                calls.release();
            return false;
        };
        EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
        EXPECT_EQ(waits, 3);
        EXPECT_FALSE(calls.isOverdue());
    }
    EXPECT_EQ(names(), QByteArrayList{"one.txt"});
}

TEST_F(ZipLibraryTest, StopsAtOnceWhileTheDiskTakesItsTime)
{
    for (const auto call : {FaultyCalls::Write, FaultyCalls::Fsync}) {
        const FaultyCalls calls;
        calls.hold(call);
        job.isCancelled = [&](QByteArrayView) { return calls.held() > 0; };
        EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Cancelled);
        EXPECT_FALSE(calls.isOverdue());
        EXPECT_EQ(calls.held(), 1);
        EXPECT_TRUE(beside().isEmpty());
    }
}

TEST_F(ZipLibraryTest, LeavesTheOldArchiveWhereTheNewOneCannotBeSaved)
{
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    const QByteArray old = bytes();
    for (const auto call : {FaultyCalls::Write, FaultyCalls::Fsync, FaultyCalls::Close}) {
        const FaultyCalls calls;
        calls.fail(call, EIO);
        EXPECT_EQ(job.run(archive, {"two.txt"}), ZipResult::WriteFailed) << call;
        EXPECT_EQ(bytes(), old);
        EXPECT_EQ(beside(), QByteArrayList{"a.zip"});
    }
}

TEST_F(ZipLibraryTest, UpdatesAnArchiveWithMoreEntriesThanItsCountHolds)
{
    constexpr int count = 70'000;
    scratch.addFile("a.zip", ArchiveMaker::makeMany(count, false));
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    EXPECT_EQ(job.remove(archive, {"00000002"}), ZipResult::Success);
    const QByteArrayList kept = names();
    EXPECT_EQ(kept.size(), count);
    EXPECT_EQ(kept.first(), QByteArray("00000001"));
    EXPECT_EQ(kept[1], QByteArray("00000003"));
    EXPECT_EQ(kept.last(), QByteArray("one.txt"));
}

TEST_F(ZipLibraryTest, KeepsWhatIsBeforeTheArchive)
{
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    const QByteArray prefix = "#!/bin/sh\n" + QByteArray(3000, '#');
    scratch.addFile("a.zip", prefix + bytes());
    EXPECT_EQ(job.run(archive, {"two.txt"}), ZipResult::Success);
    EXPECT_TRUE(bytes().startsWith(prefix));
    EXPECT_EQ(directory().prefix, prefix.size());
    EXPECT_EQ(content().size(), 2);
    EXPECT_EQ(job.remove(archive, {"one.txt"}), ZipResult::Success);
    EXPECT_TRUE(bytes().startsWith(prefix));
    EXPECT_EQ(content().keys(), QByteArrayList{"two.txt"});
}

TEST_F(ZipLibraryTest, StoresManyEntries)
{
    constexpr int count = 70'000;
    scratch.addFolder("in/many");
    for (int i = 0; i < count; ++i)
        add("many/" + QByteArray::number(i), {});
    job.options.fRecurse = 1;
    EXPECT_EQ(job.run(archive, {"many"}), ZipResult::Success);
    EXPECT_EQ(directory().entries.size(), std::size_t(count));
}

TEST_F(ZipLibraryTest, RunsOneJobAtATime)
{
    int inner = -1;
    job.isCancelled = [&](QByteArrayView) {
        if (inner < 0)
            inner = ZpArchive(scratch.file("b.zip"), {});
        return false;
    };
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    EXPECT_EQ(inner, ZipResult::Internal);
}

TEST_F(ZipLibraryTest, TakesSoManyNamesAndNoMore)
{
    NameList names;
    for (int i = 0; i < 1023; ++i)
        names.append("one.txt");
    EXPECT_EQ(errorNumberOf([&] { names.append("one.txt"); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(names.names().size(), 1023);
}
