#include "EntryExtents.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

namespace {

constexpr qint64 headerSize = 30;

ArchiveEntry entryAt(qint64 offset, quint64 packedSize)
{
    ArchiveEntry entry;
    entry.offset = offset;
    entry.packedSize = packedSize;
    return entry;
}

ArchiveDirectory directoryOf(std::vector<ArchiveEntry> entries, qint64 start)
{
    ArchiveDirectory directory;
    directory.entries = std::move(entries);
    directory.start = start;
    return directory;
}

bool overlaps(const ArchiveDirectory &directory, std::size_t i)
{
    const ArchiveEntry &entry = directory.entries.at(i);
    return EntryExtents(directory).overlaps(entry, entry.offset + headerSize + qint64(entry.packedSize));
}

} // namespace

TEST(EntryExtentsTest, AcceptsEntriesSideBySide)
{
    const ArchiveDirectory directory = directoryOf({entryAt(130, 70), entryAt(0, 100), entryAt(230, 0)}, 260);
    for (std::size_t i = 0; i < directory.entries.size(); ++i)
        EXPECT_FALSE(overlaps(directory, i)) << i;
}

TEST(EntryExtentsTest, RefusesOnlyThoseThatShareBytes)
{
    const ArchiveDirectory directory =
        directoryOf({entryAt(0, 100), entryAt(129, 10), entryAt(200, 10)}, 300);
    EXPECT_TRUE(overlaps(directory, 0));
    EXPECT_TRUE(overlaps(directory, 1));
    EXPECT_FALSE(overlaps(directory, 2));
}

TEST(EntryExtentsTest, RefusesAnEntryTwice)
{
    const ArchiveDirectory directory = directoryOf({entryAt(0, 100), entryAt(0, 100)}, 300);
    EXPECT_TRUE(overlaps(directory, 0));
    EXPECT_TRUE(overlaps(directory, 1));
}

/// A long entry runs over several others, the last of which is far behind its start.
TEST(EntryExtentsTest, RefusesWhatALongEntryRunsOver)
{
    const ArchiveDirectory directory =
        directoryOf({entryAt(0, 500), entryAt(40, 10), entryAt(400, 10), entryAt(600, 10)}, 700);
    EXPECT_TRUE(overlaps(directory, 2));
    EXPECT_FALSE(overlaps(directory, 3));
}

TEST(EntryExtentsTest, RefusesDataThatRunsIntoTheDirectory)
{
    const ArchiveDirectory directory = directoryOf({entryAt(0, 100)}, 120);
    EXPECT_TRUE(overlaps(directory, 0));
}

/// A long local headerSize pushes the data into the next entry.
TEST(EntryExtentsTest, CountsTheLocalHeader)
{
    const ArchiveDirectory directory = directoryOf({entryAt(0, 100), entryAt(140, 10)}, 300);
    const EntryExtents extents(directory);
    EXPECT_FALSE(extents.overlaps(directory.entries[0], 140));
    EXPECT_TRUE(extents.overlaps(directory.entries[0], 141));
}

TEST(EntryExtentsTest, TakesAMillionEntries)
{
    constexpr qint64 count = 1'000'000;
    constexpr qint64 tooLong = 20'000; // a quadratic check takes minutes; the sanitizers slow this one down
    std::vector<ArchiveEntry> entries;
    for (qint64 i = 0; i < count; ++i)
        entries.push_back(entryAt((count - i) * 40, 10));
    QElapsedTimer timer;
    timer.start();
    const ArchiveDirectory directory = directoryOf(std::move(entries), (count + 1) * 40);
    const EntryExtents extents(directory);
    qint64 refused = 0;
    for (const ArchiveEntry &entry : directory.entries)
        refused += extents.overlaps(entry, entry.offset + 40);
    EXPECT_EQ(refused, 0);
    EXPECT_LT(timer.elapsed(), tooLong);
}
