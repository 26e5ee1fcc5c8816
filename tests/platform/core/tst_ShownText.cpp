#include "ShownText.h"

#include <QTextDocument>
#include <gtest/gtest.h>

namespace {

const QString mark = QString(QChar::ReplacementCharacter);

} // namespace

TEST(ShownTextTest, OrdinaryTextStaysAsItIs)
{
    for (const QString &text :
         {QStringLiteral(""), QStringLiteral("<b>a & b</b> %1 -rf .."),
          QString::fromUtf16(u"\xe4\x20ac\xd83d\xde00"), QString::fromUtf16(u"\x0645\x06cc\x200c\x062e"),
          QString::fromUtf16(u"\xd83d\xdc69\x200d\xd83d\xdcbb")}) {
        EXPECT_EQ(ShownText::line(text), text);
        EXPECT_EQ(ShownText::lines(text), text);
    }
}

TEST(ShownTextTest, WhatHidesOrTurnsTextIsMarked)
{
    for (const char16_t code : {0x1, 0x7, 0x1b, 0x7f, 0x85, 0x61c, 0x200b, 0x200e, 0x200f, 0x2028, 0x2029,
                                0x202a, 0x202e, 0x2066, 0x2069, 0xfeff, 0xd800, 0xdcff}) {
        const QString text = QStringLiteral("a") + QChar(code) + QStringLiteral("b");
        EXPECT_EQ(ShownText::line(text), QStringLiteral("a") + mark + QStringLiteral("b")) << int(code);
        EXPECT_EQ(ShownText::lines(text), QStringLiteral("a") + mark + QStringLiteral("b")) << int(code);
    }
}

TEST(ShownTextTest, LineEndsAreMarkedOnOneLineAndUnifiedOnMany)
{
    EXPECT_EQ(ShownText::line(QStringLiteral("a\nb\tc\r")), QStringLiteral("a%1b%1c%1").arg(mark));
    EXPECT_EQ(ShownText::lines(QStringLiteral("a\nb\r\nc\rd\te")), QStringLiteral("a\nb\nc\nd\te"));
}

TEST(ShownTextTest, AToolTipShowsMarkupAsText)
{
    EXPECT_EQ(ShownText::toolTip(QStringLiteral("Local Files")), QStringLiteral("Local Files"));
    for (const QString &text : {QStringLiteral("<b>bold</b> &amp;"), QStringLiteral("a<br>\nb"),
                                QStringLiteral("&lt;b&gt;"), QStringLiteral("a & b")}) {
        const QString tip = ShownText::toolTip(text);
        ASSERT_TRUE(Qt::mightBeRichText(tip));
        QTextDocument document;
        document.setHtml(tip);
        EXPECT_EQ(document.toPlainText(), text);
    }
}
