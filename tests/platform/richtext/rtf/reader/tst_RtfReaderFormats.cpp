#include "ParagraphFormat.h"
#include "ReadDocument.h"
#include "RichTextProperties.h"
#include "RtfWriter.h"

#include <QTextTable>
#include <gtest/gtest.h>

namespace {

/// How a format differs from the plain one, in a fixed order.
std::string look(const QTextCharFormat &format)
{
    QStringList look;
    if (format.fontWeight() >= QFont::Bold)
        look << QStringLiteral("bold");
    if (format.fontItalic())
        look << QStringLiteral("italic");
    if (format.fontStrikeOut())
        look << QStringLiteral("strike");
    if (format.underlineStyle() != QTextCharFormat::NoUnderline)
        look << QStringLiteral("line%1").arg(format.underlineStyle());
    if (format.fontCapitalization() == QFont::AllUppercase)
        look << QStringLiteral("caps");
    if (format.fontCapitalization() == QFont::SmallCaps)
        look << QStringLiteral("small");
    if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        look << QStringLiteral("sub");
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        look << QStringLiteral("super");
    if (format.hasProperty(RichTextProperty::BaselineShift))
        look << QStringLiteral("shift%1").arg(format.intProperty(RichTextProperty::BaselineShift));
    if (format.hasProperty(QTextFormat::ForegroundBrush))
        look << format.foreground().color().name();
    if (format.hasProperty(QTextFormat::BackgroundBrush))
        look << QStringLiteral("on") + format.background().color().name();
    if (format.hasProperty(RichTextProperty::Language))
        look << QStringLiteral("lang%1").arg(format.intProperty(RichTextProperty::Language));
    if (format.isAnchor())
        look << format.anchorHref();
    look << format.fontFamilies().toStringList().join(u',') << QString::number(format.fontPointSize());
    return look.join(u' ').toStdString();
}

struct FormattedRow
{
    const char *name;
    const char *body; ///< the run that is looked at begins with X
    const char *look;
};

void PrintTo(const FormattedRow &row, std::ostream *out)
{
    *out << row.body;
}

class RtfReaderCharacters : public testing::TestWithParam<FormattedRow>
{};

TEST_P(RtfReaderCharacters, Reads)
{
    const QByteArray styles = "{\\stylesheet{\\s0 Normal;}{\\s1\\b\\fs32 A;}{\\s2\\sbasedon1\\i B;}"
                              "{\\s3\\sbasedon4 C;}{\\s4\\sbasedon3\\i D;}{\\*\\cs10\\cf1\\sbasedon11 E;}"
                              "{\\*\\cs11\\i F;}}";
    ReadDocument read(framed(styles + GetParam().body));
    EXPECT_EQ(look(read.formatOf(QStringLiteral("X"))), GetParam().look);
}

const FormattedRow formattedRows[] = {
    {"Plain", "X", "Serif 12"},
    {"Bold", "\\b X", "bold Serif 12"},
    {"BoldOff", "\\b a\\b0 X", "Serif 12"},
    {"Italic", "\\i1 X", "italic Serif 12"},
    {"GroupEnds", "{\\b\\i a}X", "Serif 12"},
    {"NoWordIsPlain", "{\\b\\i\\ul\\strike\\fs40\\f1 \\plain X}", "Serif 12"},
    {"Font", "\\f1\\fs21 X", "Sans 10.5"},
    {"UnknownFont", "\\f99 X", "Serif 12"},
    {"SmallestRaised", "\\super\\fs1 X", "super Serif 2"},
    {"SizeBelowNothing", "\\fs-5 X", "Serif 12"},
    {"SizeBeyondAll", "\\fs99999999999 X", "Serif 1638"},
    {"Underline", "\\ul X", "line1 Serif 12"},
    {"UnderlineDouble", "\\uldb X", "line1 Serif 12"},
    {"UnderlineWords", "\\ulw X", "line1 Serif 12"},
    {"UnderlineDotted", "\\uld X", "line3 Serif 12"},
    {"UnderlineDash", "\\uldash X", "line2 Serif 12"},
    {"UnderlineWave", "\\ulwave X", "line6 Serif 12"},
    {"UnderlineOff", "\\ul a\\ulnone X", "Serif 12"},
    {"UnderlineZero", "\\ulwave a\\ul0 X", "Serif 12"},
    {"Strike", "\\strike X", "strike Serif 12"},
    {"DoubleStrike", "\\striked1 X", "strike Serif 12"},
    {"Caps", "\\caps X", "caps Serif 12"},
    {"SmallCaps", "\\scaps X", "small Serif 12"},
    {"Sub", "\\sub X", "sub Serif 12"},
    {"Super", "\\super X", "super Serif 12"},
    {"NoSuper", "\\super a\\nosupersub X", "Serif 12"},
    {"Up", "\\up8 X", "shift8 Serif 12"},
    {"Down", "\\dn X", "shift-6 Serif 12"},
    {"Color", "\\cf1 X", "#ff0000 Serif 12"},
    {"ColorAutomatic", "\\cf1 a\\cf0 X", "Serif 12"},
    {"ColorUnknown", "\\cf77 X", "Serif 12"},
    {"Background", "\\cb2 X", "on#0000ff Serif 12"},
    {"Shading", "\\chcbpat2 X", "on#0000ff Serif 12"},
    {"Highlight", "\\chcbpat2\\highlight1 X", "on#ff0000 Serif 12"},
    {"Language", "\\lang1031 X", "lang1031 Serif 12"},
    {"Associated", "\\af1\\ab\\ai\\afs50 X", "Serif 12"},
    {"OtherDirection", "\\b\\rtlch\\fcs1 \\af1\\i\\fs50 \\ltrch\\fcs0 \\fs20 X", "bold Serif 10"},
    {"OtherScripts", "\\hich\\af1\\dbch\\af1\\loch\\f0 X", "Serif 12"},
    {"Style", "\\pard\\plain\\s1 X", "bold Serif 16"},
    {"StyleBasedOn", "\\pard\\s2 X", "bold italic Serif 16"},
    {"StyleInACircle", "\\pard\\s3 X", "italic Serif 12"},
    {"WordsOverStyle", "\\pard\\plain\\s1\\b0\\fs20 X", "Serif 10"},
    {"WordsBeforeStyle", "\\pard\\plain\\fs20\\s1 X", "bold Serif 10"},
    {"StyleEnds", "\\s1 a\\par\\pard X", "Serif 12"},
    {"OtherStyle", "\\s1 a\\par\\s0 X", "Serif 12"},
    {"CharacterStyle", "{\\cs10 X}", "italic #ff0000 Serif 12"},
    {"WordsOverCharacterStyle", "{\\cs10\\i0 X}", "#ff0000 Serif 12"},
    {"Link", "{\\field{\\*\\fldinst HYPERLINK \"http://a/b\"}{\\fldrslt\\ul X}}",
     "line1 http://a/b Serif 12"},
    {"LinkToBookmark", "{\\field{\\*\\fldinst HYPERLINK \\\\l \"here\"}{\\fldrslt X}}", "#here Serif 12"},
    {"LinkWithBoth",
     "{\\field{\\*\\fldinst HYPERLINK \"f\" \\\\l \"here\" \\\\o \"tip\"}{\\fldrslt\\plain X}}",
     "f#here Serif 12"},
    {"LinkEnds", "{\\field{\\*\\fldinst HYPERLINK \"f\"}{\\fldrslt a}}X", "Serif 12"},
};

INSTANTIATE_TEST_SUITE_P(Rows, RtfReaderCharacters, testing::ValuesIn(formattedRows),
                         [](const auto &row) { return row.param.name; });

TEST(RtfReaderFonts, OfAllShapesOfTables)
{
    ReadDocument flat("{\\rtf1{\\fonttbl\\f0\\fswiss One;\\f5 Two Three;}a\\f5 b}");
    EXPECT_EQ(look(flat.formatOf(QStringLiteral("a"))), "One 12");
    EXPECT_EQ(look(flat.formatOf(QStringLiteral("b"))), "Two Three 12");
    ReadDocument alternatives("{\\rtf1{\\fonttbl{\\f0{\\*\\panose 0102}One{\\*\\falt Other};}}a}");
    EXPECT_EQ(look(alternatives.formatOf(QStringLiteral("a"))), "One 12");
    ReadDocument none("{\\rtf1 a}");
    EXPECT_EQ(look(none.formatOf(QStringLiteral("a"))), "Times New Roman 12");
}

TEST(RtfReaderFonts, WithoutANameAreTheAlternateOrTheUsualOneOfTheirKind)
{
    const auto family = [](const char *entry) {
        ReadDocument read(QByteArray("{\\rtf1{\\fonttbl{\\f0") + entry + "}}a}");
        return read.formatOf(QStringLiteral("a")).fontFamilies().toStringList().value(0).toStdString();
    };
    EXPECT_EQ(family("\\fswiss ;"), "Arial");
    EXPECT_EQ(family("\\fmodern;"), "Courier New");
    EXPECT_EQ(family("\\froman 12;"), "Times New Roman");
    EXPECT_EQ(family("\\fswiss{\\*\\falt Other};"), "Other");
    EXPECT_EQ(family("\\flomajor\\fswiss{\\*\\panose 020b0604020202020204}Calibri Light{\\*\\falt Other};"),
              "Calibri Light");
}

TEST(RtfReaderFonts, WhatIsSaidOfThemComesBack)
{
    ReadDocument read(
        "{\\rtf1{\\fonttbl{\\f0\\fswiss\\fprq2\\fcharset0{\\*\\panose 020B0604020202020204}One{\\*\\falt "
        "T\\'e9;};}{\\f1\\fmodern{\\*\\panose zz}Two;}}a\\f1 b}");
    const QByteArray written = RtfWriter::write(read.document());
    EXPECT_TRUE(
        written.contains("\\fswiss\\fprq2{\\*\\panose 020b0604020202020204} One{\\*\\falt T\\u233?};}"))
        << written.constData();
    EXPECT_TRUE(written.contains("\\fmodern Two;}"));
}

TEST(RtfReaderStyles, PlainTakesBackWhatAStyleIsBasedOn)
{
    ReadDocument read(framed("{\\stylesheet{\\s1\\b\\fs40 A;}{\\s2\\sbasedon1\\plain\\i B;}}\\pard\\s2 a"));
    EXPECT_EQ(look(read.formatOf(QStringLiteral("a"))), "italic Serif 12");
}

TEST(RtfReaderFonts, NameInItsOwnCodePage)
{
    ReadDocument read("{\\rtf1{\\fonttbl{\\f0\\fcharset204 \\'cf\\u1088?;}}a}");
    EXPECT_EQ(look(read.formatOf(QStringLiteral("a"))), "\u041F\u0440 12");
}

TEST(RtfReaderParagraphs, Alignment)
{
    ReadDocument read(framed("\\ql a\\par\\qr b\\par\\qc c\\par\\qj d\\par\\pard e\\par\\rtlpar\\ql f"));
    const auto alignment = [&](int number) { return int(read.paragraph(number).blockFormat().alignment()); };
    EXPECT_EQ(alignment(0), int(Qt::AlignLeft | Qt::AlignAbsolute));
    EXPECT_EQ(alignment(1), int(Qt::AlignRight | Qt::AlignAbsolute));
    EXPECT_EQ(alignment(2), int(Qt::AlignHCenter));
    EXPECT_EQ(alignment(3), int(Qt::AlignJustify));
    EXPECT_FALSE(read.paragraph(4).blockFormat().hasProperty(QTextFormat::BlockAlignment));
    EXPECT_EQ(read.paragraph(5).blockFormat().layoutDirection(), Qt::RightToLeft);
}

TEST(RtfReaderParagraphs, IndentsAndSpacing)
{
    ReadDocument read(framed("\\li720\\ri300\\fi-360\\sb60\\sa120\\sl480\\slmult1 a\\par"
                             "\\pard\\li2147483648\\sl-240\\slmult0 b\\par\\pard c"));
    const QTextBlockFormat first = read.paragraph(0).blockFormat();
    EXPECT_EQ(ParagraphFormat::leftIndent(first), 720);
    EXPECT_EQ(ParagraphFormat::rightIndent(first), 300);
    EXPECT_EQ(ParagraphFormat::firstLineIndent(first), -360);
    EXPECT_EQ(ParagraphFormat::spaceBefore(first), 60);
    EXPECT_EQ(ParagraphFormat::spaceAfter(first), 120);
    EXPECT_EQ(first.lineHeight(), 200);
    const QTextBlockFormat second = read.paragraph(1).blockFormat();
    EXPECT_EQ(ParagraphFormat::leftIndent(second), 32767);
    EXPECT_EQ(second.lineHeightType(), int(QTextBlockFormat::FixedHeight));
    EXPECT_EQ(ParagraphFormat::leftIndent(read.paragraph(2).blockFormat()), 0);
}

TEST(RtfReaderColours, TheFirstEntryOfATableIsTheAutomaticColourAndBlackIsAnother)
{
    ReadDocument read("{\\rtf1{\\colortbl\\red9\\green0\\blue0;\\red0\\green0\\blue0;}\\cf0 a\\cf1 b}");
    EXPECT_EQ(read.formatOf(QStringLiteral("a")).foreground().style(), Qt::NoBrush);
    EXPECT_EQ(read.formatOf(QStringLiteral("b")).foreground().color(), QColor(Qt::black));
    const QByteArray written = RtfWriter::write(read.document());
    EXPECT_TRUE(written.contains("{\\colortbl;\\red0\\green0\\blue0;}")) << written.constData();
    EXPECT_TRUE(written.contains("\\cf1 b"));
    EXPECT_EQ(written.count("\\cf"), 1);
}

TEST(RtfReaderColours, ShadingAndHighlightStayTwoThings)
{
    ReadDocument read(framed("{\\chcbpat1 a}{\\highlight2 b}{\\chcbpat1\\highlight2 c}"));
    const QByteArray written = RtfWriter::write(read.document());
    EXPECT_TRUE(written.contains("\\chcbpat1 a}")) << written.constData();
    EXPECT_TRUE(written.contains("\\highlight2 bc}") || written.contains("\\highlight2 bc\\par}"));
}

TEST(RtfReaderParagraphs, TabStopsAreSaidOnce)
{
    ReadDocument read(framed("\\tqc\\tx2000\\tx500\\tqc\\tx2000\\tqr\\tx500 a"));
    const QTextBlockFormat format = read.paragraph(0).blockFormat();
    EXPECT_EQ(format.stringProperty(RichTextProperty::TabStops), QStringLiteral("tqr tx500 tqc tx2000"));
    EXPECT_EQ(format.tabPositions().size(), 2);
}

TEST(RtfReaderColours, TheFirstEntryOfATableIsNoBackground)
{
    ReadDocument read(
        "{\\rtf1{\\colortbl\\red1\\green0\\blue0;}a\\par\\trowd\\cellx1440\\intbl b\\cell\\row}");
    for (const QString &letter : {QStringLiteral("a"), QStringLiteral("b")})
        EXPECT_EQ(read.formatOf(letter).background().style(), Qt::NoBrush);
    EXPECT_EQ(read.paragraph(0).blockFormat().background().style(), Qt::NoBrush);
    const QTextTable *table = qobject_cast<QTextTable *>(read.document().rootFrame()->childFrames().value(0));
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->cellAt(0, 0).format().background().style(), Qt::NoBrush);
}

