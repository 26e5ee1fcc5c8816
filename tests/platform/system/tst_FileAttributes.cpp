#include "AsUser.h"
#include "DosRecord.h"
#include "ErrorNumberOf.h"
#include "FileAttributes.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace {

using namespace FileAttributes;

struct FileAttributesTest : testing::Test
{
    ScratchFolder folder;

    FileAttributesTest() { folder.addFile("a.bmp", "content"); }

    QString path(const QByteArray &name = "a.bmp") const { return QString::fromUtf8(folder.file(name)); }
    mode_t mode() const
    {
        struct stat state = {};
        ::stat(folder.file("a.bmp").constData(), &state);
        return state.st_mode & 07777;
    }
    void setMode(mode_t mode) const { ::chmod(folder.file("a.bmp").constData(), mode); }
    bool hasRecord() const
    {
        return ::getxattr(folder.file("a.bmp").constData(), DosRecord::name, nullptr, 0) >= 0;
    }
};

} // namespace

TEST_F(FileAttributesTest, ANewFileHasNone)
{
    EXPECT_EQ(of(path()), 0);
}

TEST_F(FileAttributesTest, EachCombinationIsKept)
{
    const AsUser user(folder.path());
    for (int row = 0; row < 32; ++row) {
        const int bits = (row & 1 ? ReadOnly : 0) | (row & 2 ? Hidden : 0) | (row & 4 ? System : 0) |
                         (row & 8 ? Archive : 0) | (row & 16 ? Temporary : 0);
        set(path(), bits);
        EXPECT_EQ(of(path()), bits);
    }
}

TEST_F(FileAttributesTest, OtherBitsAreNotSet)
{
    set(path(), Directory | Alias | Volume | Compressed | Archive);
    EXPECT_EQ(of(path()), Archive);
}

TEST_F(FileAttributesTest, ReadOnlyGivesThePermissionsBack)
{
    const AsUser user(folder.path());
    setMode(0664);
    set(path(), ReadOnly);
    EXPECT_EQ(mode(), 0444U);
    set(path(), ReadOnly | Hidden);
    EXPECT_EQ(mode(), 0444U);
    set(path(), Hidden);
    EXPECT_EQ(mode(), 0664U);
}

TEST_F(FileAttributesTest, AFileThatWasReadOnlyBeforeBecomesItsOwners)
{
    setMode(0444);
    EXPECT_EQ(of(path()), ReadOnly);
    set(path(), 0);
    EXPECT_EQ(mode(), 0644U);
    EXPECT_EQ(of(path()), 0);
}

TEST_F(FileAttributesTest, NoAttributeNeedsNoRecord)
{
    set(path(), 0);
    EXPECT_FALSE(hasRecord());
    set(path(), Archive);
    EXPECT_TRUE(hasRecord());
    set(path(), 0);
    EXPECT_EQ(of(path()), 0);
}

TEST_F(FileAttributesTest, TheContentStays)
{
    set(path(), ReadOnly | Hidden);
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("content"));
}

TEST_F(FileAttributesTest, ANameMayHideAFile)
{
    folder.addFile(".dotted");
    EXPECT_EQ(of(path(".dotted")), Hidden);
    folder.addFile("listed");
    folder.addFile("not listed");
    folder.addFile(".hidden", "other\nlisted\n");
    EXPECT_EQ(of(path("listed")), Hidden);
    EXPECT_EQ(of(path("not listed")), 0);
    set(path("listed"), 0);
    EXPECT_EQ(of(path("listed")), Hidden);
}

TEST_F(FileAttributesTest, KindsOfFiles)
{
    folder.addFolder("folder");
    folder.addLink("link", "a.bmp");
    folder.addLink("to folder", "folder");
    folder.addLink("to nothing", "nothing");
    set(path(), Archive);
    EXPECT_EQ(of(path("folder")), Directory);
    EXPECT_EQ(of(path("link")), Alias | Archive);
    EXPECT_EQ(of(path("to folder")), Alias | Directory);
    EXPECT_EQ(of(path("to nothing")), Alias);
}

TEST_F(FileAttributesTest, AMissingFileIsAnError)
{
    EXPECT_EQ(errorNumberOf([&] { of(path("none")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorNumberOf([&] { set(path("none"), 0); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorNumberOf([&] { of(path("a.bmp/b")); }), ErrorNumber::PathNotFound);
}

TEST_F(FileAttributesTest, TheFileOfAnotherUserIsLeftAlone)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs root to make a file of another user";
    const AsUser user(folder.path());
    struct stat state = {};
    ASSERT_EQ(::stat("/etc/passwd", &state), 0);
    EXPECT_EQ(errorNumberOf([] { set(QStringLiteral("/etc/passwd"), ReadOnly); }),
              ErrorNumber::PermissionDenied);
    EXPECT_EQ(of(QStringLiteral("/etc/passwd")), 0);
}
