#include "ArchiveMaker.h"
#include "FolderContent.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchFolder.h"
#include "UnzipRun.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

MadeEntry evilFile(const QByteArray &name, const QByteArray &data = "evil")
{
    MadeEntry entry;
    entry.name = name;
    entry.data = data;
    return entry;
}

MadeEntry dosFile(const QByteArray &name)
{
    MadeEntry entry = evilFile(name);
    entry.system = 0;
    entry.attributes = 0x20;
    return entry;
}

MadeEntry link(const QByteArray &name, const QByteArray &to)
{
    MadeEntry entry = evilFile(name, to);
    entry.attributes = 0120777u << 16;
    return entry;
}

MadeEntry localName(MadeEntry entry, const QByteArray &name)
{
    entry.localName = name;
    return entry;
}

/// An archive that tries to write elsewhere. In all names "OUTSIDE" is the path of a folder beside the
/// target.
struct EscapeRow
{
    const char *name;
    QList<MadeEntry> entries;
    QByteArrayList written = {}; ///< the files in the target
    int result = UnzipResult::DamagedEntry;
};

void PrintTo(const EscapeRow &row, std::ostream *out)
{
    *out << row.name;
}

const EscapeRow escapeRows[] = {
    {"Parent", {evilFile("../outside/x")}},
    {"ParentInside", {evilFile("a/../../outside/x")}},
    {"ManyParents", {evilFile(QByteArray("../").repeated(20) + "OUTSIDE/x")}},
    {"DosParent", {dosFile("..\\outside\\x")}},
    {"MixedParent", {dosFile("a/..\\..\\outside/x")}},
    {"ParentFolder", {evilFile("../outside/made/")}},
    {"ParentOnlyLocal", {localName(evilFile("x"), "../outside/x")}},
    {"ParentOnlyCentral", {localName(evilFile("../outside/x"), "x")}},
    {"OtherOnlyLocal", {localName(evilFile("aaaa"), "../x")}},
    {"AbsoluteOnlyLocal", {localName(evilFile("x"), "OUTSIDE/x")}},
    {"NulBehindParent", {evilFile(QByteArray("..\0x", 4))}},
    {"Absolute", {evilFile("OUTSIDE/x")}, {"OUTSIDE/x"}, UnzipResult::Success},
    {"AbsoluteTwice", {evilFile("/OUTSIDE//x")}, {"OUTSIDE/x"}, UnzipResult::Success},
    {"AbsoluteFolder", {evilFile("OUTSIDE/made/")}, {}, UnzipResult::Success},
    {"Drive", {dosFile("C:OUTSIDE\\x")}, {"OUTSIDE/x"}, UnzipResult::Success},
    {"Share", {dosFile("\\\\OUTSIDE\\x")}, {"OUTSIDE/x"}, UnzipResult::Success},
    {"Link", {link("outside", "../outside"), evilFile("outside/x")}, {"outside"}, UnzipResult::Warning},
    {"AbsoluteLink", {link("outside", "OUTSIDE"), evilFile("outside/x")}, {"outside"}, UnzipResult::Warning},
    {"ChainOfLinks",
     {link("a", "../outside"), link("b", "a"), evilFile("b/x")},
     {"a", "b"},
     UnzipResult::Warning},
    {"LinkAsFile", {link("x", "../outside/x"), evilFile("x")}, {"x"}, UnzipResult::Success},
};

struct EscapeTest : testing::TestWithParam<EscapeRow>
{
    ScratchFolder scratch;
    QByteArray archive = scratch.file("a.zip");
    QByteArray target = scratch.file("target");
    UnzipRun job;

    EscapeTest()
    {
        scratch.addFolder("outside");
        scratch.addFolder("target");
        job.options.noflag = 1;
    }
};

struct HostileArchiveTest : testing::Test
{
    ScratchFolder scratch;
    QByteArray archive = scratch.file("a.zip");
    QByteArray target = scratch.file("target");
    UnzipRun job;

    HostileArchiveTest()
    {
        scratch.addFolder("target");
        job.options.noflag = 1;
    }
    int extract(const QList<MadeEntry> &entries)
    {
        scratch.addFile("a.zip", ArchiveMaker::make(entries));
        return job.extract(archive, target);
    }
    QMap<QByteArray, QByteArray> files() const { return FolderContent::filesOf(target); }
};

} // namespace