TEST(RtfReaderParagraphs, TabsShadingAndPages)
{
    ReadDocument read(framed("\\tx720\\tqr\\tldot\\tx1440\\tqdec\\tx2160\\cbpat2 a\\par\\pard\\pagebb b\\par"
                             "\\pard\\page c\\par d\\page e"));
    const QTextBlockFormat format = read.paragraph(0).blockFormat();
    EXPECT_EQ(format.property(RichTextProperty::TabStops).toString(),
              QStringLiteral("tx720 tqr tldot tx1440 tqdec tx2160"));
    const double dpi = ParagraphFormat::layoutDpi();
    ASSERT_EQ(format.tabPositions().size(), 3);
    EXPECT_EQ(format.tabPositions().at(1).type, QTextOption::RightTab);
    EXPECT_EQ(format.tabPositions().at(1).position, dpi);
    EXPECT_EQ(format.tabPositions().at(2).type, QTextOption::DelimiterTab);
    EXPECT_EQ(format.background().color(), QColor(Qt::blue));
    const auto breaks = [&](int number) {
        return read.paragraph(number).blockFormat().pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore;
    };
    EXPECT_FALSE(breaks(0));
    EXPECT_TRUE(breaks(1));
    EXPECT_TRUE(breaks(2));
    EXPECT_FALSE(breaks(3));
    EXPECT_TRUE(breaks(4));
}

