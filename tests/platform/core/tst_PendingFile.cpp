#include "AsUser.h"
#include "FailingCalls.h"
#include "FileNames.h"
#include "Files.h"
#include "PendingFile.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchFolder.h"

#include <QDir>
#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace {

using Existing = PendingFile::Existing;

struct PendingFileTest : testing::Test
{
    const ScratchFolder scratch;
    const Descriptor folder{
        ::open(FileNames::toBytes(scratch.path()).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC)};
    FailingCalls calls;

    QStringList names() const
    {
        return QDir(scratch.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    QByteArray content(const char *name) const
    {
        return Files::read(FileNames::fromBytes(scratch.file(name)));
    }
    struct stat state(const char *name) const
    {
        struct stat found = {};
        EXPECT_EQ(::stat(scratch.file(name).constData(), &found), 0);
        return found;
    }
    /// Writes a file; the errno value of what went wrong, or 0.
    int write(Existing existing) const
    {
        try {
            PendingFile file(folder.get(), 0600);
            file.write("new");
            file.publish("name", existing);
        } catch (const std::system_error &failure) {
            return failure.code().value();
        }
        return 0;
    }
};

/// What a file system can do: rename to a free name in one step, make a second name, or neither.
struct FileSystem
{
    const char *name;
    int renameError; ///< 0 where it can
    int linkError;
};

struct PendingFileSystemTest : PendingFileTest, testing::WithParamInterface<FileSystem>
{
    PendingFileSystemTest()
    {
        if (GetParam().renameError != 0)
            calls.fail(FailingCalls::RenameToFree, GetParam().renameError);
        if (GetParam().linkError != 0)
            calls.fail(FailingCalls::Link, GetParam().linkError);
    }
};

} // namespace

TEST_P(PendingFileSystemTest, GetsItsName)
{
    EXPECT_EQ(write(Existing::Keep), 0);
    EXPECT_EQ(names(), QStringList{QStringLiteral("name")});
    EXPECT_EQ(content("name"), "new");
    EXPECT_EQ(state("name").st_mode & 07777, 0600u);
}

TEST_P(PendingFileSystemTest, KeepsWhatHasTheName)
{
    scratch.addFile("name", "old");
    EXPECT_EQ(write(Existing::Keep), EEXIST);
    EXPECT_EQ(names(), QStringList{QStringLiteral("name")});
    EXPECT_EQ(content("name"), "old");
}

TEST_P(PendingFileSystemTest, ReplacesWhatHasTheName)
{
    scratch.addFile("name", "old");
    EXPECT_EQ(write(Existing::Replace), 0);
    EXPECT_EQ(names(), QStringList{QStringLiteral("name")});
    EXPECT_EQ(content("name"), "new");
}

TEST_P(PendingFileSystemTest, KeepsALinkToNowhere)
{
    scratch.addLink("name", "/nowhere/at/all");
    EXPECT_EQ(write(Existing::Keep), EEXIST);
    EXPECT_EQ(names(), QStringList{QStringLiteral("name")});
}

INSTANTIATE_TEST_SUITE_P(FileSystems, PendingFileSystemTest,
                         testing::Values(FileSystem{"Renames", 0, 0}, FileSystem{"OldKernel", ENOSYS, 0},
                                         FileSystem{"Links", EINVAL, 0}, FileSystem{"Neither", EINVAL, EPERM},
                                         FileSystem{"NoLinks", EINVAL, EOPNOTSUPP}),
                         RowName());

TEST_F(PendingFileTest, NothingIsLeftWhereNoWayWorks)
{
    calls.fail(FailingCalls::RenameToFree, EINVAL);
    calls.fail(FailingCalls::Link, EPERM);
    calls.fail(FailingCalls::Rename, EIO);
    EXPECT_EQ(write(Existing::Keep), EIO);
    EXPECT_EQ(write(Existing::Replace), EIO);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(PendingFileTest, AnErrorOfTheDiskIsNoMissingAbility)
{
    calls.fail(FailingCalls::RenameToFree, ENOSPC);
    EXPECT_EQ(write(Existing::Keep), ENOSPC);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(PendingFileTest, AnErrorThatComesWithTheCloseIsNoticed)
{
    scratch.addFile("name", "old");
    {
        PendingFile file(folder.get(), 0600);
        file.write("new");
        calls.fail(FailingCalls::Close, EIO, 1);
        try {
            file.publish("name", Existing::Replace);
            ADD_FAILURE() << "published";
        } catch (const std::system_error &failure) {
            EXPECT_EQ(failure.code().value(), EIO);
        }
    }
    EXPECT_EQ(names(), QStringList{QStringLiteral("name")});
    EXPECT_EQ(content("name"), "old");
}

/// The file is whole under its name: its hidden name is no failure.
TEST_F(PendingFileTest, AHiddenNameThatStaysIsNoFailure)
{
    calls.fail(FailingCalls::RenameToFree, EINVAL);
    calls.fail(FailingCalls::Unlink, EACCES, 1);
    EXPECT_EQ(write(Existing::Keep), 0);
    EXPECT_EQ(content("name"), "new");
    EXPECT_EQ(names().size(), 2);
    PendingFile::sweep(folder.get());
    EXPECT_EQ(names(), QStringList{QStringLiteral("name")});
    EXPECT_EQ(content("name"), "new");
}

TEST_F(PendingFileTest, IsHiddenUntilItGetsItsName)
{
    {
        const PendingFile file(folder.get(), 0600);
        ASSERT_EQ(names().size(), 1);
        EXPECT_TRUE(names().constFirst().startsWith(u'.'));
    }
    EXPECT_EQ(names(), QStringList());
}

TEST_F(PendingFileTest, TheUsersMaskTakesPermissionsAway)
{
    const mode_t mask = ::umask(0027);
    PendingFile file(folder.get(), 0666);
    ::umask(mask);
    file.publish("name", Existing::Keep);
    EXPECT_EQ(state("name").st_mode & 07777, 0640u);
}

TEST_F(PendingFileTest, TheFolderMayBeClosedBefore)
{
    Descriptor other(::fcntl(folder.get(), F_DUPFD_CLOEXEC, 0));
    PendingFile file(other.get(), 0600);
    other.close();
    file.publish("name", Existing::Keep);
    EXPECT_EQ(names(), QStringList{QStringLiteral("name")});
}

TEST_F(PendingFileTest, KeepsItsTimeOfChange)
{
    PendingFile file(folder.get(), 0600);
    file.write("new");
    file.setModified(1'000'000'007);
    file.publish("name", Existing::Keep);
    EXPECT_EQ(state("name").st_mtime, 1'000'000'007);
}

TEST_F(PendingFileTest, MayHaveMoreThan4GiB)
{
    constexpr off_t size = 5LL << 30;
    PendingFile file(folder.get(), 0600);
    ASSERT_EQ(::lseek(file.file(), size - 3, SEEK_SET), size - 3);
    file.write("end");
    file.publish("name", Existing::Keep);
    EXPECT_EQ(state("name").st_size, size);
}

TEST_F(PendingFileTest, AFolderThatCannotBeWrittenIsAnError)
{
    try {
        const PendingFile file(-1, 0600);
        ADD_FAILURE() << "made";
    } catch (const std::system_error &failure) {
        EXPECT_EQ(failure.code().value(), EBADF);
    }
}

TEST_F(PendingFileTest, SyncingWritesToTheDisk)
{
    std::function<int()> sync;
    {
        const PendingFile file(folder.get(), 0600);
        const int before = calls.syncs();
        sync = file.syncing();
        EXPECT_EQ(sync(), 0);
        EXPECT_EQ(calls.syncs(), before + 1);
    }
    EXPECT_EQ(sync(), 0); // as in a thread that ends later than its command
    calls.fail(FailingCalls::Sync, EIO);
    EXPECT_EQ(sync(), EIO);
    calls.fail(FailingCalls::Sync, EINVAL); // no disk is behind such a file
    EXPECT_EQ(sync(), 0);
}

TEST_F(PendingFileTest, ASweepRemovesWhatAKilledProcessLeft)
{
    const pid_t child = ::fork();
    if (child == 0) {
        new PendingFile(folder.get(), 0600);
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
    scratch.addFile(".quill-notes");
    scratch.addFile("x.part");
    const PendingFile running(folder.get(), 0600);
    ASSERT_EQ(names().size(), 4);
    PendingFile::sweep(folder.get());
    EXPECT_EQ(names().size(), 3);
    EXPECT_TRUE(names().contains(QStringLiteral(".quill-notes")));
    EXPECT_TRUE(names().contains(QStringLiteral("x.part")));
}

/// Whose names are nearly such names, or that are no files.
TEST_F(PendingFileTest, ASweepLeavesWhatIsNoPendingFile)
{
    for (const char *name :
         {".quill-.part", ".quill-my notes.part", ".quill-notes.part", ".quill-1234567890ABC.part",
          ".quill-1234567890abc.parts", ".quill-01234567890abc.part", "x.quill-1234567890abc.part",
          ".quill-1234567890a.c.part"})
        scratch.addFile(name, "mine");
    scratch.addFile("target", "mine");
    scratch.addLink(".quill-000000000link.part", "target");
    scratch.addFolder(".quill-0000000folder.part");
    ASSERT_EQ(::mkfifo(scratch.file(".quill-000000000pipe.part").constData(), 0600), 0);
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    const QStringList before = QDir(scratch.path()).entryList(all);
    scratch.addFile(".quill-1234567890abc.part", "half");
    PendingFile::sweep(folder.get());
    EXPECT_EQ(QDir(scratch.path()).entryList(all), before);
}

TEST_F(PendingFileTest, ASweepLeavesTheFilesOfOtherUsers)
{
    {
        const AsUser user(scratch.path());
        scratch.addFile(".quill-0000000000001.part", "half");
    }
    const bool isOfOther =
        state(".quill-0000000000001.part").st_uid != ::geteuid(); // where root runs the tests
    PendingFile::sweep(folder.get());
    EXPECT_EQ(names().size(), isOfOther ? 1 : 0);
}

/// Sweeps come at any moment, also between the making of a file and its lock.
TEST_F(PendingFileTest, SurvivesSweepsOfOthers)
{
    const std::jthread sweeper([this](const std::stop_token &stop) {
        while (!stop.stop_requested())
            PendingFile::sweep(folder.get());
    });
    constexpr int files = 3000;
    for (int i = 0; i < files; ++i) {
        PendingFile file(folder.get(), 0600);
        file.publish("name", Existing::Replace);
    }
    EXPECT_EQ(names(), QStringList{QStringLiteral("name")});
}
