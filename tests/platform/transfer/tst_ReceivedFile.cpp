#include "FailingCalls.h"
#include "FileNames.h"
#include "Files.h"
#include "PrintQt.h"
#include "ReceivedFile.h"
#include "RowName.h"
#include "ScratchFolder.h"
#include "TransferError.h"
#include "TransferFailure.h"

#include <QDir>
#include <cerrno>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

/// What a file system can do: rename to a free name in one step, make a second name, or neither.
struct Abilities
{
    const char *name;
    int renameError; ///< 0 where it can
    int linkError;
};

class ReceivedFileTest : public testing::Test
{
protected:
    QByteArray folder() const { return FileNames::toBytes(local.path()); }
    QStringList names() const
    {
        return QDir(local.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    QByteArray content(const char *name) const { return Files::read(FileNames::fromBytes(local.file(name))); }
    /// Receives a file; the code of what went wrong, or 0.
    int receive() const
    {
        ReceivedFile file(folder(), "a");
        file.write("theirs");
        try {
            file.publish();
        } catch (const TransferFailure &failure) {
            return failure.code;
        }
        return 0;
    }

    const ScratchFolder local;
    FailingCalls calls;
};

class PublishedFile : public ReceivedFileTest, public testing::WithParamInterface<Abilities>
{
protected:
    PublishedFile()
    {
        if (GetParam().renameError != 0)
            calls.fail(FailingCalls::RenameToFree, GetParam().renameError);
        if (GetParam().linkError != 0)
            calls.fail(FailingCalls::Link, GetParam().linkError);
    }
};

} // namespace

TEST_P(PublishedFile, GetsItsName)
{
    EXPECT_EQ(receive(), 0);
    EXPECT_EQ(names(), QStringList{QStringLiteral("a")});
    EXPECT_EQ(content("a"), "theirs");
    struct stat state = {};
    ASSERT_EQ(::stat(local.file("a").constData(), &state), 0);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(state.st_mode & 07777, 0666 & ~mask);
}

TEST_P(PublishedFile, LeavesWhatWasMadeMeanwhile)
{
    {
        ReceivedFile file(folder(), "a");
        file.write("theirs");
        local.addFile("a", "mine");
        EXPECT_THROW(file.publish(), TransferFailure);
    }
    EXPECT_EQ(names(), QStringList{QStringLiteral("a")});
    EXPECT_EQ(content("a"), "mine");
}

TEST_P(PublishedFile, SaysThatTheNameIsTaken)
{
    ReceivedFile file(folder(), "a");
    local.addLink("a", "/nowhere/at/all");
    try {
        file.publish();
        ADD_FAILURE() << "published";
    } catch (const TransferFailure &failure) {
        EXPECT_EQ(failure.code, TransferError::FileExists);
    }
}

INSTANTIATE_TEST_SUITE_P(FileSystems, PublishedFile,
                         testing::Values(Abilities{"Renames", 0, 0}, Abilities{"OldKernel", ENOSYS, 0},
                                         Abilities{"Links", EINVAL, 0}, Abilities{"Neither", EINVAL, EPERM},
                                         Abilities{"NoLinks", EINVAL, EOPNOTSUPP}),
                         RowName());

TEST_F(ReceivedFileTest, NothingIsLeftWhereNoWayWorks)
{
    calls.fail(FailingCalls::RenameToFree, EINVAL);
    calls.fail(FailingCalls::Link, EPERM);
    calls.fail(FailingCalls::Rename, EIO);
    EXPECT_EQ(receive(), TransferError::DeviceError);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ReceivedFileTest, AnErrorOfTheDiskIsNoMissingAbility)
{
    calls.fail(FailingCalls::RenameToFree, ENOSPC);
    EXPECT_EQ(receive(), TransferError::DiskFull);
    EXPECT_EQ(names(), QStringList());
}

/// The file is whole under its name: its hidden name is no failure of the receive.
TEST_F(ReceivedFileTest, AHiddenNameThatStaysIsNoFailure)
{
    calls.fail(FailingCalls::RenameToFree, EINVAL);
    calls.fail(FailingCalls::Unlink, EACCES);
    EXPECT_EQ(receive(), 0);
    EXPECT_EQ(content("a"), "theirs");
    EXPECT_EQ(names().size(), 2);
}

TEST_F(ReceivedFileTest, SyncingWritesToTheDisk)
{
    const ReceivedFile file(folder(), "a");
    const int before = calls.syncs();
    EXPECT_EQ(file.syncing()(), 0);
    EXPECT_EQ(calls.syncs(), before + 1);
    calls.fail(FailingCalls::Sync, EIO);
    EXPECT_EQ(file.syncing()(), EIO);
    calls.fail(FailingCalls::Sync, EINVAL); // no disk is behind such a file
    EXPECT_EQ(file.syncing()(), 0);
}
