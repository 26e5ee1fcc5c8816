#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "Files.h"
#include "PrintQt.h"
#include "ScratchProgramFolder.h"
#include "SmallDisk.h"
#include "UpgradeFolder.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

struct UpgradeFolderTest : testing::Test
{
    UpgradeFolderTest() { program.addFolder("upgrade"); }

    QStringList names(const QString &folder) const
    {
        return QDir(program.path() + folder)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
    QByteArray content(const char *name) const { return Files::read(QString::fromUtf8(program.file(name))); }

    ScratchProgramFolder program;
};

int errorOfName(const QString &name)
{
    return errorNumberOf([&] { UpgradeFolder::write(name, "x"); });
}

} // namespace

TEST_F(UpgradeFolderTest, TakesFilesAndTellsTheirLength)
{
    UpgradeFolder::write(QStringLiteral("a b.txt"), "12345");
    EXPECT_EQ(content("upgrade/a b.txt"), QByteArray("12345"));
    EXPECT_EQ(UpgradeFolder::length(QStringLiteral("a b.txt")), 5);
    UpgradeFolder::write(QStringLiteral("a b.txt"), "1");
    EXPECT_EQ(UpgradeFolder::length(QStringLiteral("a b.txt")), 1);
}

TEST_F(UpgradeFolderTest, TakesNamesOfItsOwnFilesAlone)
{
    for (const char *name : {"", ".", "..", "../out", "/tmp/out", "a/b", "..\\out", "C:\\out", "a\nb"}) {
        EXPECT_EQ(errorOfName(QString::fromLatin1(name)), ErrorNumber::BadFileName) << name;
        EXPECT_EQ(errorNumberOf([&] { UpgradeFolder::length(QString::fromLatin1(name)); }),
                  ErrorNumber::BadFileName)
            << name;
    }
    EXPECT_EQ(errorOfName(QStringLiteral("a") + QChar(u'\0')), ErrorNumber::BadFileName);
    EXPECT_EQ(names(QString()), QStringList(QStringLiteral("upgrade")));
    EXPECT_EQ(names(QStringLiteral("/upgrade")), QStringList());
}

TEST_F(UpgradeFolderTest, ReplacesALinkInsteadOfWritingWhereItPoints)
{
    program.addFile("kept", "kept");
    program.addLink("upgrade/a", program.file("kept"));
    UpgradeFolder::write(QStringLiteral("a"), "new");
    EXPECT_EQ(content("kept"), QByteArray("kept"));
    EXPECT_EQ(content("upgrade/a"), QByteArray("new"));
}

TEST_F(UpgradeFolderTest, IsNotMade)
{
    ::rmdir(program.file("upgrade").constData());
    EXPECT_EQ(errorOfName(QStringLiteral("a")), ErrorNumber::FileNotFound);
    UpgradeFolder::clear();
    EXPECT_EQ(names(QString()), QStringList());
}

TEST_F(UpgradeFolderTest, IsClearedOfFilesAndLinks)
{
    program.addFile("kept", "kept");
    program.addFile("upgrade/a");
    program.addFile("upgrade/b.zip");
    program.addFile("upgrade/.hidden");
    program.addLink("upgrade/c", program.file("kept"));
    program.addFolder("upgrade/folder");
    program.addFile("upgrade/folder/d");
    UpgradeFolder::clear();
    EXPECT_EQ(names(QStringLiteral("/upgrade")),
              QStringList({QStringLiteral(".hidden"), QStringLiteral("folder")}));
    EXPECT_EQ(names(QStringLiteral("/upgrade/folder")), QStringList(QStringLiteral("d")));
    EXPECT_EQ(content("kept"), QByteArray("kept"));
}

TEST_F(UpgradeFolderTest, ThatMayNotBeWrittenStaysAsItIs)
{
    program.addFile("upgrade/a", "old");
    const AsUser user(program.path());
    QFile::setPermissions(program.path() + QStringLiteral("/upgrade"), QFile::ReadOwner | QFile::ExeOwner);
    UpgradeFolder::clear();
    EXPECT_EQ(errorOfName(QStringLiteral("a")), ErrorNumber::PermissionDenied);
    EXPECT_EQ(content("upgrade/a"), QByteArray("old"));
    QFile::setPermissions(program.path() + QStringLiteral("/upgrade"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(UpgradeFolderTest, OnAFullDiskKeepsTheOldFile)
{
    const SmallDisk disk(64 * 1024);
    if (!disk.isMounted())
        GTEST_SKIP() << "a disk of its own may not be mounted here";
    ::rmdir(program.file("upgrade").constData());
    program.addLink("upgrade", disk.path().toUtf8());
    UpgradeFolder::write(QStringLiteral("a"), "old");
    EXPECT_EQ(errorNumberOf([] { UpgradeFolder::write(QStringLiteral("a"), QByteArray(200'000, 'x')); }),
              ErrorNumber::DiskFull);
    EXPECT_EQ(content("upgrade/a"), QByteArray("old"));
    EXPECT_EQ(QDir(disk.path()).entryList(QDir::Files | QDir::Hidden), QStringList(QStringLiteral("a")));
}
