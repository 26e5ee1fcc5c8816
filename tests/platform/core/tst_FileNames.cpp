#include "FileNames.h"

#include <gtest/gtest.h>

namespace {

struct NameRow
{
    const char *name;
    QByteArray bytes;
    QString text;
};

struct FileNamesTest : testing::TestWithParam<NameRow>
{};

} // namespace

TEST_P(FileNamesTest, BytesAndTextConvertBothWays)
{
    EXPECT_EQ(FileNames::fromBytes(GetParam().bytes), GetParam().text);
    EXPECT_EQ(FileNames::toBytes(GetParam().text), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Names, FileNamesTest,
    testing::Values(NameRow{"Empty", "", QStringLiteral("")},
                    NameRow{"Ascii", "a b.txt", QStringLiteral("a b.txt")},
                    NameRow{"Utf8", "\xc3\xa4\xe2\x82\xac", QString::fromUtf16(u"\u00e4\u20ac")},
                    NameRow{"Emoji", "\xf0\x9f\x98\x80", QString::fromUtf16(u"\U0001f600")},
                    NameRow{"Latin1", "M\xfcll", QString::fromUtf16(u"M\xdcfcll")},
                    NameRow{"CutSequence", "a\xe2\x82", QString::fromUtf16(u"a\xdce2\xdc82")},
                    NameRow{"Overlong", "\xc0\xaf", QString::fromUtf16(u"\xdcc0\xdcaf")},
                    NameRow{"EncodedSurrogate", "\xed\xb3\xbc", QString::fromUtf16(u"\xdced\xdcb3\xdcbc")},
                    NameRow{"EscapeBehindEmoji", "\xf0\x9f\x98\x80\xff",
                            QString::fromUtf16(u"\xd83d\xde00\xdcff")},
                    NameRow{"LineFeed", "a\nb", QStringLiteral("a\nb")}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(FileNamesTest, EveryByteComesBack)
{
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const QByteArray bytes{QByteArray(1, char(first)) + char(second) + 'x'};
            ASSERT_EQ(FileNames::toBytes(FileNames::fromBytes(bytes)), bytes);
        }
    }
}
