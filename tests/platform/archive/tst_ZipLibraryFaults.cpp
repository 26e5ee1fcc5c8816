#include "ArchiveMaker.h"
#include "AsUser.h"
#include "FaultyCalls.h"
#include "FullDisk.h"
#include "TestData.h"
#include "ZipLibraryTest.h"

#include <functional>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

// Whatever comes in the way, the archive is afterwards as it was or as it should be.

using ZipLibraryFaultsTest = ZipLibraryTest;

TEST_F(ZipLibraryFaultsTest, StopsWhenItIsCancelled)
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
TEST_F(ZipLibraryFaultsTest, StopsAtEachCallWithAnArchiveOfManyEntries)
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

TEST_F(ZipLibraryFaultsTest, LeavesTheOldArchiveOnAFullDisk)
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

TEST_F(ZipLibraryFaultsTest, LeavesTheOldArchiveInAReadOnlyFolder)
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

TEST_F(ZipLibraryFaultsTest, KeepsWhoseTheArchiveIs)
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

TEST_F(ZipLibraryFaultsTest, MakesTheArchiveThatALinkLeadsTo)
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

TEST_F(ZipLibraryFaultsTest, NeverWaitsForAPipe)
{
    ASSERT_EQ(::mkfifo(archive.constData(), 0600), 0);
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::CannotCreate);
}

TEST_F(ZipLibraryFaultsTest, LeavesAnArchiveThatAnotherProgramChanges)
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

TEST_F(ZipLibraryFaultsTest, LeavesAnArchiveThatAnotherProgramMakes)
{
    job.isCancelled = [&](QByteArrayView) {
        scratch.addFile("a.zip", "theirs");
        return false;
    };
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::WriteFailed);
    EXPECT_EQ(bytes(), QByteArray("theirs"));
    EXPECT_EQ(beside(), QByteArrayList{"a.zip"});
}

/// As on some servers and shares.
TEST_F(ZipLibraryFaultsTest, MakesAnArchiveWithoutSpecialRenamesAndLinks)
{
    const FaultyCalls calls;
    calls.fail(FaultyCalls::RenameToFree, EINVAL);
    calls.fail(FaultyCalls::Link, EPERM);
    EXPECT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    EXPECT_EQ(calls.count(FaultyCalls::Link), 1);
    EXPECT_EQ(names(), QByteArrayList{"one.txt"});
    EXPECT_EQ(beside(), QByteArrayList{"a.zip"});
}

TEST_F(ZipLibraryFaultsTest, CallsWhileTheDiskTakesItsTime)
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

/// The old archive is gone with its last descriptor; a large one takes its time then.
TEST_F(ZipLibraryFaultsTest, CallsWhileTheOldArchiveIsFreed)
{
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    const FaultyCalls calls;
    calls.hold(FaultyCalls::Close, archive + " (deleted)");
    int waits = 0;
    job.isCancelled = [&](QByteArrayView) {
        if (calls.held() > 0 && ++waits == 3)
            calls.release();
        return false;
    };
    EXPECT_EQ(job.run(archive, {"two.txt"}), ZipResult::Success);
    EXPECT_EQ(waits, 3);
    EXPECT_FALSE(calls.isOverdue());
}

TEST_F(ZipLibraryFaultsTest, NobodyWaitsForTheOldArchiveToBeFreed)
{
    ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
    const FaultyCalls calls;
    calls.hold(FaultyCalls::Close, archive + " (deleted)");
    job.isCancelled = [&](QByteArrayView) { return calls.held() > 0; };
    EXPECT_EQ(job.run(archive, {"two.txt"}), ZipResult::Success); // it is there already
    EXPECT_EQ(calls.held(), 1);
    EXPECT_FALSE(calls.isOverdue());
    EXPECT_EQ(names().size(), 2);
}

TEST_F(ZipLibraryFaultsTest, StopsAtOnceWhileTheDiskTakesItsTime)
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

/// A server that does not answer holds up neither the search for the files nor their reading.
TEST_F(ZipLibraryFaultsTest, StopsAtOnceWhileAFileKeepsItWaiting)
{
    for (const auto call : {FaultyCalls::Stat, FaultyCalls::Open}) {
        const FaultyCalls calls;
        calls.hold(call, "two.txt");
        job.isCancelled = [&](QByteArrayView) { return calls.held() > 0; };
        EXPECT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::Cancelled) << call;
        EXPECT_FALSE(calls.isOverdue());
        EXPECT_EQ(calls.held(), 1);
        EXPECT_TRUE(beside().isEmpty());
    }
}

TEST_F(ZipLibraryFaultsTest, CallsWhileItSearches)
{
    const FaultyCalls calls;
    calls.hold(FaultyCalls::Stat, "two.txt");
    int waits = 0;
    job.isCancelled = [&](QByteArrayView) {
        if (calls.held() > 0 && ++waits == 3)
            calls.release();
        return false;
    };
    EXPECT_EQ(job.run(archive, {"one.txt", "two.txt"}), ZipResult::Success);
    EXPECT_EQ(waits, 3);
    EXPECT_FALSE(calls.isOverdue());
}

TEST_F(ZipLibraryFaultsTest, GoesOnWhereASignalInterruptsACall)
{
    for (const auto call : {FaultyCalls::Read, FaultyCalls::Write, FaultyCalls::CopyRange}) {
        std::filesystem::remove(archive.toStdString());
        ASSERT_EQ(job.run(archive, {"one.txt"}), ZipResult::Success);
        const FaultyCalls calls;
        calls.fail(call, EINTR, 1);
        EXPECT_EQ(job.run(archive, {"two.txt"}), ZipResult::Success) << call;
        EXPECT_GT(calls.count(call), 1);
        EXPECT_EQ(content().size(), 2) << call;
    }
}

TEST_F(ZipLibraryFaultsTest, LeavesTheOldArchiveWhereTheNewOneCannotBeSaved)
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

TEST_F(ZipLibraryFaultsTest, UpdatesAnArchiveWithMoreEntriesThanItsCountHolds)
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
