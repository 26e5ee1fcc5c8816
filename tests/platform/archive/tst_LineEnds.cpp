#include "CarriageReturns.h"
#include "LineEnds.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

using LineEnds::Conversion;

TEST(LineEndsTest, DropsReturnsBeforeLineFeeds)
{
    EXPECT_EQ(LineEnds::convert("a\r\nb\rc\nd\r\r\n", '\0', Conversion::ToLf), QByteArray("a\nb\rc\nd\r\n"));
    EXPECT_EQ(LineEnds::convert("a\r", '\n', Conversion::ToLf), QByteArray("a"));
    EXPECT_EQ(LineEnds::convert("a\r", 'x', Conversion::ToLf), QByteArray("a\r"));
}

TEST(LineEndsTest, PutsReturnsBeforeLineFeeds)
{
    EXPECT_EQ(LineEnds::convert("a\nb\r\nc", '\0', Conversion::ToCrLf), QByteArray("a\r\nb\r\r\nc"));
}

TEST(LineEndsTest, KnowsText)
{
    EXPECT_TRUE(LineEnds::isText("caf\xe9\r\n\x1a"));
    EXPECT_FALSE(LineEnds::isText(QByteArrayView("a\0b", 3)));
}

TEST(LineEndsTest, AddsLineFeedsToReturnsInPieces)
{
    const QByteArray text = "a\rb\r\nc\nd\r\re\r";
    const QByteArray expected = "a\r\nb\r\nc\nd\r\n\r\ne\r\n";
    for (qsizetype size = 1; size <= text.size(); ++size) {
        CarriageReturns returns;
        QByteArray converted;
        for (qsizetype at = 0; at < text.size(); at += size)
            converted += returns.convert(QByteArrayView(text).sliced(at, qMin(size, text.size() - at)));
        converted += returns.finish();
        EXPECT_EQ(converted, expected) << size;
    }
}

TEST(LineEndsTest, LeavesBinaryData)
{
    CarriageReturns returns;
    EXPECT_EQ(returns.convert(QByteArrayView("\0\r", 2)).toByteArray(), QByteArray("\0\r", 2));
    EXPECT_EQ(returns.convert("a\r").toByteArray(), QByteArray("a\r"));
    EXPECT_TRUE(returns.finish().isEmpty());
}
