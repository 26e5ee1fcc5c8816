#include "ArchiveMaker.h"
#include "BadArchive.h"
#include "DirectoryReader.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <libdeflate.h>

namespace {

struct DirectoryReaderTest : testing::Test
{
    ScratchFolder scratch;

    ArchiveDirectory read(const QByteArray &bytes) const
    {
        scratch.addFile("a.zip", bytes);
        return DirectoryReader(FileDescriptor::open(scratch.file("a.zip"), O_RDONLY)).read();
    }
    ArchiveEntry readEntry(const MadeEntry &entry) const
    {
        return read(ArchiveMaker::make({entry})).entries.at(0);
    }
};

MadeEntry named(const QByteArray &name)
{
    MadeEntry entry;
    entry.name = name;
    entry.data = "content of " + name;
    return entry;
}

struct NameRow
{
    const char *name;
    QByteArray stored;
    quint8 system;
    QByteArray extra;
    QByteArray expected;
};

struct EntryNameTest : DirectoryReaderTest, testing::WithParamInterface<NameRow>
{};

void PrintTo(const NameRow &row, std::ostream *out)
{
    *out << row.name;
}

QByteArray unicodePath(const QByteArray &path, quint32 crc)
{
    return ArchiveMaker::extraField(0x7075, "\x01" + ArchiveMaker::number(crc, 4) + path);
}

constexpr quint8 dos = 0;
constexpr quint8 unixSystem = 3;
const quint32 crcOfShort = libdeflate_crc32(0, "short.txt", 9);

const NameRow nameRows[] = {
    {"Ascii", "plain.txt", dos, {}, "plain.txt"},
    {"Utf8", "\u00e9t\u00e9.txt", dos, {}, "\u00e9t\u00e9.txt"},
    {"CodePage437", "caf\x82.txt", dos, {}, "caf\u00e9.txt"},
    {"UnixBytes", "caf\xe9.txt", unixSystem, {}, "caf\xe9.txt"},
    {"UnicodePath", "short.txt", dos, unicodePath("\u65e5.txt", crcOfShort), "\u65e5.txt"},
    {"OutdatedUnicodePath", "short.txt", dos, unicodePath("\u65e5.txt", 1), "short.txt"},
    {"UnicodePathThatIsNone", "short.txt", dos, unicodePath("\xff", crcOfShort), "short.txt"},
};

} // namespace

