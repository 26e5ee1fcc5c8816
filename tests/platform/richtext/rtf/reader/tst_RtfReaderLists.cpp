#include "ParagraphFormat.h"
#include "ReadDocument.h"
#include "RichTextProperties.h"
#include "RtfWriter.h"

#include <QTextList>
#include <gtest/gtest.h>

namespace {

/// Three lists: 1 of bullets with a second level of letters, 2 of numbers from 5 on, 3 of numbers.
QByteArray listed(const QByteArray &body)
{
    return framed(
        "{\\*\\listtable{\\list\\listtemplateid1"
        "{\\listlevel\\levelnfc23\\levelstartat1{\\leveltext\\'01\\u8226 ?;}{\\levelnumbers;}\\fi-360\\li720}"
        "{\\listlevel\\levelnfc4\\levelstartat1{\\leveltext\\'03(\\'01);}{\\levelnumbers\\'02;}}\\listid11}"
        "{\\list{\\listlevel\\levelnfc1{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}}\\listid12}}"
        "{\\*\\listoverridetable{\\listoverride\\listid11\\listoverridecount0\\ls1}"
        "{\\listoverride\\listid12\\listoverridecount1{\\lfolevel\\listoverridestartat\\levelstartat5}\\ls2}"
        "{\\listoverride\\listid12\\listoverridecount0\\ls3}}" +
        body);
}

QTextListFormat formatAt(const ReadDocument &read, int number)
{
    const QTextList *list = read.paragraph(number).textList();
    return list ? list->format() : QTextListFormat();
}

TEST(RtfReaderLists, BulletsByTable)
{
    ReadDocument read(listed("{\\listtext\\'b7\\tab}\\pard\\ls1 a\\par{\\listtext\\'b7\\tab}b\\par\\pard c"));
    EXPECT_EQ(read.text(), "a|b|c");
    ASSERT_TRUE(read.paragraph(0).textList());
    EXPECT_EQ(read.paragraph(0).textList(), read.paragraph(1).textList());
    EXPECT_FALSE(read.paragraph(2).textList());
    EXPECT_EQ(formatAt(read, 0).style(), QTextListFormat::ListDisc);
    EXPECT_EQ(formatAt(read, 0).indent(), 0);
    EXPECT_EQ(ParagraphFormat::leftIndent(read.paragraph(0).blockFormat()), 720);
    EXPECT_EQ(ParagraphFormat::firstLineIndent(read.paragraph(1).blockFormat()), -360);
    EXPECT_EQ(read.paragraph(1).blockFormat().textIndent(), 0);
}

TEST(RtfReaderLists, ABlankBulletIsKeptAndShowsNothing)
{
    const QByteArray blank = "{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u32 ?;}"
                             "{\\levelnumbers;}\\fi-360\\li720}\\listid7}}"
                             "{\\*\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls1}}";
    ReadDocument read(framed(blank + "{\\listtext  \\tab}\\pard\\ls1 a\\par"));
    EXPECT_EQ(read.text(), "a");
    EXPECT_EQ(formatAt(read, 0).style(), QTextListFormat::ListStyleUndefined);
    EXPECT_EQ(ParagraphFormat::leftIndent(read.paragraph(0).blockFormat()), 720);
    const QByteArray written = RtfWriter::write(read.document());
    EXPECT_TRUE(written.contains("\\levelnfc23")) << written.data();
    EXPECT_TRUE(written.contains("{\\leveltext\\'01 ;}")) << written.data();
    ReadDocument again(written);
    EXPECT_EQ(again.text(), "a");
    EXPECT_EQ(formatAt(again, 0), formatAt(read, 0));
}

TEST(RtfReaderLists, ParagraphsOwnIndentsWin)
{
    ReadDocument read(listed("\\pard\\ls1\\li0\\fi-100 a\\par"));
    EXPECT_EQ(ParagraphFormat::leftIndent(read.paragraph(0).blockFormat()), 0);
    EXPECT_EQ(ParagraphFormat::firstLineIndent(read.paragraph(0).blockFormat()), -100);
}

TEST(RtfReaderLists, LevelsBeginAnewUnderEachItem)
{
    ReadDocument read(listed("\\ls1 a\\par\\ilvl1 b\\par c\\par\\ilvl0 d\\par\\ilvl1 e\\par"));
    EXPECT_EQ(read.paragraph(1).textList(), read.paragraph(2).textList());
    EXPECT_EQ(read.paragraph(0).textList(), read.paragraph(3).textList());
    EXPECT_NE(read.paragraph(1).textList(), read.paragraph(4).textList());
    EXPECT_EQ(formatAt(read, 1).style(), QTextListFormat::ListLowerAlpha);
    EXPECT_EQ(formatAt(read, 1).numberPrefix(), QStringLiteral("("));
    EXPECT_EQ(formatAt(read, 1).numberSuffix(), QStringLiteral(")"));
    EXPECT_EQ(formatAt(read, 1).intProperty(RichTextProperty::ListLevel), 1);
}

TEST(RtfReaderLists, NumbersGoOnBehindOtherText)
{
    ReadDocument read(listed("\\pard\\ls2 a\\par\\pard b\\par\\pard\\ls2 c\\par\\pard\\ls3 d\\par"));
    EXPECT_EQ(read.paragraph(0).textList(), read.paragraph(2).textList());
    EXPECT_NE(read.paragraph(0).textList(), read.paragraph(3).textList());
    EXPECT_EQ(formatAt(read, 0).style(), QTextListFormat::ListUpperRoman);
    EXPECT_EQ(formatAt(read, 0).numberSuffix(), QStringLiteral("."));
    EXPECT_EQ(formatAt(read, 0).intProperty(RichTextProperty::ListStart), 5);
    EXPECT_FALSE(formatAt(read, 3).hasProperty(RichTextProperty::ListStart));
}

TEST(RtfReaderLists, NoList)
{
    ReadDocument read(listed("\\pard\\ls1 a\\par\\ls0 b\\par{\\listtext x\\tab}\\ls9 c\\par"));
    EXPECT_EQ(read.text(), "a|b|x\tc");
    EXPECT_FALSE(read.paragraph(1).textList());
    EXPECT_FALSE(read.paragraph(2).textList());
}

TEST(RtfReaderLists, OfStyles)
{
    ReadDocument read(listed("{\\stylesheet{\\s5\\ls1 List;}}\\pard\\s5 a\\par"));
    EXPECT_TRUE(read.paragraph(0).textList());
}

TEST(RtfReaderLists, LongOnesGoOnInPieces)
{
    constexpr int count = 1500;
    ReadDocument read(listed("\\ls1 " + QByteArray("a\\par ").repeated(count)));
    EXPECT_EQ(formatAt(read, count - 1), formatAt(read, 0));
    ReadDocument numbers(listed("\\ls2 " + QByteArray("a\\par ").repeated(count)));
    const QTextList *first = numbers.paragraph(0).textList();
    const QTextList *last = numbers.paragraph(count - 1).textList();
    ASSERT_TRUE(first && last);
    EXPECT_EQ(first->count() + last->count(), count);
    EXPECT_EQ(last->format().intProperty(RichTextProperty::ListStart), 5 + first->count());
}

TEST(RtfReaderLists, OlderBullets)
{
    ReadDocument read(
        framed("\\pard{\\pntext\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'b7}}\\fi-360\\li720 "
               "a\\par{\\pntext\\'b7\\tab}b\\par\\pard c\\par"));
    EXPECT_EQ(read.text(), "a|b|c");
    ASSERT_TRUE(read.paragraph(0).textList());
    EXPECT_EQ(read.paragraph(0).textList(), read.paragraph(1).textList());
    EXPECT_FALSE(read.paragraph(2).textList());
    EXPECT_EQ(formatAt(read, 0).style(), QTextListFormat::ListDisc);
}

/// As abiword writes them: it says nothing of lists, and ends the group of the mark behind the item.
TEST(RtfReaderLists, ItemsInTheGroupOfTheirMark)
{
    ReadDocument read(
        framed("{\\listtext\\pard\\fi-360\\li720{\\f0{\\*\\listtag0}\\tab }{\\b one\\tab }{\\i x}{\\par}\n}"
               "{\\listtext\\pard\\fi-360\\li720{\\f0\\tab two}{\\par}\n}"
               "\\pard\\plain{after}{\\par}"));
    EXPECT_EQ(read.text(), "one\tx|two|after");
    EXPECT_TRUE(read.formatOf(QStringLiteral("one")).fontWeight() == QFont::Bold);
    EXPECT_TRUE(read.formatOf(QStringLiteral("x")).fontItalic());
    EXPECT_EQ(formatAt(read, 0).style(), QTextListFormat::ListDisc);
    EXPECT_EQ(read.paragraph(0).textList(), read.paragraph(1).textList());
    EXPECT_EQ(ParagraphFormat::leftIndent(read.paragraph(1).blockFormat()), 720);
    EXPECT_FALSE(read.paragraph(2).textList());
}

TEST(RtfReaderLists, ItemsInTheGroupOfTheirMarkEndCells)
{
    ReadDocument read(framed("\\trowd\\cellx1440{\\listtext\\pard\\intbl{\\tab one}\\cell}\\row\\pard b"));
    EXPECT_EQ(read.text(), "|one|b");
    EXPECT_TRUE(read.paragraph(1).textList());
}

TEST(RtfReaderLists, MarksOfOpenGroupsAreKeptWhereNoListHasThem)
{
    EXPECT_EQ(textOf(listed("\\pard\\ls2{\\listtext V.\\tab one\\par}b")), "one|b");
    EXPECT_EQ(textOf(framed("{\\listtext V.\\tab one\\par}b")), "V.\tone|b");
    EXPECT_EQ(textOf(framed("{\\listtext one\\par two}b")), "one|twob");
    EXPECT_EQ(textOf(listed("\\pard\\ls2{\\listtext V.\\tab one\\par two}b")), "one|twob");
}

TEST(RtfReaderLists, NumbersOfOpenGroupsStayNumbers)
{
    ReadDocument read(framed("\\pard{\\*\\pn\\pnlvlbody\\pndec}{\\pntext\\tab one\\par}"));
    EXPECT_EQ(read.text(), "one");
    EXPECT_EQ(formatAt(read, 0).style(), QTextListFormat::ListDecimal);
}

TEST(RtfReaderLists, MarksWithSeveralTabs)
{
    EXPECT_EQ(textOf(listed("\\pard\\ls2{\\listtext\\tab V.\\tab}one\\par")), "one");
    EXPECT_EQ(textOf(listed("{\\pntext\\tab V\\tab\\tab}{\\*\\pn\\pnlvlbody\\pndec}one\\par")), "one");
}

struct ListRow
{
    const char *name;
    const char *words;
    QTextListFormat::Style style;
};

void PrintTo(const ListRow &row, std::ostream *out)
{
    *out << row.words;
}

class RtfReaderOldNumbers : public testing::TestWithParam<ListRow>
{};

TEST_P(RtfReaderOldNumbers, Reads)
{
    const QByteArray words = GetParam().words;
    ReadDocument read(
        framed("\\pard{\\*\\pn\\pnlvlbody" + words + "\\pnstart3{\\pntxtb (}{\\pntxta )}}a\\par"));
    const QTextListFormat format = formatAt(read, 0);
    EXPECT_EQ(format.style(), GetParam().style);
    EXPECT_EQ(format.numberPrefix(), QStringLiteral("("));
    EXPECT_EQ(format.numberSuffix(), QStringLiteral(")"));
    EXPECT_EQ(format.intProperty(RichTextProperty::ListStart), 3);
}

const ListRow listRows[] = {
    {"Decimal", "\\pndec", QTextListFormat::ListDecimal},
    {"UpperLetters", "\\pnucltr", QTextListFormat::ListUpperAlpha},
    {"LowerLetters", "\\pnlcltr", QTextListFormat::ListLowerAlpha},
    {"UpperRoman", "\\pnucrm", QTextListFormat::ListUpperRoman},
    {"LowerRoman", "\\pnlcrm", QTextListFormat::ListLowerRoman},
};

INSTANTIATE_TEST_SUITE_P(Rows, RtfReaderOldNumbers, testing::ValuesIn(listRows),
                         [](const auto &row) { return row.param.name; });

} // namespace
