#include "AsUser.h"
#include "FaultyCalls.h"
#include "FileCollector.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchFolder.h"

#include <filesystem>
#include <future>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct FileCollectorTest : testing::Test
{
    ScratchFolder scratch;
    std::filesystem::path before = std::filesystem::current_path();
    ZPOPT options;
    QByteArrayList warnings;
    bool hasMissed = false;
    bool hasTwoOfOneName = false;

    FileCollectorTest()
    {
        options.fNoDirEntries = 1;
        scratch.addFile("one.txt");
        scratch.addFile("two.TXT");
        scratch.addFile("three.bas");
        scratch.addFile(".hidden.txt");
        scratch.addFolder("sub");
        scratch.addFile("sub/four.txt");
        scratch.addFolder("sub/deep");
        scratch.addFile("sub/deep/five.txt");
        scratch.addFolder(".git");
        scratch.addFile(".git/six.txt");
        std::filesystem::current_path(scratch.path().toStdString());
    }
    ~FileCollectorTest() override { std::filesystem::current_path(before); }

    QByteArrayList collect(const QByteArrayList &names)
    {
        const FileCollector::Found found = FileCollector(options).collect(names);
        warnings.clear();
        for (const FileCollector::Warning &warning : found.warnings)
            warnings.append(warning.name);
        hasMissed = found.hasMissed;
        hasTwoOfOneName = found.hasTwoOfOneName;
        QByteArrayList files;
        for (const SourceFile &file : found.files)
            files.append(file.name);
        return files;
    }
};

} // namespace

TEST_F(FileCollectorTest, TakesFilesByName)
{
    EXPECT_EQ(collect({"two.TXT", "./sub//four.txt", scratch.file("one.txt")}),
              QByteArrayList({"two.TXT", "sub/four.txt", scratch.file("one.txt").sliced(1)}));
    EXPECT_TRUE(warnings.isEmpty());
    EXPECT_FALSE(hasMissed || hasTwoOfOneName);
}

TEST_F(FileCollectorTest, LeavesFoldersOutOfTheNames)
{
    options.fJunkDir = 1;
    EXPECT_EQ(collect({"sub/four.txt", scratch.file("one.txt")}), QByteArrayList({"four.txt", "one.txt"}));
}

TEST_F(FileCollectorTest, NamesNeverLeadOutOfTheirFolder)
{
    std::filesystem::current_path((scratch.path() + QStringLiteral("/sub/deep")).toStdString());
    EXPECT_EQ(collect({"../four.txt", "../deep/five.txt", "../../one.txt"}),
              QByteArrayList({"four.txt", "deep/five.txt", "one.txt"}));
}

TEST_F(FileCollectorTest, MatchesPatternsInAnyCase)
{
    EXPECT_EQ(collect({"*.txt"}), QByteArrayList({"one.txt", "two.TXT"}));
    EXPECT_EQ(collect({"sub/f???.*"}), QByteArrayList({"sub/four.txt"}));
    EXPECT_EQ(collect({"[ot]*"}), QByteArrayList({"one.txt", "three.bas", "two.TXT"}));
}

TEST_F(FileCollectorTest, TakesHiddenFilesByNameOrWithSystemFiles)
{
    EXPECT_EQ(collect({".hidden.txt"}), QByteArrayList({".hidden.txt"}));
    options.fSystem = 1;
    EXPECT_EQ(collect({"*.txt"}), QByteArrayList({".hidden.txt", "one.txt", "two.TXT"}));
    options.fRecurse = 2;
    EXPECT_TRUE(collect({"*.txt"}).contains(".git/six.txt"));
}

TEST_F(FileCollectorTest, MatchesPatternsInAllFoldersBelow)
{
    options.fRecurse = 2;
    EXPECT_EQ(collect({"*.txt"}),
              QByteArrayList({"one.txt", "two.TXT", "sub/four.txt", "sub/deep/five.txt"}));
    EXPECT_EQ(collect({"f*", "*.bas"}), QByteArrayList({"three.bas", "sub/four.txt", "sub/deep/five.txt"}));
    EXPECT_EQ(collect({"sub/*"}), QByteArrayList({"sub/four.txt", "sub/deep/five.txt"}));
}

TEST_F(FileCollectorTest, TakesFoldersWithAllBelow)
{
    options.fRecurse = 1;
    EXPECT_EQ(collect({"sub"}), QByteArrayList({"sub/four.txt", "sub/deep/five.txt"}));
    options.fNoDirEntries = 0;
    EXPECT_EQ(collect({"sub/"}), QByteArrayList({"sub/", "sub/deep/", "sub/four.txt", "sub/deep/five.txt"}));
    options.fJunkDir = 1;
    EXPECT_EQ(collect({"sub"}), QByteArrayList({"four.txt", "five.txt"}));
}

