#include "ArchiveMaker.h"
#include "FolderContent.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "UnzipRun.h"
#include "ZipRun.h"

#include <QRandomGenerator>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

MadeEntry wholeFile(const QByteArray &name, const QByteArray &data, bool isDeflated)
{
    MadeEntry entry;
    entry.name = name;
    entry.data = data;
    entry.isDeflated = isDeflated;
    return entry;
}

struct CutArchiveTest : testing::Test
{
    ScratchFolder scratch;
    QByteArray archive = scratch.file("a.zip");
    QByteArray target = scratch.file("target");

    /// No job may take the cut archive for one.
    void expectRefused(const QByteArray &bytes) const
    {
        scratch.addFile("a.zip", bytes);
        UnzipRun unzip;
        EXPECT_EQ(unzip.list(archive), UnzipResult::NoArchive) << bytes.size();
        EXPECT_EQ(unzip.extract(archive, target), UnzipResult::NoArchive) << bytes.size();
        if (bytes.isEmpty())
            return; // which is an archive to be
        ZipRun zip;
        EXPECT_EQ(zip.run(archive, {"/proc/self/exe"}), ZipResult::NoArchive) << bytes.size();
        EXPECT_EQ(zip.remove(archive, {"*"}), ZipResult::NoArchive) << bytes.size();
        EXPECT_EQ(FolderContent::read(archive), bytes);
    }
};

} // namespace

TEST_F(CutArchiveTest, IsRefusedAtEachByteOfASmallOne)
{
    const QByteArray whole =
        ArchiveMaker::make({wholeFile("stored", "12345", false), wholeFile("sub/", {}, false),
                            wholeFile("deflated", QByteArray(200, 'x'), true)});
    for (qsizetype size = 0; size < whole.size(); ++size)
        expectRefused(whole.left(size));
    EXPECT_FALSE(std::filesystem::exists(target.toStdString()));
}

TEST_F(CutArchiveTest, IsRefusedAtManyPlacesOfALargeOne)
{
    QList<MadeEntry> entries;
    for (int i = 0; i < 1000; ++i)
        entries.append(
            wholeFile("folder/" + QByteArray::number(i), QByteArray::number(i).repeated(i), i % 2));
    const QByteArray whole = ArchiveMaker::make(entries);
    QRandomGenerator random(1);
    constexpr int places = 500;
    for (int i = 0; i < places; ++i)
        expectRefused(whole.left(random.bounded(int(whole.size()))));
}

/// The directory is whole, but some of its entries are gone.
TEST_F(CutArchiveTest, ExtractsWhatIsLeft)
{
    QByteArray damaged =
        ArchiveMaker::make({wholeFile("a", "12345", false), wholeFile("b", QByteArray(500, 'b'), false),
                            wholeFile("c", "67890", false)});
    const qsizetype start = damaged.indexOf("12345") + 5;
    damaged.replace(start, damaged.lastIndexOf("bbbb") - start,
                    QByteArray(damaged.lastIndexOf("bbbb") - start, '\0'));
    scratch.addFile("a.zip", damaged);
    UnzipRun unzip;
    EXPECT_EQ(unzip.extract(archive, target), UnzipResult::DamagedEntry);
    EXPECT_EQ(FolderContent::filesOf(target), (QMap<QByteArray, QByteArray>{{"a", "12345"}, {"c", "67890"}}));
}

/// Then nothing says where the entries are.
TEST_F(CutArchiveTest, IsRefusedWhereBytesInTheMiddleAreMissing)
{
    QByteArray damaged =
        ArchiveMaker::make({wholeFile("a", "12345", false), wholeFile("b", QByteArray(500, 'b'), false)});
    damaged.remove(damaged.indexOf("bbbb"), 300);
    expectRefused(damaged);
    EXPECT_FALSE(std::filesystem::exists(target.toStdString()));
}
