#include "ArchiveMaker.h"
#include "DirectoryReader.h"
#include "LabelEntry.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>

namespace {

MadeEntry labelled(const QByteArray &name, bool isLabel)
{
    MadeEntry entry;
    entry.name = name;
    if (isLabel) {
        entry.system = ArchiveEntry::Dos;
        entry.attributes = ArchiveEntry::VolumeLabel;
    } else {
        entry.data = "content";
    }
    return entry;
}

struct LabelEntryTest : testing::Test
{
    ScratchFolder scratch;
    QByteArray archive = scratch.file("a.zip");

    std::vector<ArchiveEntry> entries() const
    {
        return DirectoryReader(FileDescriptor::open(archive, O_RDONLY)).read().entries;
    }
    /// Whether \a label is set in an archive of \a old.
    bool set(const QList<MadeEntry> &old, const QByteArray &label) const
    {
        scratch.addFile("a.zip", ArchiveMaker::make(old));
        zip_t *opened = zip_open(archive.constData(), 0, nullptr);
        const bool isSet = LabelEntry::set(opened, entries(), label);
        EXPECT_EQ(zip_close(opened), 0);
        return isSet;
    }
    /// The names of the archive, those of labels in brackets.
    QByteArrayList names() const
    {
        QByteArrayList names;
        for (const ArchiveEntry &entry : entries())
            names.append(entry.isVolumeLabel() ? '[' + entry.name + ']' : entry.name);
        return names;
    }
};

} // namespace

TEST_F(LabelEntryTest, IsAdded)
{
    EXPECT_TRUE(set({labelled("a", false)}, "MY DISK"));
    EXPECT_EQ(names(), QByteArrayList({"a", "[MY DISK]"}));
}

TEST_F(LabelEntryTest, TakesThePlaceOfTheOldOne)
{
    EXPECT_TRUE(set({labelled("OLD", true), labelled("a", false)}, "NEW"));
    EXPECT_EQ(names(), QByteArrayList({"[NEW]", "a"}));
    EXPECT_TRUE(set({labelled("OLD", true), labelled("SAME", true)}, "SAME"));
    EXPECT_EQ(names(), QByteArrayList({"[OLD]", "[SAME]"}));
}

TEST_F(LabelEntryTest, NeverTakesThePlaceOfAFile)
{
    EXPECT_FALSE(set({labelled("DISK", false), labelled("OLD", true)}, "DISK"));
    EXPECT_EQ(names(), QByteArrayList({"DISK", "[OLD]"}));
    EXPECT_EQ(entries()[0].size, 7u);
}