TEST_F(FileCollectorTest, TakesAFolderAloneWithoutRecursion)
{
    EXPECT_TRUE(collect({"sub"}).isEmpty());
    options.fNoDirEntries = 0;
    EXPECT_EQ(collect({"sub"}), QByteArrayList({"sub/"}));
}

TEST_F(FileCollectorTest, TakesAFileOnce)
{
    options.fRecurse = 1;
    EXPECT_EQ(collect({"one.txt", "./one.txt", "*.bas", "three.bas"}),
              QByteArrayList({"one.txt", "three.bas"}));
}

TEST_F(FileCollectorTest, RefusesTwoFilesOfOneName)
{
    scratch.addFile("sub/one.txt");
    options.fJunkDir = 1;
    EXPECT_EQ(collect({"one.txt", "sub/one.txt", "two.TXT"}), QByteArrayList{"one.txt"});
    EXPECT_TRUE(hasTwoOfOneName);
    EXPECT_EQ(warnings, QByteArrayList{"sub/one.txt"});
}

TEST_F(FileCollectorTest, WarnsOfWhatIsNotThere)
{
    EXPECT_EQ(collect({"none.txt", "one.txt"}), QByteArrayList{"one.txt"});
    EXPECT_EQ(warnings, QByteArrayList{"none.txt"});
    EXPECT_TRUE(hasMissed);
    EXPECT_TRUE(collect({"*.none"}).isEmpty());
    EXPECT_EQ(warnings, QByteArrayList{"*.none"});
    options.fRecurse = 2;
    EXPECT_EQ(collect({"*.bas", "*.none"}), QByteArrayList{"three.bas"});
    EXPECT_EQ(warnings, QByteArrayList{"*.none"});
}

TEST_F(FileCollectorTest, WarnsOfAFolderThatMayNotBeRead)
{
    const AsUser user(scratch.path());
    ASSERT_EQ(::chmod("sub/deep", 0), 0);
    options.fRecurse = 1;
    EXPECT_EQ(collect({"sub"}), QByteArrayList{"sub/four.txt"});
    EXPECT_EQ(warnings, QByteArrayList{"sub/deep"});
    EXPECT_TRUE(hasMissed);
    options.fRecurse = 2;
    EXPECT_EQ(collect({"f*.txt"}), QByteArrayList{"sub/four.txt"});
    EXPECT_EQ(warnings, QByteArrayList{"sub/deep"});
    EXPECT_TRUE(hasMissed);
    options.fRecurse = 0;
    EXPECT_TRUE(collect({"sub/deep/*.txt"}).isEmpty());
    EXPECT_EQ(warnings, QByteArrayList({"sub/deep/", "sub/deep/*.txt"}));
    EXPECT_TRUE(hasMissed);
    ASSERT_EQ(::chmod("sub/deep", 0755), 0);
}

TEST_F(FileCollectorTest, APatternInNoFolderMatchesNothing)
{
    EXPECT_TRUE(collect({"none/*.txt", "one.txt/*"}).isEmpty());
    EXPECT_EQ(warnings, QByteArrayList({"none/*.txt", "one.txt/*"}));
    EXPECT_FALSE(hasMissed);
}

TEST_F(FileCollectorTest, TakesNeitherPipesNorLinkedFolders)
{
    ASSERT_EQ(::mkfifo(scratch.file("sub/pipe").constData(), 0600), 0);
    scratch.addLink("sub/loop", "..");
    scratch.addLink("sub/link.txt", "four.txt");
    options.fRecurse = 1;
    EXPECT_EQ(collect({"sub"}), QByteArrayList({"sub/four.txt", "sub/link.txt", "sub/deep/five.txt"}));
    EXPECT_EQ(warnings, QByteArrayList{"sub/pipe"});
}

TEST_F(FileCollectorTest, LeavesTheArchiveOut)
{
    struct stat state = {};
    ASSERT_EQ(::stat("one.txt", &state), 0);
    SourceFile archive;
    archive.device = state.st_dev;
    archive.inode = state.st_ino;
    FileCollector collector(options);
    collector.leaveOut(archive);
    const auto files = collector.collect({"*.txt"}).files;
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].name, QByteArray("two.TXT"));
}

/// A name that is a pattern as well is the file's where there is one.
TEST_F(FileCollectorTest, TakesTheFileThatLooksLikeAPattern)
{
    scratch.addFile("[ot]*");
    EXPECT_EQ(collect({"[ot]*"}), QByteArrayList{"[ot]*"});
}

TEST_F(FileCollectorTest, EndsAtTheFileThatHeldItUp)
{
    const FaultyCalls calls;
    calls.hold(FaultyCalls::Stat, "two.TXT");
    FileCollector collector(options);
    auto found = std::async(std::launch::async, [&] {
        return collector.collect({"one.txt", "two.TXT", "three.bas"}).files.size();
    });
    calls.waitUntilHeld();
    collector.stop();
    calls.release();
    EXPECT_EQ(found.get(), 1u);
}
