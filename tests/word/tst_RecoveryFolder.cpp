#include "Files.h"
#include "ForkedTask.h"
#include "FullDisk.h"
#include "RecoveryFolder.h"
#include "ScratchHome.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

RecoveryText text(const char *caption)
{
    return {QString::fromUtf8(caption), PlainText::LineEnd::CrLf, "{\\rtf1 kept\n lines}\n"};
}

QStringList files()
{
    return QDir(RecoveryFolder::path()).entryList({QStringLiteral("copy-*")}, QDir::Files);
}

mode_t modeOf(const QString &path)
{
    struct stat state = {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &state), 0) << qUtf8Printable(path);
    return state.st_mode & 07777;
}

struct RecoveryFolderTest : testing::Test
{
    ScratchHome home;

    /// A copy whose process has ended.
    static QString orphan(const char *caption)
    {
        const auto copy = RecoveryFolder::makeCopy();
        EXPECT_TRUE(copy->write(text(caption)));
        return copy->path();
    }
};

} // namespace

TEST(RecoveryTextTest, ComesBackAsItWas)
{
    for (const char *caption : {"Document 3", "/home/me/a \"b\"\n\\c.txt", "/\u202Egpj.rtf", ""}) {
        const std::optional<RecoveryText> read = RecoveryText::fromBytes(text(caption).toBytes());
        ASSERT_TRUE(read) << caption;
        EXPECT_EQ(read->caption, QString::fromUtf8(caption));
        EXPECT_EQ(read->lineEnd, PlainText::LineEnd::CrLf);
        EXPECT_EQ(read->rtf, text(caption).rtf);
    }
}

TEST(RecoveryTextTest, RefusesWhatIsNoCopy)
{
    for (const char *bytes : {"", "{\\rtf1 text}", "{}\n{\\rtf1 text}", "{\"caption\":1,\"lineEnd\":0}\ntext",
                              "{\"caption\":\"a\",\"lineEnd\":3}\ntext", "{\"caption\":\"a\"}\ntext"})
        EXPECT_FALSE(RecoveryText::fromBytes(bytes)) << bytes;
}

TEST_F(RecoveryFolderTest, IsInTheUsersStateFolder)
{
    EXPECT_EQ(RecoveryFolder::path(), home.file(QStringLiteral(".local/state/QuillOfficeToolsv2/recovery")));
    qputenv("XDG_STATE_HOME", "relative"); // is to be ignored
    EXPECT_EQ(RecoveryFolder::path(), home.file(QStringLiteral(".local/state/QuillOfficeToolsv2/recovery")));
}

TEST_F(RecoveryFolderTest, IsItsUsersAlone)
{
    const mode_t mask = ::umask(0);
    const auto copy = RecoveryFolder::makeCopy();
    ASSERT_TRUE(copy->write(text("Document 1")));
    ASSERT_TRUE(copy->write(text("Document 1")));
    ::umask(mask);
    EXPECT_EQ(modeOf(RecoveryFolder::path()), 0700U);
    EXPECT_EQ(modeOf(QFileInfo(RecoveryFolder::path()).path()), 0700U);
    EXPECT_EQ(modeOf(copy->path()), 0600U);
    EXPECT_EQ(modeOf(copy->path() + QStringLiteral(".lock")), 0600U);
}

TEST_F(RecoveryFolderTest, AnOrphanIsTakenOnce)
{
    orphan("Document 7");
    const auto orphans = RecoveryFolder::takeOrphans();
    ASSERT_EQ(orphans.size(), 1U);
    EXPECT_EQ(orphans.front()->read()->caption, QStringLiteral("Document 7"));
    EXPECT_TRUE(RecoveryFolder::takeOrphans().empty());
}

TEST_F(RecoveryFolderTest, AHeldCopyIsNoOrphan)
{
    const auto copy = RecoveryFolder::makeCopy();
    ASSERT_TRUE(copy->write(text("Document 1")));
    EXPECT_TRUE(RecoveryFolder::takeOrphans().empty());
    EXPECT_TRUE(copy->read());
}

TEST_F(RecoveryFolderTest, AnotherProcessKeepsItsCopiesUntilItIsKilled)
{
    ForkedTask other;
    ASSERT_TRUE(other.start([] {
        const auto copy = RecoveryFolder::makeCopy();
        copy->write(text("of the other"));
        ::pause();
        return true;
    }));
    ASSERT_TRUE(QTest::qWaitFor(
        [] {
            return files().size() == 2 &&
                   QFileInfo(QDir(RecoveryFolder::path()).filePath(files().front())).size() > 0;
        },
        20000));
    EXPECT_TRUE(RecoveryFolder::takeOrphans().empty());
    other.stop();
    const auto orphans = RecoveryFolder::takeOrphans();
    ASSERT_EQ(orphans.size(), 1U);
    EXPECT_EQ(orphans.front()->read()->caption, QStringLiteral("of the other"));
}

