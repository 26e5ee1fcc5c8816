#include "BadArchive.h"
#include "PrintQt.h"
#include "RowName.h"
#include "TargetName.h"

#include <gtest/gtest.h>

namespace {

struct TargetRow
{
    const char *name;
    QByteArray entry;
    QByteArray folder;
    QByteArray file;
    bool isDosMade = false;
    int options = TargetName::UseFolders;
};

void PrintTo(const TargetRow &row, std::ostream *out)
{
    *out << row.name;
}

const TargetRow targetRows[] = {
    {"Plain", "a.txt", "", "a.txt"},
    {"InFolder", "a/b/c.txt", "a/b", "c.txt"},
    {"Folder", "a/b/", "a/b", ""},
    {"Absolute", "/etc/passwd", "etc", "passwd"},
    {"ManySlashes", "//a///b", "a", "b"},
    {"Dots", "./a/./b", "a", "b"},
    {"DotsInNames", "a..b/...", "a..b", "..."},
    {"DosSlashes", "a\\b\\c.txt", "a/b", "c.txt", true},
    {"DosFolder", "a\\b\\", "a/b", "", true},
    {"Drive", "C:\\Windows\\x", "Windows", "x", true},
    {"DriveWithoutRoot", "C:x", "", "x", true},
    {"BackslashOfUnix", "a\\b", "", "a\\b"},
    {"ColonOfUnix", "c:x", "", "c:x"},
    {"WithoutFolders", "a/b/c.txt", "", "c.txt", false, 0},
    {"FolderWithoutFolders", "a/b/", "", "", false, 0},
    {"Underscores", "a b/c d", "a_b", "c_d", false, TargetName::UseFolders | TargetName::SpaceToUnderscore},
    {"Blanks", "a b/ c", "a b", " c"},
};

struct RefusedRow
{
    const char *name;
    QByteArray entry;
    bool isDosMade = false;
};

void PrintTo(const RefusedRow &row, std::ostream *out)
{
    *out << row.name;
}

const RefusedRow refusedRows[] = {
    {"Parent", "../x"},
    {"ParentInside", "a/../../x"},
    {"ParentAlone", ".."},
    {"ParentFolder", "../"},
    {"DosParent", "..\\x", true},
    {"MixedParent", "a/..\\x", true},
    {"DriveAndParent", "C:..\\x", true},
    {"Empty", ""},
    {"Dot", "."},
    {"Nul", QByteArray("a\0b", 3)},
};

template<class Row>
ArchiveEntry entryOf(const Row &row)
{
    ArchiveEntry entry;
    entry.name = row.entry;
    entry.system = row.isDosMade ? ArchiveEntry::Dos : ArchiveEntry::Unix;
    return entry;
}

struct TargetNameTest : testing::TestWithParam<TargetRow>
{};
struct RefusedNameTest : testing::TestWithParam<RefusedRow>
{};

} // namespace

TEST_P(TargetNameTest, IsBelowTheTarget)
{
    const TargetName target = TargetName::of(entryOf(GetParam()), GetParam().options);
    EXPECT_EQ(target.folder, GetParam().folder);
    EXPECT_EQ(target.name, GetParam().file);
}

INSTANTIATE_TEST_SUITE_P(Names, TargetNameTest, testing::ValuesIn(targetRows), RowName());

TEST_P(RefusedNameTest, IsRefused)
{
    EXPECT_THROW(TargetName::of(entryOf(GetParam()), TargetName::UseFolders), BadArchive);
    EXPECT_THROW(TargetName::of(entryOf(GetParam()), 0), BadArchive);
}

INSTANTIATE_TEST_SUITE_P(Names, RefusedNameTest, testing::ValuesIn(refusedRows), RowName());
