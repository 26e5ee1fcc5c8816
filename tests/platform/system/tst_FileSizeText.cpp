#include "FileSizeText.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

struct SizeRow
{
    qint64 length;
    const char *text;
};

void PrintTo(const SizeRow &row, std::ostream *out)
{
    *out << row.length;
}

struct FileSizeTextTest : testing::TestWithParam<SizeRow>
{};

} // namespace

TEST_P(FileSizeTextTest, IsComparedAsText)
{
    EXPECT_EQ(FileSizeText::of(GetParam().length), QString::fromLatin1(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Lengths, FileSizeTextTest,
                         testing::Values(SizeRow{0, "0Bytes"}, SizeRow{1, "1Bytes"}, SizeRow{2, "0.002 KB"},
                                         SizeRow{5, "0.0049 KB"}, SizeRow{32, "0.0312 KB"}, // 0.03125
                                         SizeRow{96, "0.0938 KB"},                          // 0.09375
                                         SizeRow{100, "100Bytes"}, SizeRow{102, "102Bytes"},
                                         SizeRow{103, "0.1006 KB"}, SizeRow{999, "0.9756 KB"},
                                         SizeRow{1023, "1023Bytes"}, SizeRow{1024, "1 KB"},
                                         SizeRow{2000, "1.9531 KB"}, SizeRow{10239, "10239Bytes"},
                                         SizeRow{10240, "10 KB"}, SizeRow{1020000, "1020000Bytes"},
                                         SizeRow{5'000'000'000, "4882812.5 KB"}));
