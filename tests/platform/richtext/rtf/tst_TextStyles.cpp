#include "TextStyles.h"

#include "ParagraphFormat.h"
#include "ReadDocument.h"
#include "RichTextProperties.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "WrittenBody.h"

#include <QTextCursor>
#include <QTextDocumentFragment>
#include <gtest/gtest.h>

namespace {

const QByteArray fontsAndColours =
    "{\\rtf1{\\fonttbl{\\f3 Arial;}{\\f7 Courier New;}}{\\colortbl;\\red255\\green0\\blue0;"
    "\\red0\\green0\\blue255;}";
const QByteArray styleSheet =
    "{\\stylesheet{\\sa100\\f3\\fs24 Normal;}"
    "{\\s4\\sbasedon0\\snext0\\qc\\sb240\\keepn\\ls2\\ilvl1\\f7\\fs32\\b\\cf2 heading 1;}"
    "{\\*\\cs9\\additive\\i\\cf1 Emphasis;}{\\*\\ts11\\tsrowd Table;}}";

QByteArray savedAgain(const QByteArray &rtf)
{
    return RtfWriter::write(ReadDocument(rtf).document());
}

QByteArray withStyles(const QByteArray &body)
{
    return savedAgain(fontsAndColours + styleSheet + body + '}');
}

QString styleOf(const QTextBlock &paragraph)
{
    return paragraph.blockFormat().stringProperty(RichTextProperty::Style);
}

} // namespace

TEST(TextStyles, DefinitionsComeBackWithTheNumbersOfTheNewTables)
{
    const QByteArray out = withStyles("text");
    EXPECT_TRUE(out.contains("{\\s0\\sa100\\f1\\fs24 Normal;}")) << out.data();
    EXPECT_TRUE(out.contains("{\\s4\\sbasedon0\\snext0\\qc\\sb240\\keepn\\f2\\fs32\\b\\cf1 heading 1;}"))
        << out.data();
    EXPECT_TRUE(out.contains("{\\*\\cs9\\additive\\i\\cf2 Emphasis;}")) << out.data();
    EXPECT_TRUE(out.contains("{\\f1\\fnil Arial;}{\\f2\\fnil Courier New;}")) << out.data();
    EXPECT_FALSE(out.contains("Table;")) << out.data();
    EXPECT_EQ(savedAgain(out), out);
}

TEST(TextStyles, AParagraphNamesItsStyleAndSaysItsLookItself)
{
    const QByteArray out = bodyOf(withStyles("\\pard\\plain\\s4 Head\\par\\pard\\plain Text\\par"));
    EXPECT_TRUE(out.contains("\\pard\\s4\\qc\\sb240\\sa100\\keepn{\\f2\\fs32\\b\\cf1 Head\\par}"))
        << out.data();
    EXPECT_TRUE(out.contains("\\pard{\\f3 Text")) << out.data();
}

TEST(TextStyles, WhatSomebodyTookAwayFromAParagraphOfAStyleStaysAway)
{
    ReadDocument read(fontsAndColours + styleSheet + "\\pard\\plain\\s4 Head\\par}");
    QTextCursor cursor(&read.document());
    cursor.select(QTextCursor::BlockUnderCursor);
    cursor.setCharFormat({});
    QTextBlockFormat look = cursor.blockFormat();
    ParagraphFormat::setSpacing(look, 0, 0);
    look.clearProperty(QTextFormat::BlockAlignment);
    cursor.setBlockFormat(look);
    ReadDocument saved(RtfWriter::write(read.document()));
    EXPECT_EQ(styleOf(saved.paragraph(0)), u"heading 1");
    EXPECT_FALSE(saved.formatOf("Head").font().bold());
    EXPECT_EQ(ParagraphFormat::spaceBefore(saved.paragraph(0).blockFormat()), 0);
    EXPECT_FALSE(saved.paragraph(0).blockFormat().alignment().testFlag(Qt::AlignHCenter));
}

TEST(TextStyles, FilesOfOtherProgramsTakeFromTheStyleWhatTheParagraphDoesNotSay)
{
    ReadDocument read(fontsAndColours + styleSheet + "\\pard\\s4 Head\\par}");
    EXPECT_TRUE(read.formatOf("Head").font().bold());
    ReadDocument ours(fontsAndColours + styleSheet +
                      "{\\*\\generator Quill-Office Tools;}\\pard\\s4 Head\\par}");
    EXPECT_FALSE(ours.formatOf("Head").font().bold());
    EXPECT_EQ(styleOf(ours.paragraph(0)), u"heading 1");
}

TEST(TextStyles, AlignmentIsSaidWhereTheStyleCouldSayAnother)
{
    EXPECT_TRUE(bodyOf(withStyles("\\pard\\s4\\ql Head\\par")).contains("\\s4\\ql"));
    EXPECT_FALSE(bodyOf(withStyles("\\pard Text\\par")).contains("\\ql"));
}

