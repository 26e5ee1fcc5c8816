#include "PrintQt.h"
#include "VCardText.h"

#include <gtest/gtest.h>

TEST(VCardText, EscapesAndUnescapes)
{
    const QString text = QStringLiteral("a,b;c\\d\ne: \"f\"\tg");
    EXPECT_EQ(VCardText::escaped(text), QStringLiteral("a\\,b\\;c\\\\d\\ne: \"f\"\tg"));
    EXPECT_EQ(VCardText::unescaped(VCardText::escaped(text)), text);
    EXPECT_EQ(VCardText::escaped(QStringLiteral("a\r\nb\rc\x01"
                                                "d")),
              QStringLiteral("a\\nb\\ncd"));
}

TEST(VCardText, ReadsTheEscapesOfOtherPrograms)
{
    EXPECT_EQ(VCardText::unescaped(QStringLiteral("a\\Nb\\:c\\")), QStringLiteral("a\nb:c\\"));
}

TEST(VCardText, SplitsOutsideOfEscapes)
{
    EXPECT_EQ(VCardText::split(QStringLiteral("a\\;b;c;\\\\;"), u';'),
              QStringList({QStringLiteral("a\\;b"), QStringLiteral("c"), QStringLiteral("\\\\"), QString()}));
    EXPECT_EQ(VCardText::split(QString(), u';'), QStringList(QString()));
}

TEST(VCardText, FoldsAtSeventyFiveBytesBetweenCharacters)
{
    const QString line = QStringLiteral("NOTE:") + QString(200, QChar(0x65E5)) +
                         QStringLiteral("\U0001F600").repeated(50) + QString(300, u'x');
    const QByteArray folded = VCardText::folded(line);
    for (const QByteArray &part : folded.split('\n')) {
        EXPECT_LE(part.size(), 76); // with the CR
        EXPECT_TRUE(part.isValidUtf8());
    }
    EXPECT_TRUE(folded.endsWith("x\r\n"));
    EXPECT_EQ(VCardText::unfolded(folded).value(0), line.toUtf8());
}

TEST(VCardText, AShortLineIsNotFolded)
{
    EXPECT_EQ(VCardText::folded(QString(75, u'x')), QByteArray(75, 'x') + "\r\n");
    EXPECT_EQ(VCardText::folded(QString(76, u'x')), QByteArray(75, 'x') + "\r\n x\r\n");
}

TEST(VCardText, UnfoldsAnyLineEndsAndBothBlanks)
{
    const QByteArrayList expected = {"A:bcd", "E:f", ""};
    EXPECT_EQ(VCardText::unfolded("A:b\r\n c\r\n\td\r\nE:f\r\n"), expected);
    EXPECT_EQ(VCardText::unfolded("A:b\n c\n\td\nE:f\n"), expected);
    EXPECT_EQ(VCardText::unfolded("A:b\r c\r\td\rE:f\r"), expected);
    EXPECT_EQ(VCardText::unfolded("\xEF\xBB\xBF"
                                  "A:bcd\nE:f\n"),
              expected);
}

TEST(VCardText, UnfoldsWithinACharacter)
{
    EXPECT_EQ(VCardText::unfolded("A:\xC3\r\n \xA9"), QByteArrayList({"A:\xC3\xA9"}));
}

TEST(VCardText, JoinsTheSoftLineBreaksOfQuotedPrintable)
{
    EXPECT_EQ(VCardText::unfolded("N;ENCODING=quoted-printable:a=\n b=\nc\nX:d=\nY:e"),
              QByteArrayList({"N;ENCODING=quoted-printable:a bc", "X:d=", "Y:e"}));
}

TEST(VCardText, ReadsUtf16)
{
    EXPECT_EQ(VCardText::unfolded(QByteArray("\xFF\xFE"
                                             "A\0:\0\xE9\0",
                                             8)),
              QByteArrayList({"A:\xC3\xA9"}));
}
