#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "Files.h"
#include "Folder.h"
#include "FullDisk.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "ScratchHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct FilesTest : testing::Test
{
    ScratchHome home;
    QString path = home.file(QStringLiteral("note.txt"));
    QString other = home.file(QStringLiteral("other.txt"));
    QStringList folder() const { return QDir(home.path()).entryList(QDir::Files); }
};

/// Files of a name that others chose, and what is in the folder with them.
struct HostileFilesTest : testing::TestWithParam<HostileName>
{
    ScratchFolder scratch;
    QString path = Folder::join(scratch.path(), GetParam().text());
    QStringList files() const { return Folder::files(scratch.path(), Folder::Hidden::Include); }
};

} // namespace

TEST_P(HostileFilesTest, WritesTheFileThatItReads)
{
    scratch.addFile(GetParam().bytes, "made elsewhere");
    EXPECT_EQ(Files::read(path), QByteArray("made elsewhere"));
    Files::write(path, "one");
    EXPECT_EQ(Files::read(path), QByteArray("one"));
    EXPECT_EQ(files(), QStringList(GetParam().text()));
}

TEST_P(HostileFilesTest, WritesTheFileWhoseLockIsHeld)
{
    Files::writeLocked(path, "two");
    EXPECT_EQ(Files::read(path), QByteArray("two"));
    EXPECT_EQ(files(), QStringList(GetParam().text()));
}

TEST_P(HostileFilesTest, MakesAFile)
{
    Files::write(path, "new");
    EXPECT_EQ(Files::read(path), QByteArray("new"));
    EXPECT_EQ(files(), QStringList(GetParam().text()));
}

TEST_P(HostileFilesTest, MakesTheFileThatALinkPointsTo)
{
    scratch.addLink("link", GetParam().bytes);
    Files::write(Folder::join(scratch.path(), QStringLiteral("link")), "new");
    EXPECT_EQ(Files::read(path), QByteArray("new"));
    EXPECT_EQ(files().size(), 2);
}

INSTANTIATE_TEST_SUITE_P(Names, HostileFilesTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

TEST_F(FilesTest, WritesAndReadsBack)
{
    Files::write(path, "one");
    Files::write(path, "two");
    EXPECT_EQ(Files::read(path), QByteArray("two"));
    EXPECT_EQ(folder(), QStringList(QStringLiteral("note.txt")));
}

TEST_F(FilesTest, ALockedWriteTakesWhatAKilledOneLeft)
{
    Files::write(path, "one");
    Files::write(path + QStringLiteral(".new"), QByteArray(1000, 'x'));
    Files::writeLocked(path, "two");
    EXPECT_EQ(Files::read(path), QByteArray("two"));
    EXPECT_EQ(folder(), QStringList(QStringLiteral("note.txt")));
}

TEST_F(FilesTest, ALockedWriteDoesNotFollowALinkInItsWay)
{
    ASSERT_TRUE(QFile::link(other, path + QStringLiteral(".new")));
    Files::write(other, "other");
    EXPECT_NE(errorNumberOf([&] { Files::writeLocked(path, "two"); }), 0);
    EXPECT_EQ(Files::read(other), QByteArray("other"));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(FilesTest, KeepsThePermissionsOfTheOldFile)
{
    Files::write(path, "one");
    ::chmod(QFile::encodeName(path).constData(), 0640);
    Files::write(path, "two");
    struct stat state = {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0640u);
}

TEST_F(FilesTest, APrivateFileIsTheUsersAlone)
{
    const auto mode = [&] {
        struct stat state = {};
        EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &state), 0);
        return state.st_mode & 0777;
    };
    Files::writePrivate(path, "one");
    EXPECT_EQ(mode(), 0600u);
    ::chmod(QFile::encodeName(path).constData(), 0644);
    Files::writePrivate(path, "two");
    EXPECT_EQ(mode(), 0600u);
    EXPECT_EQ(Files::read(path), QByteArray("two"));
}

TEST_F(FilesTest, WritesThroughALink)
{
    const QString link = home.file(QStringLiteral("link"));
    Files::write(path, "one");
    ASSERT_TRUE(QFile::link(path, link));
    Files::write(link, "two");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(Files::read(path), QByteArray("two"));
}

TEST_F(FilesTest, AFullDiskLeavesTheOldFileWhole)
{
    Files::write(path, "old");
    {
        const FullDisk disk(4096);
        EXPECT_EQ(errorNumberOf([&] { Files::write(path, QByteArray(100000, 'x')); }), ErrorNumber::DiskFull);
        EXPECT_EQ(errorNumberOf([&] { Files::write(other, QByteArray(100000, 'x')); }),
                  ErrorNumber::DiskFull);
    }
    EXPECT_EQ(Files::read(path), QByteArray("old"));
    EXPECT_EQ(folder(), QStringList(QStringLiteral("note.txt")));
}

