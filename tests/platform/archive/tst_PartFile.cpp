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
