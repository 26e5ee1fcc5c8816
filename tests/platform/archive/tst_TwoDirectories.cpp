#include "ArchiveMaker.h"
#include "FolderContent.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "UnzipRun.h"
#include "ZipRun.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <libdeflate.h>

namespace {

constexpr quint16 bzip2 = 12; // a method that libzip unpacks

MadeEntry entryOf(const QByteArray &name, const QByteArray &data)
{
    MadeEntry entry;
    entry.name = name;
    entry.data = data;
    return entry;
}

/// An old directory, with the entries "a", "b" and "c", is still in the file before the one that counts,
/// whose only entry is "b". libzip takes the old one, which spans more bytes.
struct TwoDirectoriesTest : testing::Test
{
    ScratchFolder scratch;
    QByteArray archive = scratch.file("a.zip");
    QByteArray target = scratch.file("target");
    std::filesystem::path before = std::filesystem::current_path();

    TwoDirectoriesTest() { std::filesystem::current_path(scratch.path().toStdString()); }
    ~TwoDirectoriesTest() override { std::filesystem::current_path(before); }

    QByteArray add(const MadeEntry &entry) const
    {
        const QByteArray old =
            ArchiveMaker::make({entryOf("a", "first"), entryOf("b", "other"), entryOf("c", "third")});
        const QByteArray bytes = ArchiveMaker::make({entry}, {.prefix = old, .countsPrefix = true});
        scratch.addFile("a.zip", bytes);
        return bytes;
    }

    void expectDamaged(UnzipRun &job) const
    {
        EXPECT_EQ(job.extract(archive, target), UnzipResult::DamagedEntry);
        EXPECT_EQ(job.messages, QByteArrayList({"error:  b: its directory is damaged"}));
        EXPECT_EQ(job.passwordRequests, 0);
        EXPECT_TRUE(FolderContent::filesOf(target).isEmpty());
    }
};

} // namespace

TEST_F(TwoDirectoriesTest, NothingIsDeleted)
{
    const QByteArray bytes = add(entryOf("b", "newer"));
    ZipRun job;
    EXPECT_EQ(job.remove(archive, {"b"}), ZipResult::NoArchive);
    EXPECT_EQ(FolderContent::read(archive), bytes);
}

TEST_F(TwoDirectoriesTest, NothingIsReplacedOrAdded)
{
    const QByteArray bytes = add(entryOf("b", "newer"));
    scratch.addFile("b", "newest");
    scratch.addFile("d", "new");
    for (const QByteArray &name : {QByteArray("b"), QByteArray("d")}) {
        ZipRun job;
        EXPECT_EQ(job.run(archive, {name}), ZipResult::NoArchive) << name.toStdString();
        EXPECT_EQ(FolderContent::read(archive), bytes) << name.toStdString();
    }
}

TEST_F(TwoDirectoriesTest, OfAsManyEntriesButOtherNamesNothingIsReplaced)
{
    const QByteArray old = ArchiveMaker::make({entryOf("a", "first, and longer"), entryOf("c", "third")});
    const QByteArray bytes =
        ArchiveMaker::make({entryOf("b", "2"), entryOf("c", "3")}, {.prefix = old, .countsPrefix = true});
    scratch.addFile("a.zip", bytes);
    scratch.addFile("b", "newest");
    ZipRun job;
    EXPECT_EQ(job.run(archive, {"b"}), ZipResult::NoArchive);
    EXPECT_EQ(FolderContent::read(archive), bytes);
}

TEST_F(TwoDirectoriesTest, WhatLibzipUnpacksIsNotTakenFromTheOldOne)
{
    MadeEntry entry = entryOf("b", "first"); // the data of "a" would be right
    entry.method = bzip2;
    add(entry);
    UnzipRun job;
    expectDamaged(job);
}

TEST_F(TwoDirectoriesTest, NoPasswordIsAskedForWhatLibzipCannotFind)
{
    MadeEntry entry = entryOf("b", "first");
    entry.flags = 1;
    add(entry);
    UnzipRun job;
    job.passwords = {"secret"};
    expectDamaged(job);
}

TEST_F(TwoDirectoriesTest, WhatOnlyTheOldOneCallsEncryptedIsDamaged)
{
    MadeEntry encrypted = entryOf("b", "encrypted, and longer");
    encrypted.flags = 1;
    MadeEntry plain = entryOf("b", "2");
    plain.method = bzip2;
    const QByteArray old = ArchiveMaker::make({encrypted});
    scratch.addFile("a.zip", ArchiveMaker::make({plain}, {.prefix = old, .countsPrefix = true}));
    UnzipRun job;
    EXPECT_EQ(job.extract(archive, target), UnzipResult::DamagedEntry);
    EXPECT_EQ(job.messages, QByteArrayList({"error:  b: its encryption differs"}));
}

/// As libzip gives it: a field repeats it in UTF-8, it has a NUL, or there is none.
TEST_F(TwoDirectoriesTest, ANameThatLibzipReadsInItsOwnWayIsNoDifference)
{
    MadeEntry repeated = entryOf("stored", "data");
    const quint32 crc = libdeflate_crc32(0, "stored", 6);
    repeated.extra = ArchiveMaker::extraField(0x7075, "\x01" + ArchiveMaker::number(crc, 4) + "caf\xc3\xa9");
    MadeEntry dos = entryOf("caf\x82", "data");
    dos.system = 0;
    const MadeEntry withNul = entryOf(QByteArray("x\0y", 3), "data");
    scratch.addFile("a.zip",
                    ArchiveMaker::make({repeated, dos, withNul, entryOf({}, "data"), entryOf("b", "old")}));
    ZipRun job;
    EXPECT_EQ(job.remove(archive, {"b"}), ZipResult::Success);
}
