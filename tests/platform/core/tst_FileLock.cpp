#include "FileLock.h"
#include "Files.h"
#include "ForkedTask.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <gtest/gtest.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int lockTimeout = 20000; // milliseconds

/// What the kernel lists about locks on the file \a path: the one that is held and those that are waited for.
QByteArrayList entriesOf(const QString &path)
{
    struct stat state = {};
    if (::stat(QFile::encodeName(path).constData(), &state) != 0)
        return {};
    QByteArrayList entries = Files::read(QStringLiteral("/proc/locks")).split('\n');
    const QByteArray inode = ':' + QByteArray::number(qulonglong(state.st_ino)) + ' ';
    entries.removeIf([&](const QByteArray &entry) { return !entry.contains(inode); });
    return entries;
}

} // namespace

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
    const QTemporaryDir folder;
    EXPECT_EQ(FileLock(folder.filePath(QStringLiteral("absent/lock"))).error(), ENOENT);
}

TEST(FileLockTest, WhoeverWaitsForARemovedFileLocksANewOne)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lock"));
    ForkedTask holder;
    ASSERT_TRUE(holder.start([&] {
        const FileLock lock(path);
        ::pause();
        return true;
    }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return entriesOf(path).size() == 1; }, lockTimeout));
    ForkedTask waiting;
    ASSERT_TRUE(waiting.start([&] { return FileLock(path).isHeld() && QFileInfo::exists(path); }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return entriesOf(path).size() == 2; }, lockTimeout));
    ASSERT_TRUE(QFile::remove(path));
    holder.stop();
    EXPECT_TRUE(waiting.wait());
}