TEST_P(EscapeTest, WritesNothingOutside)
{
    const QByteArray outside = scratch.file("outside");
    QList<MadeEntry> entries = GetParam().entries;
    for (MadeEntry &entry : entries) {
        for (QByteArray *text : {&entry.name, &entry.data})
            text->replace("OUTSIDE", outside);
        if (entry.localName)
            entry.localName->replace("OUTSIDE", outside);
    }
    scratch.addFile("a.zip", ArchiveMaker::make(entries));
    EXPECT_EQ(job.extract(archive, target), GetParam().result);
    EXPECT_TRUE(FolderContent::of(outside).isEmpty());
    QByteArrayList written = GetParam().written;
    for (QByteArray &name : written)
        name.replace("OUTSIDE", outside.sliced(1));
    EXPECT_EQ(FolderContent::filesOf(target).keys(), written);
    for (const FolderContent::Node &node : FolderContent::of(target))
        EXPECT_FALSE(S_ISLNK(node.mode));
}

INSTANTIATE_TEST_SUITE_P(Archives, EscapeTest, testing::ValuesIn(escapeRows), RowName());

/// A link that was there before is not followed either.
TEST_F(HostileArchiveTest, FollowsNoLinkThatExists)
{
    scratch.addFolder("outside");
    scratch.addFile("outside/old", "old");
    scratch.addLink("target/folder", "../outside");
    scratch.addLink("target/file", "../outside/old");
    EXPECT_EQ(extract({evilFile("folder/x"), evilFile("file"), evilFile("folder/")}), UnzipResult::Warning);
    EXPECT_EQ(FolderContent::filesOf(scratch.file("outside")),
              (QMap<QByteArray, QByteArray>{{"old", "old"}}));
    EXPECT_EQ(files().value("file"), QByteArray("evil")); // in place of the link
}

/// Another program puts a link in the place of a folder that the job has made.
TEST_F(HostileArchiveTest, FollowsNoLinkThatAppearsMeanwhile)
{
    scratch.addFolder("outside");
    scratch.addFolder("outside/sub");
    job.isCancelled = [&](QByteArrayView name) {
        if (name == "swap" && !std::filesystem::exists((target + "/old").toStdString())) {
            std::filesystem::rename((target + "/folder").toStdString(), (target + "/old").toStdString());
            scratch.addLink("target/folder", "../outside");
        }
        return false;
    };
    EXPECT_EQ(extract({evilFile("folder/sub/x"), evilFile("swap"), evilFile("folder/y"),
                       evilFile("folder/sub/z"), evilFile("folder/new/x"), evilFile("folder/")}),
              UnzipResult::Warning);
    EXPECT_EQ(FolderContent::of(scratch.file("outside")).keys(), QByteArrayList{"sub"});
}

TEST_F(HostileArchiveTest, LeavesWhatIsInTheWay)
{
    const QByteArray large(3 << 20, 'a'); // still at work when the next one comes
    EXPECT_EQ(extract({evilFile("a", large), evilFile("a/b"), evilFile("c/d", large), evilFile("c")}),
              UnzipResult::Warning);
    EXPECT_TRUE(files() == (QMap<QByteArray, QByteArray>{{"a", large}, {"c/d", large}}));
}

TEST_F(HostileArchiveTest, LeavesAPipeThatIsInTheWay)
{
    ASSERT_EQ(::mkfifo((target + "/a").constData(), 0600), 0);
    EXPECT_EQ(extract({evilFile("a")}), UnzipResult::Warning);
    EXPECT_TRUE(S_ISFIFO(FolderContent::of(target).value("a").mode));
}

TEST_F(HostileArchiveTest, RefusesEntriesThatShareTheirData)
{
    const QByteArray data(100'000, 'x');
    MadeEntry first = evilFile("first", data);
    first.isDeflated = true;
    MadeEntry second = first;
    second.name = "second";
    second.localName = "first";
    second.offset = 0;
    MadeEntry third = first;
    third.offset = 0;
    const QList<MadeEntry> entries = {first, second, third, evilFile("good", "good")};
    EXPECT_EQ(extract(entries), UnzipResult::Overlap);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"good", "good"}}));
    EXPECT_EQ(job.list(archive), UnzipResult::Success); // the list is shown nevertheless
    EXPECT_EQ(job.entries.size(), 4);
}

/// One entry is in the stored data of another, each with a header of its own.
TEST_F(HostileArchiveTest, RefusesEntriesThatAreWithinOthers)
{
    const QByteArray inner = ArchiveMaker::make({evilFile("inner", "inner data")});
    MadeEntry quoted = evilFile("inner", "inner data");
    quoted.offset = 30 + 5; // in the data of "outer"
    EXPECT_EQ(extract({evilFile("outer", inner), quoted, evilFile("good", "good")}), UnzipResult::Overlap);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"good", "good"}}));
}

