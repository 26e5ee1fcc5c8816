#include "RichTextProperties.h"
#include "RowName.h"
#include "RtfReader.h"
#include "WrittenBody.h"

#include <QTextList>
#include <gtest/gtest.h>

namespace {

struct MarkRow
{
    const char *name;
    QTextListFormat::Style style;
    int start;
    const char *level; ///< of the list table
    const char *mark;
};

struct RtfWriterMarks : testing::TestWithParam<MarkRow>
{};

QTextListFormat flat(QTextListFormat::Style style)
{
    QTextListFormat format;
    format.setStyle(style);
    format.setIndent(0);
    return format;
}

} // namespace

TEST_P(RtfWriterMarks, StandInTheTableAndBeforeTheItem)
{
    PlainDocument document;
    QTextListFormat format = flat(GetParam().style);
    format.setProperty(RichTextProperty::ListStart, GetParam().start);
    QTextCursor cursor(&document);
    cursor.createList(format);
    cursor.insertText(QStringLiteral("a"));
    const QByteArray bytes = RtfWriter::write(document);
    EXPECT_EQ(bodyOf(bytes),
              QByteArray("\\pard\\ls1\\fi0\\li0{\\listtext ") + GetParam().mark + "\\tab}a\\par\n");
    EXPECT_TRUE(bytes.contains(GetParam().level)) << bytes.constData();
    EXPECT_TRUE(
        bytes.contains("{\\*\\listoverridetable{\\listoverride\\listid1\\listoverridecount0\\ls1}}\n"));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RtfWriterMarks,
    testing::Values(
        MarkRow{
            "Disc", QTextListFormat::ListDisc, 1,
            "\\levelnfc23\\leveljc0\\levelfollow0\\levelstartat1{\\leveltext\\'01\\u8226?;}{\\levelnumbers;}",
            "\\u8226?"},
        MarkRow{"Circle", QTextListFormat::ListCircle, 1, "{\\leveltext\\'01\\u9702?;}", "\\u9702?"},
        MarkRow{"Square", QTextListFormat::ListSquare, 1, "{\\leveltext\\'01\\u9642?;}", "\\u9642?"},
        MarkRow{"Decimal", QTextListFormat::ListDecimal, 3,
                "\\levelnfc0\\leveljc0\\levelfollow0\\levelstartat3{\\leveltext\\'02\\'00.;}{"
                "\\levelnumbers\\'01;}",
                "3."},
        MarkRow{"UpperRoman", QTextListFormat::ListUpperRoman, 1994, "\\levelnfc1", "MCMXCIV."},
        MarkRow{"LowerRoman", QTextListFormat::ListLowerRoman, 9, "\\levelnfc2", "ix."},
        MarkRow{"UpperAlpha", QTextListFormat::ListUpperAlpha, 28, "\\levelnfc3", "AB."},
        MarkRow{"LowerAlpha", QTextListFormat::ListLowerAlpha, 26, "\\levelnfc4", "z."},
        MarkRow{"NoLetterForZero", QTextListFormat::ListLowerAlpha, 0, "\\levelstartat0", "0."},
        MarkRow{"BeyondRoman", QTextListFormat::ListUpperRoman, 5000, "\\levelstartat5000", "5000."}),
    RowName());

TEST(RtfWriterLists, CountTheirItems)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    QTextListFormat format = flat(QTextListFormat::ListDecimal);
    format.setNumberPrefix(QStringLiteral("("));
    format.setNumberSuffix(QStringLiteral(")"));
    cursor.createList(format);
    cursor.insertText(QStringLiteral("a\nb"));
    const QByteArray bytes = RtfWriter::write(document);
    EXPECT_EQ(bodyOf(bytes),
              QByteArray("\\pard\\ls1\\fi0\\li0{\\listtext (1)\\tab}a\\par\n{\\listtext (2)\\tab}b\\par\n"));
    EXPECT_TRUE(bytes.contains("{\\leveltext\\'03(\\'00);}{\\levelnumbers\\'02;}"));
}

TEST(RtfWriterLists, CutMarksThatAreTooLongToCount)
{
    PlainDocument document;
    QTextListFormat format = flat(QTextListFormat::ListDecimal);
    format.setNumberPrefix(QString(300, u'a'));
    format.setNumberSuffix(QString(300, u'b'));
    QTextCursor(&document).createList(format);
    const QByteArray text = QByteArray(100, 'a') + "\\'00" + QByteArray(100, 'b');
    EXPECT_TRUE(RtfWriter::write(document).contains("{\\leveltext\\'c9" + text + ";}"));
}