TEST(TextStyles, AutomaticColourIsLeftOutUnlessItTakesAnotherAway)
{
    const QByteArray out =
        savedAgain("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}{\\stylesheet{\\cf0\\fs20 Normal;}"
                   "{\\s1\\cf1 red;}{\\s2\\sbasedon1\\cf0 plain;}}text}");
    EXPECT_TRUE(out.contains("{\\s0\\fs20 Normal;}")) << out.data();
    EXPECT_TRUE(out.contains("{\\s2\\sbasedon1\\cf0 plain;}")) << out.data();
}

TEST(TextStyles, ANameOutsideAsciiAndOneWithoutAnEndComeBack)
{
    const QByteArray out =
        savedAgain("{\\rtf1{\\stylesheet{\\s1 \\'dcberschrift;}{\\s2 \\u1047?x}}\\s1 a\\par\\s2 b\\par}");
    EXPECT_TRUE(out.contains("{\\s1 \\'dcberschrift;}") || out.contains("{\\s1 \\u220?berschrift;}"))
        << out.data();
    EXPECT_TRUE(out.contains("{\\s2 \\u1047?x;}")) << out.data();
    EXPECT_EQ(styleOf(ReadDocument(out).paragraph(1)), QStringLiteral("\u0417x"));
}

TEST(TextStyles, AStyleThatIsNotDefinedIsNotNamed)
{
    EXPECT_FALSE(bodyOf(withStyles("\\pard\\s17 text\\par")).contains("\\s17"));
}

TEST(TextStyles, AnInsertedParagraphKeepsItsStyleWhereTheDocumentHasOneOfThatName)
{
    ReadDocument source(fontsAndColours + styleSheet + "\\pard\\s4 Head\\par More\\par}");
    QTextCursor part(&source.document());
    part.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    const auto inserted = [&](const QByteArray &rtf) {
        ReadDocument target(rtf);
        QTextCursor(&target.document()).insertFragment(part.selection());
        return bodyOf(target.document());
    };
    EXPECT_TRUE(inserted("{\\rtf1{\\stylesheet{\\s12 heading 1;}}text}").contains("\\pard\\s12"));
    EXPECT_FALSE(inserted("{\\rtf1 text}").contains("\\s4"));
}

TEST(TextStyles, DocumentsWithoutStylesAreWrittenWithoutASheet)
{
    EXPECT_FALSE(savedAgain("{\\rtf1 text}").contains("stylesheet"));
    EXPECT_FALSE(savedAgain("{\\rtf1{\\stylesheet}text}").contains("stylesheet"));
}

TEST(TextStyles, StylesBasedOnEachOtherInACircleAreKept)
{
    const QByteArray out =
        savedAgain("{\\rtf1{\\stylesheet{\\s1\\sbasedon2\\cf0 a;}{\\s2\\sbasedon1\\cf0 b;}}\\s1 text\\par}");
    EXPECT_TRUE(out.contains("{\\s1\\sbasedon2 a;}")) << out.data();
}

TEST(TextStyles, WordsOnLinesAndPagesComeBack)
{
    const auto body = [](const QByteArray &words) {
        return bodyOf(savedAgain("{\\rtf1\\pard" + words + " a\\par}"));
    };
    for (const char *words :
         {"\\keep", "\\keepn", "\\widctlpar", "\\nowidctlpar", "\\hyphpar", "\\hyphpar0", "\\contextualspace",
          "\\outlinelevel0", "\\outlinelevel8", "\\keep\\keepn\\widctlpar\\outlinelevel2"})
        EXPECT_TRUE(body(words).contains(QByteArray("\\pard") + words + '{'))
            << words << ": " << body(words).data();
    for (const char *words : {"\\keep0", "\\keepn\\keepn0", "\\outlinelevel9", "\\outlinelevel-1"})
        EXPECT_TRUE(body(words).startsWith("{\\f1 a")) << words << ": " << body(words).data();
}

TEST(TextStyles, AParagraphHasTheFlowOfItsStyleUnlessItSaysItsOwn)
{
    const QByteArray start = "{\\rtf1{\\stylesheet{\\s1\\keep\\keepn\\outlinelevel1\\widctlpar\\hyphpar0"
                             "\\contextualspace one;}}\\pard\\s1";
    EXPECT_TRUE(savedAgain(start + " a\\par}")
                    .contains("\\ql\\keep\\keepn\\widctlpar\\hyphpar0\\contextualspace"
                              "\\outlinelevel1{"));
    EXPECT_TRUE(savedAgain(start + "\\keepn0\\outlinelevel9\\nowidctlpar a\\par}")
                    .contains("\\ql\\keep\\nowidctlpar\\hyphpar0\\contextualspace{"));
}