TEST_F(HostileArchiveTest, StopsAtTheSizeThatIsDeclared)
{
    for (const qsizetype size : {100'000, 20 << 20}) {
        MadeEntry bomb = evilFile("bomb", QByteArray(size, '\0'));
        bomb.isDeflated = true;
        for (const quint64 declared : {quint64(0), quint64(10), quint64(size) - 1}) {
            bomb.size = declared;
            EXPECT_EQ(extract({bomb}), UnzipResult::DamagedEntry) << declared;
            EXPECT_TRUE(FolderContent::of(target).isEmpty());
        }
        for (const quint64 declared : {quint64(size) + 1, Q_UINT64_C(100'000'000'000'000)}) {
            bomb.is64 = true;
            bomb.size = declared;
            EXPECT_EQ(extract({bomb}), UnzipResult::DamagedEntry) << declared;
            EXPECT_TRUE(FolderContent::of(target).isEmpty());
        }
    }
}

/// A large one is written in pieces; no piece beyond the size that is declared comes to the disk.
TEST_F(HostileArchiveTest, WritesNoMoreThanIsDeclared)
{
    constexpr quint64 declared = 9 << 20;
    MadeEntry bomb = evilFile("bomb", QByteArray(20 << 20, '\0'));
    bomb.isDeflated = true;
    bomb.size = declared;
    const FullDisk full(declared);
    EXPECT_EQ(extract({bomb}), UnzipResult::DamagedEntry);
    EXPECT_TRUE(FolderContent::of(target).isEmpty());
}

TEST_F(HostileArchiveTest, StopsAtThePackedSizeThatIsDeclared)
{
    MadeEntry stored = evilFile("stored", "0123456789");
    stored.size = 20;
    EXPECT_EQ(extract({stored}), UnzipResult::DamagedEntry);
    stored.packedSize = 20; // into the directory
    EXPECT_EQ(extract({stored}), UnzipResult::Overlap);
    MadeEntry shorter = evilFile("shorter", "0123456789");
    shorter.packedSize = 5;
    EXPECT_EQ(extract({shorter}), UnzipResult::DamagedEntry);
    EXPECT_TRUE(FolderContent::of(target).isEmpty());
}

TEST_F(HostileArchiveTest, RefusesAWrongChecksumMethodOrHeader)
{
    MadeEntry checksum = evilFile("checksum");
    checksum.crc = 0;
    MadeEntry method = evilFile("method");
    method.localMethod = 8;
    MadeEntry beyond = evilFile("beyond");
    beyond.offset = 1'000'000;
    EXPECT_EQ(extract({checksum, method}), UnzipResult::DamagedEntry);
    MadeEntry nowhere = evilFile("nowhere");
    nowhere.offset = 1;
    EXPECT_EQ(extract({nowhere}), UnzipResult::DamagedEntry);
    EXPECT_EQ(extract({beyond}), UnzipResult::Cut);
    EXPECT_TRUE(FolderContent::of(target).isEmpty());
}

TEST_F(HostileArchiveTest, FindsEachDamagedByte)
{
    MadeEntry deflated = evilFile("a", QByteArray("some words and others ").repeated(50));
    deflated.isDeflated = true;
    const QByteArray whole = ArchiveMaker::make({deflated});
    const qsizetype last =
        31 + ArchiveMaker::deflated(deflated.data).size() - 1; // has bits that nobody reads
    for (qsizetype i = 31; i < last; ++i) {
        QByteArray damaged = whole;
        damaged[i] = char(damaged[i] ^ 0x10);
        scratch.addFile("a.zip", damaged);
        EXPECT_EQ(job.extract(archive, target), UnzipResult::DamagedEntry) << i;
    }
    EXPECT_TRUE(FolderContent::of(target).isEmpty());
}

TEST_F(HostileArchiveTest, TakesDeepAndLongNames)
{
    const QByteArray deep = QByteArray("d/").repeated(300) + "x";
    EXPECT_EQ(extract({evilFile(deep)}), UnzipResult::Success);
    EXPECT_EQ(files().keys(), QByteArrayList{deep});
    EXPECT_EQ(extract({evilFile(QByteArray("d/").repeated(30'000) + "x"), evilFile(QByteArray(65'535, 'n'))}),
              UnzipResult::Warning);
    EXPECT_EQ(files().size(), 1);
}

TEST_F(HostileArchiveTest, TakesAFolderWithData)
{
    EXPECT_EQ(extract({evilFile("folder/", "data"), evilFile("folder/x")}), UnzipResult::Success);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"folder/x", "evil"}}));
}

TEST_F(HostileArchiveTest, ListsMoreEntriesThanTheCountHolds)
{
    constexpr int count = 200'000;
    scratch.addFile("a.zip", ArchiveMaker::makeMany(count));
    EXPECT_EQ(job.list(archive), UnzipResult::Success);
    EXPECT_EQ(job.entries.size(), count);
}
