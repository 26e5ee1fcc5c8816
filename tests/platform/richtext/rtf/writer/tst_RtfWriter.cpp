#include "RowName.h"
#include "WrittenBody.h"

#include <QTextFrame>
#include <gtest/gtest.h>

namespace {

struct TextRow
{
    const char *name;
    const char16_t *text;
    const char *written;
};

struct RtfWriterText : testing::TestWithParam<TextRow>
{};

} // namespace

TEST(RtfWriter, WritesAnEmptyDocumentAsOneParagraph)
{
    const PlainDocument document;
    EXPECT_EQ(RtfWriter::write(document),
              QByteArray("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil "
                         "Arial;}}\n{\\*\\generator Quill-Office Tools;}\n"
                         "\\par\n}\n"));
}

TEST(RtfWriter, EndsEveryParagraph)
{
    PlainDocument document;
    document.setPlainText(QStringLiteral("one\n\nthree"));
    EXPECT_EQ(bodyOf(document), QByteArray("one\\par\n\\par\nthree\\par\n"));
}

TEST(RtfWriter, NamesTheDocumentsOwnFontFirst)
{
    QTextDocument document;
    document.setDefaultFont(QFont(QStringLiteral("Prag\u0161;sk\u00fd"), 12));
    EXPECT_TRUE(RtfWriter::write(document).contains("{\\fonttbl{\\f0\\fnil Prag\\u353?sk\\u253?;}}"));
}

TEST(RtfWriter, WritesTheSameBytesForTheSameContent)
{
    const QString html =
        QStringLiteral("<p>a <b>b</b></p><ul><li>c</li></ul><table><tr><td>d</td></tr></table>");
    QTextDocument one;
    QTextDocument other;
    one.setHtml(html);
    QTextCursor(&other).insertText(QStringLiteral("gone"), QTextCharFormat());
    other.setHtml(html);
    EXPECT_EQ(RtfWriter::write(one), RtfWriter::write(other));
}

TEST(RtfWriter, WritesTheTextOfFramesThatAreNoTables)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("before"));
    cursor.insertFrame(QTextFrameFormat());
    cursor.insertText(QStringLiteral("inside"));
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("behind"));
    EXPECT_EQ(bodyOf(document), QByteArray("before\\par\ninside\\par\nbehind\\par\n"));
}

TEST_P(RtfWriterText, IsPureAscii)
{
    PlainDocument document;
    QTextCursor(&document).insertText(QString::fromUtf16(GetParam().text));
    const QByteArray bytes = RtfWriter::write(document);
    EXPECT_EQ(bodyOf(bytes), GetParam().written + QByteArray("\\par\n"));
    EXPECT_TRUE(
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RtfWriterText,
    testing::Values(TextRow{"Signs", u"a\\b{c}d", "a\\\\b\\{c\\}d"}, TextRow{"Tab", u"a\tb", "a\\tab b"},
                    TextRow{"ForcedLine", u"a\u2028b", "a\\line b"},
                    TextRow{"HardSpace", u"a\u00a0b", "a\\~b"}, TextRow{"SoftHyphen", u"a\u00adb", "a\\-b"},
                    TextRow{"HardHyphen", u"a\u2011b", "a\\_b"},
                    TextRow{"Latin", u"caf\u00e9!", "caf\\u233?!"},
                    TextRow{"DigitBehind", u"\u017e1", "\\u382?1"},
                    TextRow{"AboveHalf", u"\ufb01", "\\u-1279?"}, TextRow{"Control", u"\u0007", "\\u7?"},
                    TextRow{"Delete", u"\u007f", "\\u127?"}, TextRow{"Blanks", u"  a  ", "  a  "},
                    TextRow{"LonePlace", u"\ufffc", "\\u-4?"}),
    RowName());

TEST(RtfWriterLong, WritesOneVeryLongRun)
{
    PlainDocument document;
    document.setPlainText(QString(100000, u'\u017e'));
    EXPECT_EQ(bodyOf(document), QByteArray("\\u382?").repeated(100000) + "\\par\n");
}
