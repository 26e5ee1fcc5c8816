#include "FaultyCalls.h"
#include "FileFailure.h"
#include "FolderContent.h"
#include "PartFile.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

struct PartFileTest : testing::Test
{
    ScratchFolder scratch;
    FileDescriptor folder = FileDescriptor::openFolderOf(scratch.file("x"));

    QByteArrayList names() const { return FolderContent::filesOf(scratch.file({}).chopped(1)).keys(); }
    QByteArray read(const QByteArray &name) const { return FolderContent::read(scratch.file(name)); }
};

int errorOfPublishing(PartFile &part, const QByteArray &name)
{
    try {
        part.publish(name, PartFile::Existing::Keep);
    } catch (const FileFailure &failure) {
        return failure.error;
    }
    return 0;
}

} // namespace

TEST_F(PartFileTest, AppearsWhenItIsWhole)
{
    PartFile part(folder);
    part.file().write("data");
    ASSERT_EQ(names().size(), 1);
    EXPECT_TRUE(names().constFirst().startsWith('.'));
    part.publish("name", PartFile::Existing::Keep);
    EXPECT_EQ(names(), QByteArrayList{"name"});
    EXPECT_EQ(read("name"), QByteArray("data"));
}

TEST_F(PartFileTest, IsRemovedUnlessItIsPublished)
{
    {
        const PartFile part(folder);
        EXPECT_EQ(names().size(), 1);
    }
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(PartFileTest, KeepsOrReplacesWhatHasTheName)
{
    scratch.addFile("name", "old");
    {
        PartFile part(folder);
        EXPECT_THROW(part.publish("name", PartFile::Existing::Keep), FileFailure);
    }
    EXPECT_EQ(read("name"), QByteArray("old"));
    PartFile part(folder);
    part.publish("name", PartFile::Existing::Replace);
    EXPECT_EQ(read("name"), QByteArray());
    EXPECT_EQ(names(), QByteArrayList{"name"});
}

/// Some file systems have neither renames that keep what exists nor second names.
TEST_F(PartFileTest, KeepsWhatHasTheNameOnPoorFileSystems)
{
    const FaultyCalls calls;
    calls.fail(FaultyCalls::RenameToFree, EINVAL);
    for (const int error : {0, EPERM}) {
        calls.fail(FaultyCalls::Link, error);
        const QByteArray name = QByteArray::number(error);
        PartFile part(folder);
        part.file().write("data");
        part.publish(name, PartFile::Existing::Keep);
        EXPECT_EQ(read(name), QByteArray("data"));
        PartFile another(folder);
        EXPECT_EQ(errorOfPublishing(another, name), EEXIST);
        EXPECT_EQ(read(name), QByteArray("data"));
    }
    EXPECT_EQ(names().size(), 2);
}

TEST_F(PartFileTest, LeavesNoEmptyFileWhereTheNameCannotBeGiven)
{
    const FaultyCalls calls;
    calls.fail(FaultyCalls::RenameToFree, EINVAL);
    calls.fail(FaultyCalls::Link, EPERM);
    calls.fail(FaultyCalls::Rename, EIO);
    {
        PartFile part(folder);
        EXPECT_EQ(errorOfPublishing(part, "name"), EIO);
    }
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(PartFileTest, SweepsWhatAKilledProcessLeft)
{
    const pid_t child = ::fork();
    if (child == 0) {
        new PartFile(folder);
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
    scratch.addFile(".quill-notes");
    const PartFile running(folder);
    ASSERT_EQ(names().size(), 3);
    PartFile::sweep(folder);
    EXPECT_EQ(names().size(), 2);
    EXPECT_TRUE(names().contains(".quill-notes"));
}

/// Sweeps come at any moment, also between the making of a file and its lock.
TEST_F(PartFileTest, SurvivesSweepsOfOthers)
{
    const std::jthread sweeper([this](const std::stop_token &stop) {
        while (!stop.stop_requested())
            PartFile::sweep(folder);
    });
    constexpr int files = 3000;
    for (int i = 0; i < files; ++i) {
        PartFile part(folder);
        part.publish("name", PartFile::Existing::Replace);
    }
    EXPECT_EQ(names(), QByteArrayList{"name"});
}
