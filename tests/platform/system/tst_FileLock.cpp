#include "FileLock.h"

#include <QTemporaryDir>
#include <cerrno>
#include <gtest/gtest.h>
#include <memory>

TEST(FileLockTest, GivesUpWhereSomebodyElseHoldsIt)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lock"));
    auto first = std::make_unique<FileLock>(path);
    ASSERT_TRUE(first->isHeld());
    const FileLock second(path, FileLock::IfTaken::GiveUp);
    EXPECT_EQ(second.error(), EWOULDBLOCK);
    first.reset();
    EXPECT_TRUE(FileLock(path, FileLock::IfTaken::GiveUp).isHeld());
}

TEST(FileLockTest, SaysWhatIsWrongWithItsFolder)
{
    EXPECT_EQ(FileLock(QStringLiteral("/nonexistent/lock")).error(), ENOENT);
}
