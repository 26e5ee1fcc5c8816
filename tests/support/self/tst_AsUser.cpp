#include "AsUser.h"
#include "ScratchHome.h"

#include <QFile>
#include <QProcess>
#include <array>
#include <grp.h>
#include <gtest/gtest.h>
#include <unistd.h>

TEST(AsUser, MayWriteItsOwnFilesAlone)
{
    const ScratchHome home;
    QFile file(home.file(QStringLiteral("a")));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.close();
    {
        const AsUser user(home.path());
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.close();
        file.setPermissions({});
        EXPECT_FALSE(file.open(QFile::ReadOnly));
        EXPECT_NE(::access("/etc/passwd", W_OK), 0);
    }
    EXPECT_TRUE(::geteuid() != 0 || file.open(QFile::ReadOnly));
}

TEST(AsUser, AProgramIsTheUsers)
{
    const ScratchHome home;
    const AsUser user(home.path());
    QProcess id;
    id.start(QStringLiteral("id"), {QStringLiteral("-ru")});
    ASSERT_TRUE(id.waitForFinished());
    EXPECT_EQ(id.readAllStandardOutput().trimmed(), QByteArray::number(::getuid()));
    EXPECT_NE(::getuid(), 0u);
}

TEST(AsUser, LeavesTheGroupsOfRootMeanwhile)
{
    constexpr std::array<gid_t, 2> groups = {0, 6};
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root changes groups";
    ASSERT_EQ(::setgroups(groups.size(), groups.data()), 0);
    {
        const ScratchHome home;
        const AsUser user(home.path());
        EXPECT_EQ(::getgroups(0, nullptr), 0);
    }
    std::array<gid_t, 2> after = {};
    EXPECT_EQ(::getgroups(2, after.data()), 2);
    EXPECT_EQ(after, groups);
}