TEST_P(EntryNameTest, Decodes)
{
    MadeEntry entry = named(GetParam().stored);
    entry.system = GetParam().system;
    entry.extra = GetParam().extra;
    EXPECT_EQ(readEntry(entry).name, GetParam().expected);
    EXPECT_EQ(readEntry(entry).storedName, GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(Names, EntryNameTest, testing::ValuesIn(nameRows), RowName());

TEST_F(DirectoryReaderTest, ReadsAllFields)
{
    MadeEntry made = named("folder/file.txt");
    made.isDeflated = true;
    made.data = QByteArray(1000, 'a');
    const ArchiveDirectory directory = read(ArchiveMaker::make({named("first"), made}, {.comment = "note"}));
    ASSERT_EQ(directory.entries.size(), 2u);
    const ArchiveEntry &entry = directory.entries[1];
    EXPECT_EQ(entry.name, QByteArray("folder/file.txt"));
    EXPECT_EQ(entry.size, 1000u);
    EXPECT_EQ(entry.packedSize, quint64(ArchiveMaker::deflated(made.data).size()));
    EXPECT_EQ(entry.methodName(), QByteArray("Defl:N"));
    EXPECT_EQ(entry.permissions(), 0644);
    EXPECT_EQ(entry.dosDate, made.dosDate);
    EXPECT_FALSE(entry.isEncrypted());
    EXPECT_FALSE(entry.isFolder());
    EXPECT_EQ(directory.comment, QByteArray("note"));
    EXPECT_EQ(directory.prefix, 0);
}

/// By their names or by their attributes, which mean what the system says that made them.
TEST_F(DirectoryReaderTest, KnowsFolders)
{
    const struct
    {
        const char *name;
        quint8 system;
        quint32 attributes;
        bool isEmpty;
        bool isFolder;
    } rows[] = {
        {"a/", unixSystem, 0100644u << 16, true, true},
        {"a", unixSystem, 040755u << 16, true, true},
        {"a", unixSystem, 040755u << 16, false, false},
        {"a", unixSystem, 0100644u << 16, true, false},
        {"a", unixSystem, ArchiveEntry::Folder, true, false},
        {"a\\", unixSystem, 0100644u << 16, true, false},
        {"a\\", dos, 0, true, true},
        {"a", dos, ArchiveEntry::Folder, true, true},
        {"a", dos, ArchiveEntry::Folder, false, false},
        {"a", dos, 040755u << 16, true, false},
    };
    for (const auto &row : rows) {
        MadeEntry entry = named(row.name);
        entry.system = row.system;
        entry.attributes = row.attributes;
        if (row.isEmpty)
            entry.data.clear();
        EXPECT_EQ(readEntry(entry).isFolder(), row.isFolder) << &row - rows;
    }
}

TEST_F(DirectoryReaderTest, ToleratesAPrefix)
{
    for (const bool countsPrefix : {false, true}) {
        const QByteArray prefix(5000, '#');
        const ArchiveDirectory directory =
            read(ArchiveMaker::make({named("a")}, {.prefix = prefix, .countsPrefix = countsPrefix}));
        EXPECT_EQ(directory.entries.at(0).offset, prefix.size());
        EXPECT_EQ(directory.prefix, countsPrefix ? 0 : prefix.size());
    }
}

TEST_F(DirectoryReaderTest, Reads64BitNumbers)
{
    MadeEntry large = named("large");
    large.is64 = true;
    large.size = Q_UINT64_C(5'000'000'000);
    for (const QByteArray &prefix : {QByteArray(), QByteArray("prefix")}) {
        const ArchiveDirectory directory =
            read(ArchiveMaker::make({named("a"), large}, {.prefix = prefix, .is64 = true}));
        ASSERT_EQ(directory.entries.size(), 2u);
        EXPECT_EQ(directory.entries[1].size, Q_UINT64_C(5'000'000'000));
        EXPECT_EQ(directory.entries[1].packedSize, quint64(large.data.size()));
        EXPECT_EQ(directory.prefix, prefix.size());
    }
}

TEST_F(DirectoryReaderTest, ReadsMoreEntriesThanTheCountHolds)
{
    QList<MadeEntry> entries;
    constexpr int count = 70'000;
    for (int i = 0; i < count; ++i)
        entries.append(named(QByteArray::number(i)));
    EXPECT_EQ(read(ArchiveMaker::make(entries)).entries.size(), std::size_t(count));
    EXPECT_EQ(read(ArchiveMaker::make(entries, {.is64 = true})).entries.size(), std::size_t(count));
}

TEST_F(DirectoryReaderTest, TakesNoEndFromTheComment)
{
    const QByteArray comment = "PK\x05\x06" + QByteArray(18, '\0') + " is no end";
    const QByteArray other = "PK\x05\x06" + QByteArray(18, '\x7f');
    for (const QByteArray &note : {comment, other}) {
        const ArchiveDirectory directory = read(ArchiveMaker::make({named("a")}, {.comment = note}));
        if (directory.entries.empty()) // an end record of an empty archive is one wherever it is
            continue;
        EXPECT_EQ(directory.entries[0].name, QByteArray("a"));
    }
    EXPECT_EQ(read(ArchiveMaker::make({named("a")}, {.comment = other})).entries.size(), 1u);
}

TEST_F(DirectoryReaderTest, ReadsAnEmptyArchive)
{
    EXPECT_TRUE(read(ArchiveMaker::make({})).entries.empty());
}

TEST_F(DirectoryReaderTest, ReadsTheLongestNameAndFields)
{
    MadeEntry entry = named(QByteArray(65535, 'n'));
    entry.extra = ArchiveMaker::extraField(0x1234, QByteArray(65531, 'x'));
    const ArchiveDirectory directory = read(ArchiveMaker::make({entry, named("b")}));
    EXPECT_EQ(directory.entries.at(0).name.size(), 65535);
    EXPECT_EQ(directory.entries.at(1).name, QByteArray("b"));
}

TEST_F(DirectoryReaderTest, StopsAtTheEndOfDamagedFields)
{
    MadeEntry entry = named("a");
    entry.is64 = false;
    entry.extra = QByteArray("\x01\x00\xff\xff\x01", 5); // says 65,535 bytes and has one
    EXPECT_EQ(readEntry(entry).size, quint64(entry.data.size()));
    entry.size = 0xffffffff; // would be in the field
    EXPECT_EQ(readEntry(entry).size, 0xffffffffu);
}

TEST_F(DirectoryReaderTest, RefusesWhatIsNoArchive)
{
    const QByteArray archive = ArchiveMaker::make({named("a")});
    QByteArray damaged = archive;
    damaged[archive.lastIndexOf("PK\x01\x02") + 1] = 'Q';
    for (const QByteArray &bytes : {QByteArray(), QByteArray("PK"), QByteArray(100'000, 'x'), damaged})
        EXPECT_THROW(read(bytes), BadArchive);
}

TEST_F(DirectoryReaderTest, RefusesAWrongCount)
{
    QByteArray archive = ArchiveMaker::make({named("a"), named("b")});
    const qsizetype end = archive.lastIndexOf("PK\x05\x06");
    archive[end + 8] = archive[end + 10] = 3;
    EXPECT_THROW(read(archive), BadArchive);
}

/// Wherever an archive is cut, nothing is read that is not there.
TEST_F(DirectoryReaderTest, RefusesAnArchiveThatIsCut)
{
    MadeEntry large = named("large");
    large.is64 = true;
    const QByteArray archive = ArchiveMaker::make({named("a"), large}, {.comment = "note", .is64 = true});
    for (qsizetype size = 0; size < archive.size(); ++size)
        EXPECT_THROW(read(archive.left(size)), BadArchive) << size;
}

TEST_F(DirectoryReaderTest, TakesTheExactTime)
{
    MadeEntry entry = named("a");
    entry.extra = ArchiveMaker::extraField(0x5455, "\x01" + ArchiveMaker::number(1'000'000'001, 4));
    EXPECT_EQ(readEntry(entry).modified(), 1'000'000'001);
    EXPECT_TRUE(readEntry(entry).exactTime.has_value());
    constexpr quint64 windowsTime = (Q_UINT64_C(1'000'000'001) + 11'644'473'600) * 10'000'000;
    entry.extra = ArchiveMaker::extraField(
        0x000a, QByteArray(4, '\0') + ArchiveMaker::number(1, 2) + ArchiveMaker::number(24, 2) +
                    ArchiveMaker::number(windowsTime, 8) + QByteArray(16, '\0'));
    EXPECT_EQ(readEntry(entry).modified(), 1'000'000'001);
    entry.extra.clear();
    EXPECT_FALSE(readEntry(entry).exactTime.has_value());
}

TEST_F(DirectoryReaderTest, TakesPermissionsByWhoMadeTheEntry)
{
    MadeEntry entry = named("a");
    entry.attributes = 0106755u << 16; // set-id bits
    EXPECT_EQ(readEntry(entry).permissions(), 0755);
    entry.attributes = 0120777u << 16; // a link
    EXPECT_EQ(readEntry(entry).permissions(), 0644);
    entry.attributes = 0;
    EXPECT_EQ(readEntry(entry).permissions(), 0);
    entry.system = dos;
    entry.attributes = 0x21;
    EXPECT_EQ(readEntry(entry).permissions(), 0444);
    entry.attributes = 0x20;
    EXPECT_EQ(readEntry(entry).permissions(), 0);
}
