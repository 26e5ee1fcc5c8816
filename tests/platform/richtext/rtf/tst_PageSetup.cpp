#include "PageSetup.h"

#include "PageFormat.h"
#include "PageTexts.h"
#include "ReadDocument.h"
#include "RichTextFile.h"
#include "RichTextProperties.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "WrittenBody.h"

#include <QTextDocumentFragment>
#include <QTextList>
#include <gtest/gtest.h>

namespace {

/// What \a rtf is written as after it was read.
QByteArray again(const QByteArray &rtf)
{
    return RtfWriter::write(ReadDocument(rtf).document());
}

std::string pageText(const QTextDocument &document, PageTexts::Kind kind)
{
    const auto text = PageTexts::text(document, kind);
    return text ? RichTextFile::text(*text).toStdString() : "none";
}

} // namespace

TEST(PageSetup, AFileThatSaysNothingHasNoSizeAndNoMargins)
{
    ReadDocument read("{\\rtf1 text}");
    const PageSetup setup = PageSetup::of(read.document());
    EXPECT_FALSE(setup.width || setup.height || setup.left || setup.right || setup.top || setup.bottom);
    EXPECT_EQ(setup.headerDistance, 720);
    EXPECT_EQ(setup.firstNumber, 1);
    EXPECT_FALSE(again("{\\rtf1 text}").contains("sectd"));
}

TEST(PageSetup, ReadsTheDocumentsWords)
{
    ReadDocument read("{\\rtf1\\paperw11906\\paperh16838\\margl1134\\margr1135\\margt1136\\margb-1137"
                      "\\gutter100\\facingp\\margmirror\\landscape\\pgnstart7 text}");
    const PageSetup setup = PageSetup::of(read.document());
    EXPECT_EQ(setup.width, 11906);
    EXPECT_EQ(setup.height, 16838);
    EXPECT_EQ(setup.left, 1234);
    EXPECT_EQ(setup.right, 1135);
    EXPECT_EQ(setup.top, 1136);
    EXPECT_EQ(setup.bottom, -1137);
    EXPECT_TRUE(setup.hasFacingPages && setup.isMirrored && setup.isLandscape);
    EXPECT_FALSE(setup.hasTitlePage);
    EXPECT_EQ(setup.firstNumber, 7);
}

TEST(PageSetup, TheFirstSectionsWordsGoBefore)
{
    ReadDocument read("{\\rtf1\\margl1000\\margr1000\\pgwsxn5000\\sectd\\marglsxn2000\\headery300\\titlepg"
                      "\\pgnrestart\\pgnstarts5\\pgnucrm\\pgnlcrm one\\sect"
                      "\\sectd\\marglsxn4000\\margr3000\\headery900 two}");
    const PageSetup setup = PageSetup::of(read.document());
    EXPECT_FALSE(setup.width); // \sectd has taken it back
    EXPECT_EQ(setup.left, 2000);
    EXPECT_EQ(setup.right, 1000);
    EXPECT_EQ(setup.headerDistance, 300);
    EXPECT_TRUE(setup.hasTitlePage);
    EXPECT_EQ(setup.firstNumber, 5);
    EXPECT_EQ(setup.numbers, QTextListFormat::ListLowerRoman);
}

TEST(PageSetup, WordsAreWrittenBack)
{
    const QByteArray words =
        "\\paperw11906\\paperh16838\\margl1134\\margr1135\\margt-1136\\margb1137\\deftab500\\deflang1031"
        "\\landscape\\facingp\\sectd\\pgwsxn5000\\headery300\\titlepg\\pgnlcrm\\cols2\n";
    const QByteArray written = again("{\\rtf1" + words + "text}");
    EXPECT_TRUE(written.contains('\n' + words)) << written.constData();
    EXPECT_EQ(again(written).toStdString(), written.toStdString());
}

TEST(PageSetup, WordsAboutAllOfTheTextAreWrittenBack)
{
    const QByteArray words =
        "\\htmautsp\\widowctrl\\hyphauto1\\hyphcaps0\\hyphconsec2\\hyphhotz400\\fet2\\ftnbj"
        "\\aenddoc\\ftnstart3\\aftnstart4\\ftnnalc\\aftnnrlc\n";
    EXPECT_TRUE(again("{\\rtf1" + words + "text}").contains('\n' + words))
        << again("{\\rtf1" + words + "text}").data();
}

TEST(PageSetup, OfPlacesAndNumbersOfNotesTheLastIsKept)
{
    const QByteArray written =
        again("{\\rtf1\\ftnbj\\ftntj\\enddoc\\aendnotes\\aenddoc\\ftnnar\\ftnnchi\\aftnnar\\aftnnruc text}");
    EXPECT_TRUE(written.contains("\n\\enddoc\\aenddoc\\ftnnchi\\aftnnruc\n")) << written.data();
}

