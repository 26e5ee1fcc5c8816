#include "PlainText.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

using PlainText::LineEnd;

TEST(PlainTextTest, ReadsUtf8)
{
    EXPECT_EQ(PlainText::decode("caf\xC3\xA9 \xF0\x9F\x98\x80"), QStringLiteral("caf\u00e9 \U0001F600"));
}

TEST(PlainTextTest, DropsTheByteOrderMark)
{
    EXPECT_EQ(PlainText::decode("\xEF\xBB\xBFone"), QStringLiteral("one"));
}

TEST(PlainTextTest, ReadsUtf16ByItsMark)
{
    EXPECT_EQ(PlainText::decode(QByteArray("\xFF\xFE"
                                           "a\0\xE9\0",
                                           6)),
              QStringLiteral("a\u00e9"));
    EXPECT_EQ(PlainText::decode(QByteArray("\xFE\xFF\0a\0\xE9", 6)), QStringLiteral("a\u00e9"));
}

TEST(PlainTextTest, WhatIsNotUtf8IsWindows1252)
{
    EXPECT_EQ(PlainText::decode("caf\xE9 \x80 \x93quoted\x94"),
              QStringLiteral("caf\u00e9 \u20ac \u201cquoted\u201d"));
    EXPECT_EQ(PlainText::decode("cut \xC3"), QStringLiteral("cut \u00c3"));
    EXPECT_EQ(PlainText::decode("\xED\xA0\x80"), QStringLiteral("\u00ed\u00a0\u20ac")); // a lone surrogate
}

TEST(PlainTextTest, MakesEveryLineEndANewline)
{
    EXPECT_EQ(PlainText::decode("a\r\nb\rc\n\r\nd"), QStringLiteral("a\nb\nc\n\nd"));
}

TEST(PlainTextTest, NulBecomesAVisibleMark)
{
    EXPECT_EQ(PlainText::decode(QByteArray("a\0b", 3)), QStringLiteral("a\ufffd") + u'b');
}

TEST(PlainTextTest, EmptyStaysEmpty)
{
    EXPECT_TRUE(PlainText::decode({}).isEmpty());
    EXPECT_TRUE(PlainText::encode({}, LineEnd::CrLf).isEmpty());
}

TEST(PlainTextTest, FindsTheLineEndThatMostLinesHave)
{
    EXPECT_EQ(PlainText::lineEndOf("one line"), LineEnd::Lf);
    EXPECT_EQ(PlainText::lineEndOf("a\nb\n"), LineEnd::Lf);
    EXPECT_EQ(PlainText::lineEndOf("a\r\nb\r\n"), LineEnd::CrLf);
    EXPECT_EQ(PlainText::lineEndOf("a\rb\r"), LineEnd::Cr);
    EXPECT_EQ(PlainText::lineEndOf("a\r\nb\r\nc\n"), LineEnd::CrLf);
    EXPECT_EQ(PlainText::lineEndOf("a\nb\nc\r\n"), LineEnd::Lf);
}

TEST(PlainTextTest, AFileKeepsItsBytes)
{
    for (const QByteArray &bytes :
         {QByteArray("a\r\nb\r\n"), QByteArray("a\nb"), QByteArray("a\rb\r"), QByteArray("caf\xC3\xA9\r\n")})
        EXPECT_EQ(PlainText::encode(PlainText::decode(bytes), PlainText::lineEndOf(bytes)), bytes);
}

TEST(PlainTextTest, EveryWindows1252ByteComesBack)
{
    QByteArray page;
    for (int byte = 0; byte < 256; ++byte)
        page.append(char(byte));
    EXPECT_EQ(PlainText::toWindows1252(PlainText::fromWindows1252(page)), page);
}

TEST(PlainTextTest, WhatThePageLacksIsAQuestionMark)
{
    EXPECT_EQ(PlainText::toWindows1252(u"a\u4e2db"), QByteArray("a?b"));
    EXPECT_EQ(PlainText::toWindows1252(u"\U0001F600!"), QByteArray("?!"));
    EXPECT_EQ(PlainText::toWindows1252(QString(QChar(0xDE00))), QByteArray("?"));
    EXPECT_EQ(PlainText::toWindows1252(QString(QChar(0xD83D)) + u'x'), QByteArray("?x"));
}
