#include "ReadDocument.h"
#include "RichTextProperties.h"
#include "RowName.h"
#include "RtfWriter.h"
#include "WrittenBody.h"

#include <QTextTable>
#include <gtest/gtest.h>

namespace {

struct BorderRow
{
    const char *name;
    const char *body;
    const char *lines;
};

struct RtfBorderWords : testing::TestWithParam<BorderRow>
{};

QString linesOf(const QTextBlock &paragraph)
{
    return paragraph.blockFormat().stringProperty(RichTextProperty::Borders);
}

} // namespace

TEST_P(RtfBorderWords, AreKeptAndWrittenBack)
{
    ReadDocument read(framed(GetParam().body));
    const QString lines = QString::fromLatin1(GetParam().lines);
    EXPECT_EQ(linesOf(read.paragraph(0)).toStdString(), lines.toStdString());
    const QByteArray written = RtfWriter::write(read.document());
    ReadDocument again(written);
    EXPECT_EQ(linesOf(again.paragraph(0)).toStdString(), lines.toStdString());
    EXPECT_EQ(RtfWriter::write(again.document()).toStdString(), written.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RtfBorderWords,
    testing::Values(
        BorderRow{"None", "a", ""},
        BorderRow{"SaidToBeNone", "\\brdrt\\brdrnone\\brdrl\\brdrs\\brdrnil a", ""},
        BorderRow{"Below", "\\brdrb\\brdrs\\brdrw15\\brsp20\\brdrcf2 a",
                  "brdrb brdrs brdrw15 brsp20 brdrcf#0000ff"},
        BorderRow{"Automatic", "\\brdrb\\brdrdot\\brdrcf0 a", "brdrb brdrdot"},
        BorderRow{"AllSides", "\\brdrr\\brdrs\\brdrt\\brdrdb\\brdrl\\brdrwavy\\brdrb\\brdrth a",
                  "brdrt brdrdb brdrl brdrwavy brdrb brdrth brdrr brdrs"},
        BorderRow{"Box", "\\box\\brdrs\\brdrsh\\brdrw10 a",
                  "brdrt brdrs brdrsh brdrw10 brdrl brdrs brdrsh brdrw10 brdrb brdrs brdrsh brdrw10 brdrr "
                  "brdrs brdrsh "
                  "brdrw10"},
        BorderRow{"SaidAgain", "\\brdrt\\brdrs\\brdrw99\\brdrt\\brdrdash a", "brdrt brdrdash"},
        BorderRow{"BetweenAndBar", "\\brdrbtw\\brdrs\\brdrbar\\brdrhair a", "brdrbtw brdrs brdrbar brdrhair"},
        BorderRow{"OfCharactersAndPages", "\\brdrt\\brdrs\\chbrdr\\brdrdb\\pgbrdrt\\brdrth a", "brdrt brdrs"},
        BorderRow{"Reset", "\\brdrt\\brdrs\\pard a", ""},
        BorderRow{"OfAStyle", "{\\stylesheet{\\s1\\brdrb\\brdrs Line;}}\\pard\\s1 a", "brdrb brdrs"}),
    RowName());

TEST(RtfBorders, OfRowsAreNotThoseOfParagraphs)
{
    ReadDocument read(
        framed("\\trowd\\clbrdrt\\brdrs\\brdrw30\\cellx1000\\pard\\intbl\\brdrl\\brdrdot a\\cell\\row"));
    const auto *table = qobject_cast<QTextTable *>(read.document().rootFrame()->childFrames().value(0));
    ASSERT_NE(table, nullptr);
    EXPECT_TRUE(table->cellAt(0, 0).format().hasProperty(QTextFormat::TableCellTopBorder));
    EXPECT_FALSE(table->cellAt(0, 0).format().hasProperty(QTextFormat::TableCellLeftBorder));
    EXPECT_EQ(linesOf(table->cellAt(0, 0).firstCursorPosition().block()), QStringLiteral("brdrl brdrdot"));
}

namespace {

struct CellRow
{
    const char *name;
    const char *row;
    const char *written;
};

struct RtfCellBorders : testing::TestWithParam<CellRow>
{};

} // namespace

TEST_P(RtfCellBorders, AreKeptAndWrittenBack)
{
    ReadDocument read(framed(QByteArray(GetParam().row) + "\\pard b"));
    const QByteArray written = RtfWriter::write(read.document());
    EXPECT_TRUE(written.contains(GetParam().written)) << written.constData();
    ReadDocument again(written);
    EXPECT_EQ(RtfWriter::write(again.document()).toStdString(), written.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RtfCellBorders,
    testing::Values(
        CellRow{"OneSide",
                "\\trowd\\clbrdrb\\brdrs\\brdrw15\\brdrcf2\\cellx900\\cellx1800\\intbl a\\cell\\cell\\row",
                "\\trowd\\clbrdrb\\brdrs\\brdrw15\\brdrcf1\\cellx900\\cellx1800\n"},
        CellRow{"OneRow",
                "\\trowd\\clbrdrt\\brdrdb\\clbrdrl\\brdrdot\\brdrw5\\cellx900\\intbl a\\cell\\row"
                "\\trowd\\cellx900\\intbl c\\cell\\row",
                "\\trowd\\clbrdrt\\brdrdb\\clbrdrl\\brdrdot\\brdrw5\\cellx900\n"},
        CellRow{"OtherRows",
                "\\trowd\\clbrdrt\\brdrs\\cellx900\\intbl a\\cell\\row\\trowd\\cellx900\\intbl c\\cell\\row",
                "\\row\n\\trowd\\cellx900\n"},
        CellRow{"SaidToBeNone", "\\trowd\\clbrdrt\\brdrs\\clbrdrb\\brdrnone\\cellx900\\intbl a\\cell\\row",
                "\\trowd\\clbrdrt\\brdrs\\cellx900\n"},
        CellRow{"OfTheWholeRow", "\\trowd\\trbrdrt\\brdrs\\brdrw15\\cellx900\\intbl a\\cell\\row",
                "\\trowd\\clbrdrt\\brdrs\\brdrw15\\brdrcf1\\clbrdrl\\brdrs\\brdrw15\\brdrcf1\\clbrdrb\\brdrs"
                "\\brdrw15"
                "\\brdrcf1\\clbrdrr\\brdrs\\brdrw15\\brdrcf1\\cellx900\n"}),
    RowName());
