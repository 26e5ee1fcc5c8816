#include "ListingRows.h"
#include "PrintQt.h"
#include "RowName.h"

#include <gtest/gtest.h>

namespace {

struct ListingCase
{
    const char *name;
    const char *response;
    const char *rows; // joined by "|"
};

struct ListingRowsTest : testing::TestWithParam<ListingCase>
{};

constexpr ListingCase listingCases[] = {
    {"InTheirOrder", "b\r\npub/\r\na\r\n", "b|pub/|a"},
    {"TheLastLineWithoutItsEndIsLost", "a\r\nb", "a"},
    {"LineFeedsAloneEndNoRow", "a\nb\r\n", "ab"},
    {"CarriageReturnsAloneEndOne", "a\rb\r", "a|b"},
    {"BlanksAroundANameStay", "  a \r\n", "  a "},
    {"EmptyLinesAreNoRows", "\r\n\r\na\r\n\r\n", "a"},
    {"BlanksAloneRunOn", "a\r\n  \r\nb\r\n", "a|  b"},
    {"BlanksAtTheEndAreLost", "a\r\n  \r\n", "a"},
    {"ATabIsNoBlank", "\t\r\na\r\n", "\t|a"},
    {"DotsAreRows", "./\r\n../\r\n", "./|../"},
    {"Nothing", "", ""},
};

} // namespace

TEST_P(ListingRowsTest, HasTheRowsAsReceived)
{
    EXPECT_EQ(ListingRows::of(QString::fromLatin1(GetParam().response)).join(u'|'),
              QString::fromLatin1(GetParam().rows));
}

INSTANTIATE_TEST_SUITE_P(Responses, ListingRowsTest, testing::ValuesIn(listingCases), RowName());

/// A scan of the whole row at each line end would take minutes.
TEST(ListingRows, ManyBlankLinesTakeNoTime)
{
    constexpr int lines = 500000;
    EXPECT_EQ(
        ListingRows::of(QStringLiteral("        \r\n").repeated(lines) + QStringLiteral("a\r\n")).size(), 1);
}