TEST(PageSetup, SwitchesAndLengthsThatSayNothing)
{
    const QByteArray written = again("{\\rtf1\\landscape\\landscape0\\facingp1\\margl\\margr99999 text}");
    EXPECT_TRUE(written.contains("\n\\margr32767\\facingp\n")) << written.constData();
}

TEST(PageSetup, ColumnsAreThoseOfTheirSection)
{
    const QByteArray written =
        again("{\\rtf1\\sectd one\\sect\\sectd\\cols2\\colsx100 two\\sect\\sectd three}");
    EXPECT_EQ(written.count("cols"), 2) << written.constData();
    EXPECT_TRUE(written.contains("\\sect}\n\\sectd\\cols2\\colsx100\n"));
}

TEST(PageSetup, EditsAndTheirUndoLeaveThePagesAlone)
{
    QTextDocument document;
    document.setUndoRedoEnabled(true);
    RtfReader::read("{\\rtf1\\margl1000{\\header head\\par}text}", document);
    EXPECT_FALSE(document.isUndoAvailable());
    QTextCursor cursor(&document);
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    cursor.insertText(QStringLiteral("other"));
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(RtfWriter::write(document).contains("\\margl1000"));
        EXPECT_EQ(pageText(document, PageTexts::Header), "head");
        document.undo();
    }
    EXPECT_EQ(RichTextFile::text(document).toStdString(), "text");
}

TEST(PageSetup, AFragmentBringsNoPages)
{
    ReadDocument read("{\\rtf1\\margl1000{\\header head\\par}text}");
    QTextDocument other;
    QTextCursor(&other).insertFragment(QTextDocumentFragment(&read.document()));
    EXPECT_FALSE(RtfWriter::write(other).contains("margl"));
    QTextCursor all(&read.document());
    all.select(QTextCursor::Document);
    EXPECT_FALSE(RtfWriter::writeSelection(all).contains("margl"));
}

TEST(PageSetup, TabsWithoutStops)
{
    const auto distance = [](const QByteArray &rtf) {
        return ReadDocument(rtf).document().defaultTextOption().tabStopDistance();
    };
    EXPECT_EQ(distance("{\\rtf1 a}"), 48); // half an inch
    EXPECT_EQ(distance("{\\rtf1\\deftab1440 a}"), 96);
    EXPECT_EQ(distance("{\\rtf1\\deftab0 a}"), 4);
}

TEST(PageTexts, AreKeptApartFromTheText)
{
    ReadDocument read("{\\rtf1{\\header all\\par}{\\headerl left\\par}{\\headerr right\\par}{\\headerf first}"
                      "{\\footer one\\par two\\par}{\\footerl fl}{\\footerr fr}{\\footerf ff}text}");
    EXPECT_EQ(read.text(), "text");
    EXPECT_EQ(pageText(read.document(), PageTexts::Header), "all");
    EXPECT_EQ(pageText(read.document(), PageTexts::HeaderLeft), "left");
    EXPECT_EQ(pageText(read.document(), PageTexts::HeaderRight), "right");
    EXPECT_EQ(pageText(read.document(), PageTexts::HeaderFirst), "first");
    EXPECT_EQ(pageText(read.document(), PageTexts::Footer), "one\ntwo");
    EXPECT_EQ(pageText(read.document(), PageTexts::FooterLeft), "fl");
    EXPECT_EQ(pageText(read.document(), PageTexts::FooterRight), "fr");
    EXPECT_EQ(pageText(read.document(), PageTexts::FooterFirst), "ff");
    EXPECT_EQ(pageText(ReadDocument("{\\rtf1 text}").document(), PageTexts::Header), "none");
}

TEST(PageTexts, AreWrittenBackWithTheirLooks)
{
    const QByteArray file =
        "{\\rtf1{\\fonttbl{\\f0 Arial;}{\\f1 Courier;}}{\\colortbl;\\red255\\green0\\blue0;}"
        "{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}}"
        "\\listid7}}"
        "{\\*\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls1}}"
        "{\\header\\pard\\plain\\qr\\f1\\b\\cf1 head\\par}"
        "{\\footer\\pard\\plain\\ls1 one\\par \\trowd\\cellx2000\\cellx4000\\intbl a\\cell b\\cell\\row"
        "\\pard {\\pict\\pngblip\\picw1\\pich1 89504e470d0a1a0a}\\par}text}";
    const QByteArray written = again(file);
    ReadDocument read(written);
    const auto header = PageTexts::text(read.document(), PageTexts::Header);
    ASSERT_TRUE(header);
    const QTextBlock head = header->firstBlock();
    EXPECT_TRUE(head.blockFormat().alignment().testFlag(Qt::AlignRight));
    const QTextCharFormat look = head.begin().fragment().charFormat();
    EXPECT_EQ(look.fontFamilies().toStringList(), QStringList{QStringLiteral("Courier")});
    EXPECT_EQ(look.foreground().color(), QColor(255, 0, 0));
    EXPECT_EQ(look.fontWeight(), QFont::Bold);
    const auto footer = PageTexts::text(read.document(), PageTexts::Footer);
    ASSERT_TRUE(footer && footer->firstBlock().textList());
    EXPECT_EQ(footer->firstBlock().textList()->itemText(footer->firstBlock()), QStringLiteral("1."));
    EXPECT_TRUE(written.contains("89504e470d0a1a0a"));
    EXPECT_EQ(pageText(read.document(), PageTexts::Footer), "one\na\nb\n\uFFFC");
    EXPECT_EQ(again(written).toStdString(), written.toStdString());
}

