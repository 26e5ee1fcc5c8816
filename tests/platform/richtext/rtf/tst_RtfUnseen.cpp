#include "ReadDocument.h"
#include "RowName.h"
#include "RtfWriter.h"
#include "SameDocument.h"
#include "WrittenBody.h"

#include <QTextDocumentFragment>
#include <gtest/gtest.h>

namespace {

/// What \a rtf is written as after it was read.
QByteArray writtenAgain(const QByteArray &rtf)
{
    return RtfWriter::write(ReadDocument(rtf).document());
}

/// A picture of one pixel.
constexpr char pictured[] = R"(a{\*\annotation b{\pict\pngblip
89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de0000000c4944415408d763f8cfc0000003010100
18dd8db00000000049454e44ae426082}c}d)";
constexpr char pictureHidden[] = R"(a{\v b{\pict\pngblip
89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de0000000c4944415408d763f8cfc0000003010100
18dd8db00000000049454e44ae426082}c}d)";

struct UnseenRow
{
    const char *name;
    const char *body;
    const char *text;
    const char *written;
};

struct RtfUnseen : testing::TestWithParam<UnseenRow>
{};

} // namespace

TEST_P(RtfUnseen, IsKeptAndWrittenBack)
{
    const QByteArray file = framed(GetParam().body);
    EXPECT_EQ(textOf(file), GetParam().text);
    const QByteArray written = writtenAgain(file);
    EXPECT_TRUE(written.contains(GetParam().written)) << written.constData();
    EXPECT_EQ(textOf(written), GetParam().text);
    EXPECT_EQ(writtenAgain(written).toStdString(), written.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RtfUnseen,
    testing::Values(
        UnseenRow{"Hidden", "\\f0 a{\\v b}c", "ac", "a}{\\v{\\f1 b}}{\\f1 c"},
        UnseenRow{"HiddenWithLooks", "a{\\v b\\b c}d", "ad", "{\\v{\\f1 b}{\\f1\\b c}}"},
        UnseenRow{"HiddenParagraphs", "a{\\v b\\par c\\par}d", "ad", "{\\v{\\f1 b\\par c\\par }}"},
        UnseenRow{"HiddenAtTheEndOfAParagraph", "a{\\v b}\\par c", "a|c", "{\\f1 a}{\\v{\\f1 b}}\\par"},
        UnseenRow{"HiddenAtTheEnd", "a\\par{\\v b}", "a", "{\\v{\\f1 b}}\\par"},
        UnseenRow{"HiddenBehindATable", "\\trowd\\cellx1000\\intbl a\\cell\\row\\pard{\\v b}", "|a|",
                  "\\row\n\\pard{\\v{\\f1 b}}"},
        UnseenRow{"HiddenBehindANotesTable",
                  "a{\\footnote b\\par\\trowd\\cellx1000\\intbl c\\cell\\row{\\v d}}e", "a1e|1 b|c|",
                  "{\\v{\\f1 d}}"},
        UnseenRow{"HiddenBehindANotesTableBeforeTheNextNote",
                  "a{\\footnote b\\par\\trowd\\cellx1000\\intbl c\\cell\\row{\\v d}}e{\\footnote f}g",
                  "a1e2g|1 b|c||2 f",
                  "\\row\n\\pard{\\v{\\f1 d}}{\\f1\\par}\n}}{\\f1 e}{\\f1\\super{\\chftn}{\\footnote"},
        UnseenRow{"HiddenBehindATableBeforeTheNotes",
                  "a{\\footnote b}\\par\\trowd\\cellx1000\\intbl c\\cell\\row\\pard{\\v d}", "a1|c||1 b",
                  "\\row\n\\pard{\\v{\\f1 d}}{\\f1\\par}\n}"},
        UnseenRow{"HiddenBehindAHeadersTable",
                  "{\\header\\trowd\\cellx1000\\intbl a\\cell\\row\\pard{\\v b}}c", "c",
                  "\\row\n\\pard{\\v{\\f1 b}}"},
        UnseenRow{"HiddenInAHeaderAlone", "{\\header{\\v b}}c", "c", "{\\header\\pard\\plain\n{\\v{\\f1 b}}"},
        UnseenRow{"CommentThatEndsInEmptyParagraphs", "a{\\*\\annotation b\\par\\par\\par}c", "ac",
                  "{\\*\\annotation\\pard\\plain{\\f1 b\\par \\par \\par }}"},
        UnseenRow{"HiddenBeforeAShape", "{\\v x}{\\shp{\\*\\shpinst{\\shptxt b\\par}}}d", "b|d",
                  "{\\v{\\f1 x}}{\\f1 b"},
        UnseenRow{"HiddenBeforeAShapeWithoutText", "a{\\v x}{\\shp{\\*\\shpinst{\\shptxt}}}d", "a|d",
                  "{\\v{\\f1 x}}{\\f1 d"},
        UnseenRow{"HiddenBehindAShapesTable",
                  "a{\\shp{\\*\\shpinst{\\shptxt\\trowd\\cellx1000\\intbl b\\cell\\row\\pard{\\v c}}}}d",
                  "a|b|d", "\\row\n\\pard{\\v{\\f1 c}}{\\f1 d"},
        UnseenRow{
            "BookmarkBehindAShapesTableInHiddenText",
            "{\\v a{\\shp{\\*\\shpinst{\\shptxt\\trowd\\cellx1000\\intbl b\\cell\\row\\pard{\\*\\bkmkstart "
            "x}}}}}c",
            "|b|c", "{\\v{\\f1 a}}{\\f1 b\\cell}\n\\row\n\\pard{\\*\\bkmkstart x}{\\f1 c"},
        UnseenRow{"HiddenInACell", "\\trowd\\cellx1000\\intbl{\\v b}\\cell\\row", "||", "{\\v{\\f1 b}}"},
        UnseenRow{"HiddenBeforeALink", "{\\v b}{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt c}}", "c",
                  "{\\v{\\f1 b}}{\\field"},
        UnseenRow{"HiddenInCodePage", "a{\\v\\'e9}c", "ac", "{\\v{\\f1 \\u233?}}"},
        UnseenRow{"HiddenInAHeader", "{\\header a{\\v b}c\\par}d", "d", "{\\v{\\f1 b}}"},
        UnseenRow{"Bookmark", "a{\\*\\bkmkstart x\\'e9}b{\\*\\bkmkend x\\'e9}c", "abc",
                  "{\\*\\bkmkstart x\\u233?}{\\f1 b}{\\*\\bkmkend x\\u233?}{\\f1 c"},
        UnseenRow{"BookmarkWithWords", "{\\*\\bkmkstart\\bkmkcolf2 x}b", "b",
                  "{\\*\\bkmkstart\\bkmkcolf2 x}{"},
        UnseenRow{"BookmarkInAFieldsInstruction",
                  "{\\field{\\*\\fldinst HYPER{\\*\\bkmkstart x}LINK \"u\"}{\\fldrslt c}}", "c",
                  "HYPERLINK \"u\""},
        UnseenRow{
            "Comment",
            "a{\\*\\atnid A}{\\*\\atnauthor Ann}\\chatn{\\*\\annotation{\\*\\atnref 3}\\pard\\plain\\b "
            "why?\\par so}b",
            "ab",
            "{\\*\\atnid A}{\\*\\atnauthor Ann}\\chatn{\\*\\annotation{\\*\\atnref 3}\\pard\\plain{\\f1\\b "
            "why?\\par }{\\f1\\b so}}{\\f1 b"},
        UnseenRow{"CommentWithEmptyParagraphs", "a{\\*\\annotation\\par b\\par\\par c}d", "ad",
                  "\\pard\\plain{\\f1 \\par }{\\f1 b\\par \\par }{\\f1 c}}"},
        UnseenRow{"CommentWithHiddenText", "a{\\*\\annotation b{\\v c}d}e", "ae",
                  "\\pard\\plain{\\f1 b}{\\v{\\f1 c}}{\\f1 d}}"},
        UnseenRow{"CommentThatEndsInHiddenText", "a{\\*\\annotation b{\\v c}\\par d{\\v e}}f", "af",
                  "\\pard\\plain{\\f1 b}{\\v{\\f1 c}}{\\f1 \\par }{\\f1 d}{\\v{\\f1 e}}}"},
        UnseenRow{"CommentWithPicture", pictured, "ad", "89504e47"},
        UnseenRow{"HiddenPicture", pictureHidden, "ad", "89504e47"},
        UnseenRow{"CommentOfARange", "{\\*\\atrfstart 1}a{\\*\\atrfend 1}b", "ab",
                  "{\\*\\atrfstart 1}{\\f1 a}{\\*\\atrfend 1}"},
        UnseenRow{"Information", "{\\info{\\title A\\'e9}{\\creatim\\yr2020\\mo5}{\\*\\company C}}a", "a",
                  "{\\info{\\title A\\u233?}{\\creatim\\yr2020\\mo5}{\\*\\company C}}\n"},
        UnseenRow{"UserProperties", "{\\*\\userprops{\\propname n}\\proptype30{\\staticval v}}a", "a",
                  "{\\*\\userprops{\\propname n}\\proptype30{\\staticval v}}\n"}),
    RowName());

TEST(RtfUnseenEdited, IsWrittenOnceHoweverOftenItsFormatIsCopied)
{
    ReadDocument read(framed("a{\\v hidden}bcd{\\*\\bkmkstart x}e"));
    QTextCursor cursor(&read.document());
    cursor.setPosition(3);
    cursor.insertText(QStringLiteral("\n"));
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(bold);
    EXPECT_EQ(read.text(), "abc|de");
    EXPECT_EQ(RtfWriter::write(read.document()).count("hidden"), 1);
}

TEST(RtfUnseenEdited, ABookmarkIsOneThoughItsTextIsThereTwice)
{
    ReadDocument read(framed("{\\*\\bkmkstart x}a{\\*\\bkmkend x}b"));
    QTextCursor cursor(&read.document());
    cursor.select(QTextCursor::Document);
    const QTextDocumentFragment all = cursor.selection();
    cursor.movePosition(QTextCursor::End);
    cursor.insertFragment(all);
    EXPECT_EQ(read.text(), "abab");
    EXPECT_EQ(RtfWriter::write(read.document()).count("bkmkstart x"), 1);
}

TEST(RtfUnseenEdited, ASelectionHasItWithItsText)
{
    ReadDocument read(framed("a{\\v hidden}b"));
    QTextCursor cursor(&read.document());
    cursor.setPosition(1, QTextCursor::KeepAnchor);
    EXPECT_FALSE(RtfWriter::writeSelection(cursor).contains("hidden"));
    cursor.select(QTextCursor::Document);
    EXPECT_TRUE(RtfWriter::writeSelection(cursor).contains("hidden"));
}

TEST(RtfUnseenEdited, ASelectionWithoutTheParagraphsEndLeavesWhatIsThere)
{
    ReadDocument read(framed("abc{\\v hidden}\\par d"));
    QTextCursor cursor(&read.document());
    cursor.setPosition(1, QTextCursor::KeepAnchor);
    EXPECT_FALSE(RtfWriter::writeSelection(cursor).contains("hidden"));
}

TEST(RtfUnseenEdited, ACommentLeavesThePageBreakToTheTextAroundIt)
{
    ReadDocument read(framed("a\\par\\page b{\\*\\annotation\\pard\\plain x}c\\par d"));
    EXPECT_TRUE(read.document().findBlockByNumber(1).blockFormat().pageBreakPolicy() &
                QTextFormat::PageBreak_AlwaysBefore);
}

TEST(RtfUnseenEdited, BehindACommentsTableItIsTheComments)
{
    const QByteArray file = framed("a{\\*\\annotation\\trowd\\cellx1000\\intbl b\\cell\\row\\pard{\\v c}}d");
    EXPECT_TRUE(writtenAgain(file).contains("{\\v{\\f1 c}}{\\f1 \\par }}{\\f1 d"))
        << writtenAgain(file).constData();
}

TEST(RtfUnseenEdited, DeletedTextDoesNotComeBack)
{
    EXPECT_FALSE(writtenAgain(framed("a{\\deleted gone}{\\v\\deleted gone}b")).contains("gone"));
}

TEST(RtfUnseenEdited, BehindAllThatALongDocumentHasTakenOver)
{
    constexpr int taken = 4097; // paragraphs at once
    const QByteArray file =
        framed(QByteArray("a\\par ").repeated(taken) + "{\\*\\bkmkstart x}{\\*\\bkmkend x}");
    EXPECT_EQ(writtenAgain(file).count("{\\*\\bkmkend x}"), 1);
}

TEST(RtfUnseenDamage, AGroupThatWasNeverOpenedIsClosedOnce)
{
    ReadDocument read("\\userprops}");
    EXPECT_TRUE(RtfWriter::write(read.document()).contains("{\\userprops}\n"))
        << RtfWriter::write(read.document()).constData();
}