TEST(RtfWriterLists, OfBulletsShareOneEntry)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    cursor.insertList(flat(QTextListFormat::ListDisc));
    cursor.insertBlock(QTextBlockFormat());
    cursor.insertList(flat(QTextListFormat::ListDisc));
    const QByteArray bytes = RtfWriter::write(document);
    EXPECT_EQ(bytes.count("{\\list\\"), 1);
    EXPECT_EQ(bytes.count("\\pard\\ls1"), 2);
}

TEST(RtfWriterLists, OfNumbersStartAnew)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    cursor.insertList(flat(QTextListFormat::ListDecimal));
    cursor.insertList(flat(QTextListFormat::ListDecimal));
    EXPECT_EQ(bodyOf(document), QByteArray("\\par\n\\pard\\ls1\\fi0\\li0{\\listtext 1.\\tab}\\par\n"
                                           "\\pard\\ls2\\fi0\\li0{\\listtext 1.\\tab}\\par\n"));
}

TEST(RtfWriterLists, KeepTheirLevel)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    QTextListFormat format = flat(QTextListFormat::ListDecimal);
    format.setProperty(RichTextProperty::ListLevel, 2);
    cursor.createList(format);
    const QByteArray bytes = RtfWriter::write(document);
    EXPECT_TRUE(bodyOf(bytes).startsWith("\\pard\\ls1\\ilvl2\\fi0\\li0{"));
    EXPECT_EQ(bytes.count("{\\listlevel"), 3);
    EXPECT_TRUE(bytes.contains("{\\leveltext\\'02\\'02.;}"));
}

TEST(RtfWriterLists, HangTheMarksOfQtsOwnIndents)
{
    PlainDocument document;
    QTextListFormat format;
    format.setStyle(QTextListFormat::ListDisc);
    QTextCursor(&document).createList(format);
    const QByteArray bytes = RtfWriter::write(document);
    EXPECT_TRUE(bodyOf(bytes).startsWith("\\pard\\ls1\\fi-360\\li600{"));
    EXPECT_TRUE(bytes.contains("{\\levelnumbers;}\\fi-360\\li600}"));
}

TEST(RtfWriterLists, HaveTheSignThatTheFileHad)
{
    QTextDocument document;
    RtfReader::read(
        "{\\rtf1{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u8211 ?;}{\\levelnumbers;}}"
        "\\listid1}{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u-3913 ?;}{\\levelnumbers;}}\\listid2}}"
        "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}{\\listoverride\\listid2\\ls2}}"
        "\\pard\\ls1 a\\par\\pard\\ls2 b\\par}",
        document);
    const QByteArray bytes = RtfWriter::write(document);
    EXPECT_TRUE(bytes.contains("{\\leveltext\\'01\\u8211?;}")) << bytes.constData();
    EXPECT_TRUE(bytes.contains("{\\listtext \\u8211?\\tab}"));
    EXPECT_TRUE(
        bytes.contains("{\\leveltext\\'01\\u8226?;}")); // without its font the other one means nothing
}

TEST(RtfWriterLists, HaveTheFontOfTheirSign)
{
    QTextDocument document;
    RtfReader::read("{\\rtf1{\\fonttbl{\\f0 Arial;}{\\f7\\fcharset2 "
                    "Wingdings;}}{\\*\\listtable{\\list{\\listlevel\\levelnfc23"
                    "{\\leveltext\\'01\\u-3978 ?;}{\\levelnumbers;}\\f7}\\listid1}}{\\*\\listoverridetable"
                    "{\\listoverride\\listid1\\ls1}}\\pard\\ls1 a\\par}",
                    document);
    const QByteArray bytes = RtfWriter::write(document);
    EXPECT_TRUE(bytes.contains("{\\leveltext\\'01\\u-3978?;}{\\levelnumbers;}\\f1")) << bytes.constData();
    EXPECT_TRUE(bytes.contains("{\\f1\\fnil Wingdings;}"));
    EXPECT_TRUE(bytes.contains("{\\listtext \\u8226?\\tab}"));
}