TEST(PageTexts, PicturesAreAmongTheirOwnResources)
{
    ReadDocument read("{\\rtf1{\\header {\\pict\\pngblip\\picw1\\pich1 89504e470d0a1a0a}\\par}text}");
    const auto header = PageTexts::text(read.document(), PageTexts::Header);
    const QTextImageFormat picture = header->firstBlock().begin().fragment().charFormat().toImageFormat();
    EXPECT_TRUE(header->resource(QTextDocument::ImageResource, QUrl(picture.name())).isValid());
}

TEST(PageTexts, FieldsAreKept)
{
    const QByteArray fields =
        "{\\rtf1{\\header Page {\\field{\\*\\fldinst  PAGE \\\\* roman}{\\fldrslt iv}} of "
        "{\\field{\\*\\fldinst NUMPAGES}{\\fldrslt}}, {\\chpgn}, "
        "{\\field{\\*\\fldinst TITLE}{\\fldrslt\\b My Book}}\\par}text}";
    ReadDocument read(fields);
    EXPECT_EQ(pageText(read.document(), PageTexts::Header), "Page iv of 1, 1, My Book");
    const QByteArray written = again(fields);
    EXPECT_TRUE(written.contains("{\\field{\\*\\fldinst PAGE \\\\* roman}{\\fldrslt{\\f1 iv}}}"))
        << written.constData();
    EXPECT_TRUE(written.contains("{\\field{\\*\\fldinst NUMPAGES}{\\fldrslt{\\f1 1}}}"));
    EXPECT_TRUE(written.contains("{\\field{\\*\\fldinst PAGE}{\\fldrslt{\\f1 1}}}"));
    EXPECT_TRUE(written.contains("{\\field{\\*\\fldinst TITLE}{\\fldrslt{\\f1\\b My Book}}}"));
    EXPECT_EQ(again(written).toStdString(), written.toStdString());
}

TEST(PageTexts, AnEmptyOneIsOne)
{
    const QByteArray written = again("{\\rtf1\\titlepg{\\headerf}{\\header head\\par}text}");
    EXPECT_EQ(pageText(ReadDocument(written).document(), PageTexts::HeaderFirst), "");
    EXPECT_EQ(again(written).toStdString(), written.toStdString());
}

TEST(PageTexts, AreTheFirstSectionsThatHasAny)
{
    ReadDocument read("{\\rtf1 cover\\par\\sect{\\header one\\par}inside\\par\\sect{\\header two\\par}"
                      "{\\footer three\\par}end}");
    EXPECT_EQ(read.text(), "cover|inside|end");
    EXPECT_EQ(pageText(read.document(), PageTexts::Header), "one");
    EXPECT_EQ(pageText(read.document(), PageTexts::Footer), "none");
}

TEST(PageTexts, LeaveTheTextAroundThemAlone)
{
    ReadDocument read("{\\rtf1\\b one\\par\\page{\\header\\pard\\plain\\qr head\\par\\sect}\\i two}");
    EXPECT_EQ(read.text(), "one|two");
    EXPECT_TRUE(
        read.paragraph(1).blockFormat().pageBreakPolicy().testFlag(QTextFormat::PageBreak_AlwaysBefore));
    EXPECT_EQ(read.formatOf(QStringLiteral("two")).fontWeight(), QFont::Bold);
    EXPECT_FALSE(read.paragraph(1).blockFormat().alignment().testFlag(Qt::AlignRight));
}

TEST(PageTexts, InANoteTheyAreNone)
{
    ReadDocument read("{\\rtf1 text{\\footnote note{\\header head\\par}}}");
    EXPECT_EQ(pageText(read.document(), PageTexts::Header), "none");
    EXPECT_EQ(read.text(), "text1|1 note");
}

TEST(PageTexts, LoneSurrogatesAreReplacedInTheTextAroundThemToo)
{
    ReadDocument read("{\\rtf1 a\\u-10179?{\\header \\u-10179?\\par}b}");
    EXPECT_EQ(read.text(), "a\uFFFDb");
}
