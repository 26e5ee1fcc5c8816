#include "ArchiveRows.h"
#include "FileIcons.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ShortDateTimes.h"
#include "cUnzip.h"

#include <gtest/gtest.h>

namespace {

ArchiveRecord record(const QString &name, const QString &folder = {})
{
    ArchiveRecord made;
    made.Name = name;
    made.Folder = folder;
    made.Size = 1000;
    made.Factor = 75;
    made.Date = QDateTime(QDate(2004, 3, 9), QTime(9, 40));
    return made;
}

struct ArchiveRowsTest : testing::Test
{
    cUnzip archive;
    FileIcons icons;

    std::vector<ListItem> rows() { return ArchiveRows::of(archive, icons); }
};

} // namespace

TEST_F(ArchiveRowsTest, HasTheColumnsOfARecord)
{
    archive.addRecord(record(QStringLiteral("a.txt"), QStringLiteral("dir\\sub")));
    const std::vector<ListItem> made = rows();
    ASSERT_EQ(made.size(), 1u);
    EXPECT_EQ(made[0].Key, QStringLiteral("File1"));
    EXPECT_EQ(made[0].Text, QStringLiteral("a.txt"));
    EXPECT_EQ(made[0].SubItems,
              QStringList({QStringLiteral("1000"), ShortDateTimes().text(archive.FileDate(1)),
                           QStringLiteral("750"), QStringLiteral("dir\\sub")}));
    EXPECT_EQ(made[0].Icon.cacheKey(), icons.icon(QStringLiteral(".TXT")).cacheKey());
}

TEST_F(ArchiveRowsTest, KeepsTheOrderAndNumbersTheRecords)
{
    for (const char *name : {"b", "a", "c"})
        archive.addRecord(record(QString::fromLatin1(name)));
    const std::vector<ListItem> made = rows();
    ASSERT_EQ(made.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(made[std::size_t(i)].Text, archive.FileName(i + 1));
        EXPECT_EQ(ArchiveRows::recordOf(made[std::size_t(i)].Key), i + 1);
    }
    EXPECT_EQ(ArchiveRows::recordOf(QStringLiteral("File1000000")), 1000000);
}

/// A window that is closed meanwhile needs no rows.
TEST_F(ArchiveRowsTest, AsksNowAndThenWhetherToGoOn)
{
    constexpr int files = 2000;
    for (int i = 0; i < files; ++i)
        archive.addRecord(record(QStringLiteral("a")));
    int calls = 0;
    EXPECT_EQ(ArchiveRows::of(archive, icons, [&] { return ++calls > 0; }).size(), std::size_t(files));
    EXPECT_GT(calls, 5);
    EXPECT_LT(ArchiveRows::of(archive, icons, [] { return false; }).size(), std::size_t(files / 2));
}

TEST_F(ArchiveRowsTest, AnEncryptedFileHasAPlus)
{
    ArchiveRecord encrypted = record(QStringLiteral("a.txt"));
    encrypted.Encrypted = true;
    archive.addRecord(encrypted);
    archive.addRecord(record(QStringLiteral("a.txt")));
    EXPECT_EQ(rows()[0].Text, QStringLiteral("+a.txt"));
    EXPECT_EQ(rows()[1].Text, QStringLiteral("a.txt"));
    EXPECT_EQ(icons.count(), 2);
}

TEST_F(ArchiveRowsTest, NamesStayAsTheyAre)
{
    for (const HostileName &name : HostileNames::all())
        archive.addRecord(record(name.text(), name.text()));
    const std::vector<ListItem> made = rows();
    for (int i = 1; i <= archive.FileCount(); ++i) {
        EXPECT_EQ(made[std::size_t(i) - 1].Text, archive.FileName(i));
        EXPECT_EQ(made[std::size_t(i) - 1].SubItems.last(), archive.FileName(i));
    }
}
