#include "ArchiveMaker.h"
#include "CGUnzipFiles.h"
#include "FolderContent.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "UnzipResult.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

MadeEntry entryOf(const QByteArray &name, const QByteArray &data)
{
    MadeEntry made;
    made.name = name;
    made.data = data;
    return made;
}

struct CGUnzipFilesTest : testing::Test
{
    ScratchFolder scratch;
    CGUnzipFiles unzip;

    CGUnzipFilesTest()
    {
        make({entryOf("sub/a b", "1\r"), entryOf("c", "2")});
        unzip.ZipFileName = path("a.zip");
        unzip.ExtractDir = path("out");
    }

    QString path(const char *name) const { return QString::fromUtf8(scratch.file(name)); }
    void make(const QList<MadeEntry> &entries) const
    {
        scratch.addFile("a.zip", ArchiveMaker::make(entries, {.comment = "a note"}));
    }
    QMap<QByteArray, QByteArray> files(const char *folder = "out") const
    {
        return FolderContent::filesOf(scratch.file(folder));
    }
};

} // namespace

TEST_F(CGUnzipFilesTest, PutsAllFilesIntoOneFolder)
{
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"a b", "1\r"}, {"c", "2"}}));
    EXPECT_EQ(unzip.GetLastMessage(), QStringLiteral(" extracting: c"));
}

TEST_F(CGUnzipFilesTest, ArgumentsReplaceNames)
{
    scratch.addFile("b.zip", ArchiveMaker::make({entryOf("d", "3")}));
    EXPECT_EQ(unzip.unzip(path("b.zip"), path("other")), UnzipResult::Success);
    EXPECT_EQ(files("other").keys(), QByteArrayList{"d"});
    EXPECT_EQ(unzip.ZipFileName, path("b.zip"));
    EXPECT_EQ(unzip.ExtractDir, path("other"));
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_FALSE(std::filesystem::exists(scratch.file("out").toStdString()));
}

TEST_F(CGUnzipFilesTest, HandsOverEachOption)
{
    unzip.HonorDirectories = true;
    unzip.SpaceToUnderScore = true;
    unzip.ConvertCRtoCRLF = true;
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"sub/a_b", "1\r\n"}, {"c", "2"}}));
}

TEST_F(CGUnzipFilesTest, FilesThatExistStayUnlessOverwritten)
{
    scratch.addFolder("out");
    scratch.addFile("out/c", "old");
    unzip.PromptOverwrite = true; // there is nobody to ask
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(files().value("c"), QByteArray("old"));
    unzip.OverWriteFiles = true;
    unzip.ExtractNewer = true; // the entries are of 2004
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(files().value("c"), QByteArray("old"));
    unzip.ExtractNewer = false;
    unzip.ExtractOnlyNewer = true;
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(files().value("c"), QByteArray("old"));
    unzip.ExtractOnlyNewer = false;
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(files().value("c"), QByteArray("2"));
}

TEST_F(CGUnzipFilesTest, WritesNothingToTestListOrPrint)
{
    unzip.TestZip = true;
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(unzip.GetLastMessage(), QStringLiteral("    testing: c   OK"));
    unzip.TestZip = false;
    unzip.ExtractList = true;
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(unzip.GetLastMessage(), QString());
    unzip.DisplayComment = true;
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(unzip.GetLastMessage(), QStringLiteral("a note"));
    unzip.ExtractList = false;
    unzip.WriteToStdOut = true;
    EXPECT_EQ(unzip.unzip(), UnzipResult::Success);
    EXPECT_EQ(unzip.GetLastMessage(), QStringLiteral("2"));
    EXPECT_FALSE(std::filesystem::exists(scratch.file("out").toStdString()));
}

TEST_F(CGUnzipFilesTest, SaysWhatFailed)
{
    make({entryOf("../c", "2")});
    EXPECT_EQ(unzip.unzip(), UnzipResult::DamagedEntry);
    EXPECT_EQ(unzip.GetLastMessage(), QStringLiteral("error:  ../c: its name is not allowed"));
    unzip.MessageLevel = 2;
    EXPECT_EQ(unzip.unzip(), UnzipResult::DamagedEntry);
    EXPECT_EQ(unzip.GetLastMessage(), QString());
    unzip.ZipFileName = path("none");
    EXPECT_EQ(unzip.unzip(), UnzipResult::CannotOpen);
}
