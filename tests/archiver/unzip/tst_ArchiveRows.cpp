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
    made.Day = QDate(2004, 3, 9);
    made.Time = QTime(9, 40);
    return made;
}

struct ArchiveRowsTest : testing::Test
{
    cUnzip archive;
    FileIcons icons;

    ArchiveRows rows() { return ArchiveRows(archive, icons); }
};

} // namespace

TEST_F(ArchiveRowsTest, HasTheColumnsOfARecord)
{
    archive.addRecord(record(QStringLiteral("a.txt"), QStringLiteral("dir\\sub")));
    const ArchiveRows made = rows();
    ASSERT_EQ(made.count(), 1);
    EXPECT_EQ(made.key(0), QStringLiteral("File1"));
    QStringList texts;
    for (int column = 0; column < 5; ++column)
        texts << made.text(0, column);
    EXPECT_EQ(texts, QStringList({QStringLiteral("a.txt"), QStringLiteral("1000"),
                                  ShortDateTimes().text(archive.FileDate(1)), QStringLiteral("750"),
                                  QStringLiteral("dir\\sub")}));
    const QIcon shown = made.icon(0); // makes the entry of its kind
    EXPECT_EQ(shown.cacheKey(), icons.icon(QStringLiteral(".TXT")).cacheKey());
}

TEST_F(ArchiveRowsTest, KeepsTheOrderAndNumbersTheRecords)
{
    for (const char *name : {"b", "a", "c"})
        archive.addRecord(record(QString::fromLatin1(name)));
    const ArchiveRows made = rows();
    ASSERT_EQ(made.count(), 3);
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(made.text(row, 0), archive.FileName(row + 1));
        EXPECT_EQ(made.key(row), QStringLiteral("File%1").arg(row + 1));
    }
}

TEST_F(ArchiveRowsTest, LooksForAnIconWhenItIsAskedFor)
{
    archive.addRecord(record(QStringLiteral("a.txt")));
    const ArchiveRows made = rows();
    EXPECT_EQ(icons.count(), 1);
    made.icon(0);
    EXPECT_EQ(icons.count(), 2);
}

TEST_F(ArchiveRowsTest, AnEncryptedFileHasAPlus)
{
    ArchiveRecord encrypted = record(QStringLiteral("a.txt"));
    encrypted.Encrypted = true;
    archive.addRecord(encrypted);
    archive.addRecord(record(QStringLiteral("a.txt")));
    const ArchiveRows made = rows();
    EXPECT_EQ(made.text(0, 0), QStringLiteral("+a.txt"));
    EXPECT_EQ(made.text(1, 0), QStringLiteral("a.txt"));
    EXPECT_EQ(made.icon(0).cacheKey(), made.icon(1).cacheKey());
}

TEST_F(ArchiveRowsTest, NamesStayAsTheyAre)
{
    for (const HostileName &name : HostileNames::all())
        archive.addRecord(record(name.text(), name.text()));
    const ArchiveRows made = rows();
    for (int row = 0; row < made.count(); ++row) {
        EXPECT_EQ(made.text(row, 0), archive.FileName(row + 1));
        EXPECT_EQ(made.text(row, 4), archive.FileName(row + 1));
    }
}
