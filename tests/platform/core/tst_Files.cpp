#include "Files.h"
#include "RuntimeError.h"
#include "ScratchHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <csignal>
#include <unistd.h>

namespace {

template<class Step>
int errorNumberOf(Step &&step)
{
    try {
        step();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

struct FilesTest : testing::Test
{
    ScratchHome home;
    QString path = home.file(QStringLiteral("note.txt"));
    QStringList folder() const { return QDir(home.path()).entryList(QDir::Files); }
};

} // namespace

TEST_F(FilesTest, WritesAndReadsBack)
{
    Files::write(path, "one");
    Files::write(path, "two");
    EXPECT_EQ(Files::read(path), QByteArray("two"));
    EXPECT_EQ(folder(), QStringList(QStringLiteral("note.txt")));
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
    struct rlimit before = {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit tight = {4096, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    const int number = errorNumberOf([&] { Files::write(path, QByteArray(100000, 'x')); });
    ::setrlimit(RLIMIT_FSIZE, &before);

    EXPECT_EQ(number, ErrorNumber::DiskFull);
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
