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
#include "ZipLibraryTest.h"
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
    EXPECT_TRUE(entries[0].attributes & ArchiveEntry::Folder); // for programs that know no modes
    EXPECT_FALSE(entries[1].attributes & ArchiveEntry::Folder);
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