TEST_F(FilesTest, RefusesWhatIsNoFile)
{
    const QString pipe = home.file(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(errorNumberOf([&] { Files::read(path); }), ErrorNumber::FileNotFound);
    for (const QString &name : {home.path(), pipe, QStringLiteral("/dev/null")}) {
        EXPECT_EQ(errorNumberOf([&] { Files::read(name); }), ErrorNumber::PathFileAccessError);
        EXPECT_EQ(errorNumberOf([&] { Files::write(name, "x"); }), ErrorNumber::PathFileAccessError);
    }
    EXPECT_EQ(errorNumberOf([&] { Files::write(home.file(QStringLiteral("gone/x")), "x"); }),
              ErrorNumber::PathNotFound);
}

TEST_F(FilesTest, ReportsAPathThroughAFile)
{
    Files::write(path, "one");
    EXPECT_EQ(errorNumberOf([&] { Files::read(path + QStringLiteral("/x")); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(errorNumberOf([&] { Files::write(path + QStringLiteral("/x"), "x"); }),
              ErrorNumber::PathNotFound);
    EXPECT_EQ(Files::read(path), QByteArray("one"));
}

TEST_F(FilesTest, ReadsWhatDoesNotTellItsSize)
{
    EXPECT_TRUE(Files::read(QStringLiteral("/proc/self/status")).contains("Name:"));
}

TEST_F(FilesTest, AnEmptyFileIsEmptyAndEveryByteSurvives)
{
    Files::write(path, {});
    EXPECT_TRUE(Files::read(path).isEmpty());
    QByteArray bytes;
    for (int i = 0; i < 300000; ++i)
        bytes.append(char(i));
    Files::write(path, bytes);
    EXPECT_EQ(Files::read(path), bytes);
}

TEST_F(FilesTest, ALinkToAMissingFileMakesThatFile)
{
    const QString link = home.file(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(path, link));
    Files::write(link, "one");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(Files::read(path), QByteArray("one"));
}

TEST_F(FilesTest, ALinkToALinkToAMissingFileMakesThatFile)
{
    const QString first = home.file(QStringLiteral("first"));
    const QString second = home.file(QStringLiteral("second"));
    ASSERT_EQ(::symlink("second", QFile::encodeName(first).constData()), 0);
    ASSERT_EQ(::symlink("note.txt", QFile::encodeName(second).constData()), 0);
    Files::write(first, "one");
    EXPECT_TRUE(QFileInfo(second).isSymLink());
    EXPECT_EQ(Files::read(path), QByteArray("one"));
}

TEST_F(FilesTest, ARingOfLinksIsRefused)
{
    const QString link = home.file(QStringLiteral("link"));
    ASSERT_EQ(::symlink("link", QFile::encodeName(link).constData()), 0);
    EXPECT_EQ(errorNumberOf([&] { Files::read(link); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorNumberOf([&] { Files::write(link, "one"); }), ErrorNumber::PathFileAccessError);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_F(FilesTest, ANewFileFollowsTheMask)
{
    const mode_t before = ::umask(027);
    Files::write(path, "one");
    ::umask(before);
    struct stat state = {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0640u);
}

TEST_F(FilesTest, WithoutPermissionTheFileIsUnchanged)
{
    const AsUser user(home.path());
    Files::write(path, "one");
    ::chmod(QFile::encodeName(path).constData(), 0444);
    EXPECT_EQ(errorNumberOf([&] { Files::write(path, "two"); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(Files::read(path), QByteArray("one"));
    ::chmod(QFile::encodeName(path).constData(), 0);
    EXPECT_EQ(errorNumberOf([&] { Files::read(path); }), ErrorNumber::PermissionDenied);
    ::chmod(QFile::encodeName(home.path()).constData(), 0555);
    EXPECT_EQ(errorNumberOf([&] { Files::write(other, "x"); }), ErrorNumber::PermissionDenied);
    ::chmod(QFile::encodeName(home.path()).constData(), 0755);
    EXPECT_EQ(folder(), QStringList(QStringLiteral("note.txt")));
}

TEST_F(FilesTest, APassingFileIsReplacedWholeOrNotAtAll)
{
    Files::writeWithoutSync(path, "one");
    Files::writeWithoutSync(path, "two");
    EXPECT_EQ(Files::read(path), QByteArray("two"));
    {
        const FullDisk disk(100);
        EXPECT_THROW(Files::writeWithoutSync(path, QByteArray(1000, 'x')), RuntimeError);
    }
    EXPECT_EQ(Files::read(path), QByteArray("two"));
    EXPECT_EQ(folder(), QStringList(QStringLiteral("note.txt")));
}
