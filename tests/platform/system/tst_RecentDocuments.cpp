#include "Files.h"
#include "FullDisk.h"
#include "RecentDocuments.h"
#include "ScratchHome.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct RecentDocumentsTest : testing::Test
{
    ScratchHome home;
    QString list = home.file(QStringLiteral(".local/share/recently-used.xbel"));

    RecentDocumentsTest() { QDir().mkpath(QFileInfo(list).path()); }
    QString file(const QString &name) const
    {
        Files::write(home.file(name), "text");
        return home.file(name);
    }
    QByteArray text() const { return Files::read(list); }
};

constexpr char otherProgram[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0" xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks"
 xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">
  <bookmark href="file:///tmp/picture.png" added="2026-01-01T00:00:00Z" modified="2026-01-01T00:00:00Z" visited="2026-01-01T00:00:00Z">
    <info><metadata owner="http://freedesktop.org"><mime:mime-type type="image/png"/>
      <bookmark:applications><bookmark:application name="viewer" exec="viewer %u" modified="2026-01-01T00:00:00Z" count="3"/>
    </bookmark:applications></metadata></info>
  </bookmark>
</xbel>
)";

} // namespace

TEST_F(RecentDocumentsTest, TheListIsMadeWithTheFilesKind)
{
    RecentDocuments::add(file(QStringLiteral("a letter.rtf")));
    EXPECT_TRUE(text().contains("/a%20letter.rtf\""));
    EXPECT_TRUE(text().contains("application/rtf"));
    struct stat state = {};
    ASSERT_EQ(::stat(qPrintable(list), &state), 0);
    EXPECT_EQ(state.st_mode & 0777U, 0600U);
}

TEST_F(RecentDocumentsTest, AFreshAccountHasNoFolderYet)
{
    ASSERT_TRUE(QDir().rmdir(QFileInfo(list).path()));
    RecentDocuments::add(file(QStringLiteral("letter.rtf")));
    EXPECT_TRUE(text().contains("/letter.rtf\""));
}

TEST_F(RecentDocumentsTest, EntriesOfOtherProgramsStay)
{
    Files::write(list, otherProgram);
    RecentDocuments::add(file(QStringLiteral("letter.txt")));
    EXPECT_TRUE(text().contains("file:///tmp/picture.png"));
    EXPECT_TRUE(text().contains("viewer %u"));
    EXPECT_TRUE(text().contains("/letter.txt\""));
}

TEST_F(RecentDocumentsTest, AFileThatIsUsedAgainHasOneEntryAndIsCounted)
{
    const QString path = file(QStringLiteral("letter.rtf"));
    RecentDocuments::add(path);
    RecentDocuments::add(path);
    EXPECT_EQ(text().count("<bookmark "), 1);
    EXPECT_TRUE(text().contains("count=\"2\""));
}

TEST_F(RecentDocumentsTest, AListThatCannotBeUnderstoodStays)
{
    Files::write(list, "<xbel version=\"1.0\"><bookmark");
    RecentDocuments::add(file(QStringLiteral("letter.rtf")));
    EXPECT_EQ(text(), "<xbel version=\"1.0\"><bookmark");
}

TEST_F(RecentDocumentsTest, AFullDiskLeavesTheListAndIsSilent)
{
    Files::write(list, otherProgram);
    const QString path = file(QStringLiteral("letter.rtf"));
    {
        const FullDisk disk(100);
        RecentDocuments::add(path);
    }
    EXPECT_EQ(text(), otherProgram);
}

TEST_F(RecentDocumentsTest, NamesOfAnyBytesAreListed)
{
    RecentDocuments::add(home.file(QStringLiteral("caf") + QChar(0xDCE9) + QStringLiteral(".txt")));
    EXPECT_TRUE(text().contains("/caf%E9.txt\""));
}
