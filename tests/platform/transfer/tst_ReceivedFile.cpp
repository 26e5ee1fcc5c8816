#include "FailingCalls.h"
#include "FileNames.h"
#include "Files.h"
#include "PrintQt.h"
#include "ReceivedFile.h"
#include "ScratchFolder.h"
#include "TransferError.h"
#include "TransferFailure.h"

#include <QDir>
#include <cerrno>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class ReceivedFileTest : public testing::Test
{
protected:
    QByteArray folder() const { return FileNames::toBytes(local.path()); }
    QStringList names() const
    {
        return QDir(local.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    QByteArray content(const char *name) const { return Files::read(FileNames::fromBytes(local.file(name))); }
    /// The code of what goes wrong in \a step, or 0.
    template<class Step>
    static int codeOf(Step step)
    {
        try {
            step();
        } catch (const TransferFailure &failure) {
            return failure.code;
        }
        return 0;
    }
    int receive(const QByteArray &into) const
    {
        return codeOf([&] {
            ReceivedFile file(into, "a");
            file.write("theirs");
            file.publish();
        });
    }

    const ScratchFolder local;
    FailingCalls calls;
};

} // namespace

TEST_F(ReceivedFileTest, IsAnOrdinaryFile)
{
    EXPECT_EQ(receive(folder()), 0);
    EXPECT_EQ(names(), QStringList{QStringLiteral("a")});
    EXPECT_EQ(content("a"), "theirs");
    struct stat state = {};
    ASSERT_EQ(::stat(local.file("a").constData(), &state), 0);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(state.st_mode & 07777, 0666 & ~mask);
}

TEST_F(ReceivedFileTest, ANameThatIsTakenIsAnError)
{
    local.addLink("a", "/nowhere/at/all");
    EXPECT_EQ(receive(folder()), TransferError::FileExists);
    EXPECT_EQ(names(), QStringList{QStringLiteral("a")});
}

TEST_F(ReceivedFileTest, LeavesWhatWasMadeMeanwhile)
{
    {
        ReceivedFile file(folder(), "a");
        file.write("theirs");
        local.addFile("a", "mine");
        EXPECT_EQ(codeOf([&] { file.publish(); }), TransferError::FileExists);
    }
    EXPECT_EQ(names(), QStringList{QStringLiteral("a")});
    EXPECT_EQ(content("a"), "mine");
}

TEST_F(ReceivedFileTest, AFolderIsNeeded)
{
    EXPECT_EQ(receive(folder() + "/none"), TransferError::PathNotFound);
    local.addFile("file");
    EXPECT_EQ(receive(folder() + "/file"), TransferError::PathNotFound);
}

TEST_F(ReceivedFileTest, ErrorsOfTheDiskAreReported)
{
    calls.fail(FailingCalls::RenameToFree, ENOSPC);
    EXPECT_EQ(receive(folder()), TransferError::DiskFull);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ReceivedFileTest, RemovesWhatAKilledReceiveLeft)
{
    const QByteArray left = ".quill-000000000left.part";
    local.addFile(left, "half");
    const ReceivedFile file(folder(), "a");
    EXPECT_TRUE(names().contains(QString::fromLatin1(left)));
    EXPECT_TRUE(ReceivedFile::sweep(folder()));
    EXPECT_FALSE(names().contains(QString::fromLatin1(left)));
    EXPECT_EQ(names().size(), 1); // the one that is being received
    EXPECT_FALSE(ReceivedFile::sweep(folder() + "/none"));
}
