#include "AsUser.h"
#include "ScratchHome.h"

#include <QFile>
#include <QProcess>
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