TEST(RtfReaderParagraphs, SectionsBeginPages)
{
    ReadDocument read(framed("a\\sect\\sectd b\\sect\\sectd\\sbknone c"));
    EXPECT_EQ(read.paragraph(1).blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_AlwaysBefore);
    EXPECT_EQ(read.paragraph(2).blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_Auto);
}

TEST(RtfReaderParagraphs, StyleAndItsBase)
{
    ReadDocument read(framed("{\\stylesheet{\\s1\\qc\\li200\\sb40 A;}{\\s2\\sbasedon1\\li400 B;}}"
                             "\\pard\\s2 a\\par\\pard\\li600\\s2 b\\par\\pard c"));
    EXPECT_EQ(read.paragraph(0).blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_EQ(ParagraphFormat::leftIndent(read.paragraph(0).blockFormat()), 400);
    EXPECT_EQ(ParagraphFormat::spaceBefore(read.paragraph(0).blockFormat()), 40);
    EXPECT_EQ(ParagraphFormat::leftIndent(read.paragraph(1).blockFormat()), 600);
    EXPECT_EQ(ParagraphFormat::leftIndent(read.paragraph(2).blockFormat()), 0);
}

TEST(RtfReaderParagraphs, EmptyOnesKeepTheirCharacters)
{
    ReadDocument read(framed("a\\par\\b\\fs40\\par\\plain b"));
    EXPECT_EQ(look(read.paragraph(1).charFormat()), "bold Serif 20");
    ReadDocument empty(framed("\\fs40\\f1 "));
    EXPECT_EQ(look(empty.paragraph(0).charFormat()), "Sans 20");
}

TEST(RtfReaderParagraphs, NotesAreRaised)
{
    ReadDocument read(framed("a{\\footnote X}"));
    EXPECT_EQ(look(read.formatOf(QStringLiteral("1"))), "super Serif 12");
    EXPECT_EQ(look(read.formatOf(QStringLiteral("X"))), "Serif 12");
}

} // namespace