TEST_F(RecoveryFolderTest, TwoThatStartAtOnceShareTheOrphansWithoutStrife)
{
    constexpr int many = 40;
    for (int i = 0; i < many; ++i)
        orphan("Document 1");
    // Each says how many it has taken by as many files.
    const auto take = [&](const char *name) {
        return [this, name] {
            int number = 0;
            const auto orphans = RecoveryFolder::takeOrphans();
            for (const auto &copy : orphans) {
                Files::write(home.file(QStringLiteral("%1%2").arg(QLatin1String(name)).arg(++number)), "x");
                copy->remove();
            }
            return true;
        };
    };
    ForkedTask a;
    ForkedTask b;
    ASSERT_TRUE(a.start(take("a")));
    ASSERT_TRUE(b.start(take("b")));
    EXPECT_TRUE(a.wait());
    EXPECT_TRUE(b.wait());
    EXPECT_EQ(QDir(home.path()).entryList({QStringLiteral("a*"), QStringLiteral("b*")}, QDir::Files).size(),
              many);
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(RecoveryFolderTest, ARemovedCopyLeavesNothing)
{
    const auto copy = RecoveryFolder::makeCopy();
    ASSERT_TRUE(copy->write(text("Document 1")));
    Files::write(copy->path() + QStringLiteral(".new"), "half a wr"); // as a stopped write leaves it
    copy->beginOpening();
    copy->remove();
    EXPECT_TRUE(files().isEmpty()) << qUtf8Printable(files().join(u' '));
}

TEST_F(RecoveryFolderTest, ACopyBeingMadeIsTakenByNobody)
{
    ForkedTask other;
    ASSERT_TRUE(other.start([] {
        for (;;)
            RecoveryFolder::takeOrphans();
        return true;
    }));
    for (int i = 0; i < 2000; ++i) {
        const auto copy = RecoveryFolder::makeCopy();
        ASSERT_TRUE(copy && copy->isHeld() && QFileInfo::exists(copy->path())) << i;
        copy->remove();
    }
    EXPECT_TRUE(other.isRunning());
}

TEST_F(RecoveryFolderTest, ACopyIsLeftAloneAfterTwoOpeningsThatDidNotEnd)
{
    orphan("Document 1");
    for (int opening = 0; opening < 2; ++opening) {
        const auto orphans = RecoveryFolder::takeOrphans();
        ASSERT_EQ(orphans.size(), 1U);
        EXPECT_FALSE(orphans.front()->hasFailedToOpen());
        orphans.front()->beginOpening();
    }
    {
        const auto orphans = RecoveryFolder::takeOrphans();
        ASSERT_EQ(orphans.size(), 1U);
        EXPECT_TRUE(orphans.front()->hasFailedToOpen());
        EXPECT_EQ(orphans.front()->read()->caption, QStringLiteral("Document 1"));
        orphans.front()->endOpening();
    }
    const auto orphans = RecoveryFolder::takeOrphans();
    ASSERT_EQ(orphans.size(), 1U);
    EXPECT_FALSE(orphans.front()->hasFailedToOpen());
}

TEST_F(RecoveryFolderTest, WhatWasNeverWrittenIsClearedAway)
{
    QString path = RecoveryFolder::makeCopy()->path(); // and ended before the first write
    EXPECT_TRUE(RecoveryFolder::takeOrphans().empty());
    Files::write(path + QStringLiteral(".new"), "{\"caption\":");
    Files::write(path + QStringLiteral(".lock"), {});
    EXPECT_TRUE(RecoveryFolder::takeOrphans().empty());
    EXPECT_TRUE(files().isEmpty()) << qUtf8Printable(files().join(u' '));
}

TEST_F(RecoveryFolderTest, AFullDiskLeavesTheCopyBefore)
{
    const auto copy = RecoveryFolder::makeCopy();
    ASSERT_TRUE(copy->write(text("Document 1")));
    RecoveryText longer = text("Document 1");
    longer.rtf = QByteArray(100000, 'x');
    {
        const FullDisk full(5000);
        EXPECT_FALSE(copy->write(longer));
    }
    EXPECT_EQ(copy->read()->rtf, text("Document 1").rtf);
    EXPECT_TRUE(copy->write(longer));
}

TEST_F(RecoveryFolderTest, AFolderThatCannotBeUsedGivesNoCopies)
{
    QDir(home.path()).mkpath(QStringLiteral(".local"));
    Files::write(home.file(QStringLiteral(".local/state")), "a file");
    EXPECT_EQ(RecoveryFolder::makeCopy(), nullptr);
    EXPECT_TRUE(RecoveryFolder::takeOrphans().empty());
}
