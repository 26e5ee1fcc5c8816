#include "PageSections.h"

#include "PageTexts.h"
#include "ReadDocument.h"
#include "RichTextFile.h"
#include "RtfWriter.h"
#include "WrittenBody.h"

#include <QTextFrame>
#include <gtest/gtest.h>

namespace {

QByteArray sectionsAgain(const QByteArray &rtf)
{
    return RtfWriter::write(ReadDocument(rtf).document());
}

const QByteArray threeSections =
    "{\\rtf1\\sectd\\headery300{\\header one\\par}a\\par\\sect\\sectd\\lndscpsxn"
    "{\\header two\\par}{\\footer foot\\par}b\\par\\par\\sect\\sectd\\sbknone c\\par}";

} // namespace

TEST(PageSections, ComeBackWithTheirWordsAndTexts)
{
    const QByteArray written = sectionsAgain(threeSections);
    EXPECT_TRUE(written.contains("{\\f1 a\\sect}\n\\sectd")) << written.constData();
    EXPECT_TRUE(
        written.contains("{\\f1\\par}\n\\sect\n\\sectd")); // an empty paragraph needs an end of its own
    EXPECT_TRUE(
        written.contains("\\sectd\\lndscpsxn\n{\\header\\pard\\plain\n{\\f1 two\\par}\n}\n{\\footer"));
    EXPECT_TRUE(written.contains("\\sectd\\sbknone\n"));
    EXPECT_FALSE(written.contains("pagebb"));
    EXPECT_EQ(textOf(written), "a|b||c");
    EXPECT_EQ(sectionsAgain(written).toStdString(), written.toStdString());
}

TEST(PageSections, BeginPagesButWhereTheySayNot)
{
    ReadDocument read(sectionsAgain(threeSections));
    const auto breaks = [&](int paragraph) {
        return read.paragraph(paragraph).blockFormat().pageBreakPolicy() ==
               QTextFormat::PageBreak_AlwaysBefore;
    };
    EXPECT_TRUE(breaks(1));
    EXPECT_FALSE(breaks(3));
}

TEST(PageSections, AParagraphMayBreakThePageInASectionThatDoesNot)
{
    const QByteArray written = sectionsAgain("{\\rtf1 a\\sect\\sectd\\sbknone\\pard\\pagebb b}");
    EXPECT_TRUE(written.contains("\\pagebb"));
}

TEST(PageSections, MayBeginWithATable)
{
    const QByteArray written = sectionsAgain(
        "{\\rtf1 a\\par\\sect\\sectd\\headery99\\trowd\\cellx1000\\intbl b\\cell\\row\\pard c\\par}");
    EXPECT_LT(written.indexOf("\\headery99"), written.indexOf("\\trowd")) << written.constData();
    EXPECT_GT(written.indexOf("\\headery99"), written.indexOf("a"));
    EXPECT_EQ(sectionsAgain(written).toStdString(), written.toStdString());
}

TEST(PageSections, EndTables)
{
    const QByteArray row = "\\trowd\\cellx1000\\pard\\intbl b\\cell\\row";
    const QByteArray written =
        sectionsAgain("{\\rtf1 " + row + "\\pard\\sect\\sectd\\sbknone " + row + "\\pard c\\par}");
    EXPECT_EQ(ReadDocument(written).document().rootFrame()->childFrames().size(), 2);
    EXPECT_EQ(written.count("\\sectd\\sbknone"), 1);
    EXPECT_EQ(sectionsAgain(written).toStdString(), written.toStdString());
}

TEST(PageSections, SplittingTheirFirstParagraphMakesNoSecondOne)
{
    ReadDocument read("{\\rtf1 a\\par\\sect\\sectd\\headery99 bc}");
    QTextCursor cursor(&read.document());
    cursor.setPosition(3);
    cursor.insertBlock();
    EXPECT_EQ(RtfWriter::write(read.document()).count("\\headery99"), 1);
}

TEST(PageSections, ASelectionHasNone)
{
    ReadDocument read("{\\rtf1 a\\par\\sect\\sectd\\headery99 bc\\par}");
    QTextCursor all(&read.document());
    all.select(QTextCursor::Document);
    const QByteArray written = RtfWriter::writeSelection(all);
    EXPECT_FALSE(written.contains("sect"));
    EXPECT_TRUE(written.contains("pagebb"));
}

TEST(PageSections, ThePrintedTextsAreTheFirstOnes)
{
    ReadDocument read(
        "{\\rtf1 cover\\par\\sect\\sectd{\\header two\\par}b\\sect\\sectd{\\header three\\par}c}");
    const auto text = PageTexts::text(read.document(), PageTexts::Header);
    ASSERT_TRUE(text);
    EXPECT_EQ(RichTextFile::text(*text), QStringLiteral("two"));
    EXPECT_FALSE(PageTexts::text(read.document().rootFrame()->frameFormat(), PageTexts::Header));
}
