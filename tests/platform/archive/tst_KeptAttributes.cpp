#include "AsUser.h"
#include "FileDescriptor.h"
#include "KeptAttributes.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

constexpr uid_t user = 65534; // that of AsUser, and its group
constexpr uid_t other = 12345;

/// A file that the user replaces.
struct OwnerRow
{
    const char *name;
    uid_t owner;
    gid_t group;
    mode_t mode;
    mode_t kept;
};

void PrintTo(const OwnerRow &row, std::ostream *out)
{
    *out << row.name;
}

const OwnerRow ownerRows[] = {
    {"OwnFile", user, user, 0664, 0664},           {"OwnFileWithSetId", user, user, 04750, 04750},
    {"GroupIsAnother", user, other, 0664, 0604},   {"GroupMayLessThanOthers", user, other, 0604, 0600},
    {"GroupReadsOnly", user, other, 0646, 0604},   {"OwnerIsAnother", other, user, 0664, 0664},
    {"OwnerReadsOnly", other, user, 0466, 0444},   {"BothAreOthers", other, other, 0666, 0606},
    {"BothWithSetIds", other, other, 06755, 0705}, {"Private", other, other, 0600, 0600},
};

struct KeptAttributesTest : testing::TestWithParam<OwnerRow>
{
    ScratchFolder old;
    ScratchFolder scratch;

    void SetUp() override
    {
        if (::geteuid() != 0)
            GTEST_SKIP() << "only root can give files away";
    }
    FileDescriptor oldFile(uid_t owner, gid_t group, mode_t mode) const
    {
        old.addFile("old");
        FileDescriptor file = FileDescriptor::open(old.file("old"), O_RDONLY);
        EXPECT_EQ(::fchown(file.get(), owner, group), 0);
        EXPECT_EQ(::fchmod(file.get(), mode), 0);
        return file;
    }
    FileDescriptor newFile() const
    {
        return FileDescriptor(::open(scratch.file("new").constData(), O_RDWR | O_CREAT, 0600));
    }
};

struct stat attributesOf(const FileDescriptor &file)
{
    struct stat state = {};
    EXPECT_EQ(::fstat(file.get(), &state), 0);
    return state;
}

constexpr mode_t modeMask = 07777;
constexpr char accessList[] = "system.posix_acl_access";
constexpr char listForNewFiles[] = "system.posix_acl_default";

/// Owner and one user may read and write, the group nothing, others read.
QByteArray listForOneUser()
{
    struct Entry
    {
        quint16 tag;
        quint16 permissions;
        quint32 id;
    };
    constexpr quint32 none = 0xffffffff;
    constexpr quint32 version = 2;
    const Entry entries[] = {{1, 6, none}, {2, 6, 4321}, {4, 0, none}, {16, 6, none}, {32, 4, none}};
    return QByteArray(reinterpret_cast<const char *>(&version), sizeof version) +
           QByteArray(reinterpret_cast<const char *>(entries), sizeof entries);
}

} // namespace

TEST_P(KeptAttributesTest, NobodyMayDoMore)
{
    const OwnerRow &row = GetParam();
    const FileDescriptor from = oldFile(row.owner, row.group, row.mode);
    const AsUser asUser(scratch.path());
    const FileDescriptor to = newFile();
    KeptAttributes::copy(from, to);
    EXPECT_EQ(attributesOf(to).st_mode & modeMask, row.kept);
    EXPECT_EQ(attributesOf(to).st_uid, user);
    EXPECT_EQ(attributesOf(to).st_gid, user);
}

INSTANTIATE_TEST_SUITE_P(Owners, KeptAttributesTest, testing::ValuesIn(ownerRows), RowName());

using AccessListTest = KeptAttributesTest;

/// For the user's own files.
struct InheritedListTest : KeptAttributesTest
{
    void SetUp() override {}
};

/// The folder's list names a user who must not read a file that only its group could read.
TEST_F(InheritedListTest, IsRemoved)
{
    const FileDescriptor from = oldFile(::geteuid(), ::getegid(), 0640);
    const QByteArray list = listForOneUser();
    if (::setxattr(scratch.path().toUtf8().constData(), listForNewFiles, list.constData(),
                   size_t(list.size()), 0) != 0)
        GTEST_SKIP() << "the file system has no access lists";
    const FileDescriptor to = newFile();
    ASSERT_GT(::fgetxattr(to.get(), accessList, nullptr, 0), 0);
    KeptAttributes::copy(from, to);
    EXPECT_LT(::fgetxattr(to.get(), accessList, nullptr, 0), 0);
    EXPECT_EQ(attributesOf(to).st_mode & modeMask, 0640u);
}

TEST_F(AccessListTest, IsKeptWithTheOwners)
{
    const FileDescriptor from = oldFile(other, other, 0664);
    const QByteArray list = listForOneUser();
    if (::fsetxattr(from.get(), accessList, list.constData(), size_t(list.size()), 0) != 0)
        GTEST_SKIP() << "the file system has no access lists";
    const FileDescriptor to = newFile();
    KeptAttributes::copy(from, to);
    QByteArray kept(100, '\0');
    kept.resize(qMax<ssize_t>(0, ::fgetxattr(to.get(), accessList, kept.data(), size_t(kept.size()))));
    EXPECT_EQ(kept, list);
    EXPECT_EQ(attributesOf(to).st_mode & modeMask, 0664u);
    EXPECT_EQ(attributesOf(to).st_uid, other);
}

/// The group of the list is another one then, and without the list the one user would be among the others.
TEST_F(AccessListTest, IsLeftOutWithAllItAllowsWithoutThem)
{
    const FileDescriptor from = oldFile(other, other, 0664);
    const QByteArray list = listForOneUser();
    if (::fsetxattr(from.get(), accessList, list.constData(), size_t(list.size()), 0) != 0)
        GTEST_SKIP() << "the file system has no access lists";
    const AsUser asUser(scratch.path());
    const FileDescriptor to = newFile();
    KeptAttributes::copy(from, to);
    EXPECT_LT(::fgetxattr(to.get(), accessList, nullptr, 0), 0);
    EXPECT_EQ(attributesOf(to).st_mode & modeMask, 0600u);
}
