#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RowName.h"
#include "WrittenBody.h"

#include <gtest/gtest.h>

namespace {

struct ParagraphRow
{
    const char *name;
    void (*set)(QTextBlockFormat &);
    const char *words;
};

struct RtfWriterParagraphs : testing::TestWithParam<ParagraphRow>
{};

} // namespace

TEST_P(RtfWriterParagraphs, AreChangesFromOneWithoutProperties)
{
    PlainDocument document;
    QTextBlockFormat format;
    GetParam().set(format);
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("a"));
    cursor.insertBlock(format);
    cursor.insertText(QStringLiteral("b"));
    cursor.insertBlock(QTextBlockFormat());
    cursor.insertText(QStringLiteral("c"));
    const QByteArray words = GetParam().words;
    EXPECT_EQ(bodyOf(document), words.isEmpty() ? QByteArray("a\\par\nb\\par\nc\\par\n")
                                                : "a\\par\n\\pard" + words + " b\\par\n\\pard c\\par\n");
}

using P = QTextBlockFormat;
INSTANTIATE_TEST_SUITE_P(
    Rows, RtfWriterParagraphs,
    testing::Values(
        ParagraphRow{"Left", [](P &f) { f.setAlignment(Qt::AlignLeft); }, ""},
        ParagraphRow{"Right", [](P &f) { f.setAlignment(Qt::AlignRight); }, "\\qr"},
        ParagraphRow{"Centre", [](P &f) { f.setAlignment(Qt::AlignHCenter); }, "\\qc"},
        ParagraphRow{"Justified", [](P &f) { f.setAlignment(Qt::AlignJustify); }, "\\qj"},
        ParagraphRow{"RightToLeft", [](P &f) { f.setLayoutDirection(Qt::RightToLeft); }, "\\rtlpar"},
        ParagraphRow{"RightToLeftFromTheRight",
                     [](P &f) {
                         f.setLayoutDirection(Qt::RightToLeft);
                         f.setAlignment(Qt::AlignLeft);
                     },
                     "\\rtlpar"},
        ParagraphRow{"RightToLeftMirrored",
                     [](P &f) {
                         f.setLayoutDirection(Qt::RightToLeft);
                         f.setAlignment(Qt::AlignRight);
                     },
                     "\\rtlpar\\ql"},
        ParagraphRow{"RightToLeftAbsoluteRight",
                     [](P &f) {
                         f.setLayoutDirection(Qt::RightToLeft);
                         f.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
                     },
                     "\\rtlpar\\qr"},
        ParagraphRow{"RightToLeftAbsoluteLeft",
                     [](P &f) {
                         f.setLayoutDirection(Qt::RightToLeft);
                         f.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
                     },
                     "\\rtlpar\\ql"},
        ParagraphRow{"Indents", [](P &f) { ParagraphFormat::setIndents(f, 567, 5, -7); },
                     "\\fi-7\\li567\\ri5"},
        ParagraphRow{"Margins",
                     [](P &f) {
                         f.setLeftMargin(4);
                         f.setRightMargin(8);
                         f.setTextIndent(-2);
                     },
                     "\\fi-30\\li60\\ri120"},
        ParagraphRow{"BeyondTheLargest", [](P &f) { f.setLeftMargin(99999); }, "\\li32767"},
        ParagraphRow{"QtIndent", [](P &f) { f.setIndent(2); }, "\\li1200"},
        ParagraphRow{"Spacing", [](P &f) { ParagraphFormat::setSpacing(f, 121, 7); }, "\\sb121\\sa7"},
        ParagraphRow{"PixelSpacing",
                     [](P &f) {
                         f.setTopMargin(12);
                         f.setBottomMargin(4);
                     },
                     "\\sb180\\sa60"},
        ParagraphRow{"Lines", [](P &f) { ParagraphFormat::setLineSpacing(f, 360, true); },
                     "\\sl360\\slmult1"},
        ParagraphRow{"ExactLines", [](P &f) { ParagraphFormat::setLineSpacing(f, -300, false); },
                     "\\sl-300\\slmult0"},
        ParagraphRow{"QtLines", [](P &f) { f.setLineHeight(150, P::ProportionalHeight); },
                     "\\sl360\\slmult1"},
        ParagraphRow{"QtExactLines", [](P &f) { f.setLineHeight(20, P::FixedHeight); }, "\\sl-300\\slmult0"},
        ParagraphRow{"QtLeastLines", [](P &f) { f.setLineHeight(20, P::MinimumHeight); }, "\\sl300\\slmult0"},
        ParagraphRow{
            "Tabs",
            [](P &f) { f.setProperty(RichTextProperty::TabStops, QStringLiteral("tx720 tqr tldot tx1441")); },
            "\\tx720\\tqr\\tldot\\tx1441"},
        ParagraphRow{"QtTabs",
                     [](P &f) {
                         f.setTabPositions({QTextOption::Tab(48, QTextOption::LeftTab),
                                            QTextOption::Tab(96, QTextOption::RightTab),
                                            QTextOption::Tab(120, QTextOption::CenterTab),
                                            QTextOption::Tab(200, QTextOption::DelimiterTab, u'.')});
                     },
                     "\\tx720\\tqr\\tx1440\\tqc\\tx1800\\tqdec\\tx3000"},
        ParagraphRow{"NewPage", [](P &f) { f.setPageBreakPolicy(P::PageBreak_AlwaysBefore); }, "\\pagebb"},
        ParagraphRow{"Background", [](P &f) { f.setBackground(Qt::yellow); }, "\\cbpat1"}),
    RowName());

TEST(RtfWriterParagraphRuns, SayTheirWordsOnce)
{
    PlainDocument document;
    QTextBlockFormat centred;
    centred.setAlignment(Qt::AlignHCenter);
    QTextCursor cursor(&document);
    cursor.setBlockFormat(centred);
    cursor.insertText(QStringLiteral("a\nb"));
    EXPECT_EQ(bodyOf(document), QByteArray("\\pard\\qc a\\par\nb\\par\n"));
}
