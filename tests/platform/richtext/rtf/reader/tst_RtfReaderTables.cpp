#include "ReadDocument.h"
#include "RichTextProperties.h"

#include <QTextCursor>
#include <QTextTable>
#include <gtest/gtest.h>

namespace {

QTextTable *tableOf(ReadDocument &read, int number = 0)
{
    return qobject_cast<QTextTable *>(read.document().rootFrame()->childFrames().value(number));
}

/// Each cell as "row,column:rowsxcolumns text", what a cell holds joined by "/".
std::string cellsOf(const QTextTable &table)
{
    QStringList cells;
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            if (cell.row() != row || cell.column() != column)
                continue;
            QStringList texts;
            for (auto part = cell.begin(); !part.atEnd(); ++part) {
                if (part.currentBlock().isValid())
                    texts << part.currentBlock().text();
            }
            QString entry = QStringLiteral("%1,%2").arg(row).arg(column);
            if (cell.rowSpan() > 1 || cell.columnSpan() > 1)
                entry += QStringLiteral(":%1x%2").arg(cell.rowSpan()).arg(cell.columnSpan());
            cells << entry + u' ' + texts.join(u'/');
        }
    }
    return cells.join(QStringLiteral("; ")).toStdString();
}

struct TableRow
{
    const char *name;
    const char *body;
    const char *cells;
};

void PrintTo(const TableRow &row, std::ostream *out)
{
    *out << row.body;
}

class RtfReaderTable : public testing::TestWithParam<TableRow>
{};

TEST_P(RtfReaderTable, Reads)
{
    ReadDocument read(framed(GetParam().body));
    ASSERT_TRUE(tableOf(read));
    EXPECT_EQ(cellsOf(*tableOf(read)), GetParam().cells);
}

const TableRow tableRows[] = {
    {"TwoRows",
     "\\trowd\\cellx1000\\cellx2000\\intbl a\\cell b\\cell\\row\\trowd\\cellx1000\\cellx2000 c\\cell "
     "d\\cell\\row",
     "0,0 a; 0,1 b; 1,0 c; 1,1 d"},
    {"RowDescribedOnce", "\\trowd\\cellx1000\\intbl a\\cell\\row\\intbl b\\cell\\row", "0,0 a; 1,0 b"},
    {"DescribedBehindTheCells", "\\intbl a\\cell b\\cell\\trowd\\cellx1000\\cellx2000\\row", "0,0 a; 0,1 b"},
    {"Paragraphs", "\\trowd\\cellx1000\\intbl a\\par b\\cell\\row", "0,0 a/b"},
    {"OtherEdges",
     "\\trowd\\cellx1000\\cellx3000\\intbl a\\cell b\\cell\\row\\trowd\\cellx2000\\cellx3000\\intbl c\\cell "
     "d\\cell\\row",
     "0,0 a; 0,1:1x2 b; 1,0:1x2 c; 1,2 d"},
    {"RoundedEdges",
     "\\trowd\\cellx1000\\cellx3000\\intbl a\\cell b\\cell\\row\\trowd\\cellx1007\\cellx2998\\intbl c\\cell "
     "d\\cell\\row",
     "0,0 a; 0,1 b; 1,0 c; 1,1 d"},
    {"ShorterRow",
     "\\trowd\\cellx1000\\cellx3000\\intbl a\\cell b\\cell\\row\\trowd\\cellx1000\\intbl c\\cell\\row",
     "0,0 a; 0,1 b; 1,0:1x2 c"},
    {"MergedAcross",
     "\\trowd\\clmgf\\cellx1000\\clmrg\\cellx2000\\cellx3000\\intbl a\\cell b\\cell c\\cell\\row"
     "\\trowd\\cellx1000\\cellx2000\\cellx3000\\intbl d\\cell e\\cell f\\cell\\row",
     "0,0:1x2 a/b; 0,2 c; 1,0 d; 1,1 e; 1,2 f"},
    {"MergedDown",
     "\\trowd\\clvmgf\\cellx1000\\cellx2000\\intbl a\\cell b\\cell\\row"
     "\\trowd\\clvmrg\\cellx1000\\cellx2000\\intbl\\cell c\\cell\\row"
     "\\trowd\\clvmrg\\cellx1000\\cellx2000\\intbl x\\cell d\\cell\\row",
     "0,0:3x1 a/x; 0,1 b; 1,1 c; 2,1 d"},
    {"MergedWithNothingAbove", "\\trowd\\clvmrg\\cellx1000\\clmrg\\cellx2000\\intbl a\\cell b\\cell\\row",
     "0,0:1x2 a/b"},
    {"MoreCellsThanDescribed", "\\trowd\\cellx1000\\intbl a\\cell b\\cell c\\cell\\row",
     "0,0 a; 0,1 b; 0,2 c"},
    {"FewerCellsThanDescribed", "\\trowd\\cellx1000\\cellx2000\\intbl a\\cell\\row", "0,0 a; 0,1 "},
    {"NoEndOfRow", "\\trowd\\cellx1000\\cellx2000\\intbl a\\cell b\\cell\\pard c", "0,0 a; 0,1 b"},
    {"NoEndOfCell", "\\trowd\\cellx1000\\intbl a\\cell\\row\\intbl b\\row", "0,0 a; 1,0 b"},
    {"NoEndAtAll", "\\trowd\\cellx1000\\intbl a", "0,0 a"},
    {"EdgesGoingBack", "\\trowd\\cellx1000\\cellx500\\intbl a\\cell b\\cell\\row", "0,0 a; 0,1 b"},
    {"AbsurdEdges",
     "\\trowd\\cellx-1000000000\\cellx1000000000\\cellx1000000000\\intbl a\\cell b\\cell c\\cell\\row",
     "0,0 a; 0,1 b; 0,2 c"},
};

INSTANTIATE_TEST_SUITE_P(Rows, RtfReaderTable, testing::ValuesIn(tableRows),
                         [](const auto &row) { return row.param.name; });

TEST(RtfReaderTables, StandBetweenParagraphs)
{
    EXPECT_EQ(textOf(framed("a\\par\\trowd\\cellx99\\intbl b\\cell\\row\\pard c\\par")), "a|b|c");
    EXPECT_EQ(textOf(framed("\\trowd\\cellx99\\intbl b\\cell\\row\\pard c\\par")), "|b|c");
    EXPECT_EQ(textOf(framed("\\trowd\\cellx99\\intbl b\\cell\\row")), "|b|");
}

TEST(RtfReaderTables, Nested)
{
    ReadDocument read(
        framed("\\trowd\\cellx5000\\pard\\intbl a\\par\\pard\\intbl\\itap2 b\\nestcell c\\nestcell"
               "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000\\nestrow}{\\nonesttables\\par}"
               "\\pard\\intbl d\\cell\\row"));
    ASSERT_TRUE(tableOf(read));
    ASSERT_EQ(tableOf(read)->childFrames().size(), 1);
    EXPECT_EQ(cellsOf(*qobject_cast<QTextTable *>(tableOf(read)->childFrames().constFirst())),
              "0,0 b; 0,1 c");
    EXPECT_EQ(cellsOf(*tableOf(read)), "0,0 a/d");
}

TEST(RtfReaderTables, NestedAtTheStartOfACell)
{
    ReadDocument read(framed("\\trowd\\clcbpat2\\cellx5000\\pard\\intbl\\itap2 b\\nestcell"
                             "{\\*\\nesttableprops\\trowd\\cellx1000\\nestrow}\\pard\\intbl\\cell\\row"));
    ASSERT_TRUE(tableOf(read));
    EXPECT_EQ(tableOf(read)->cellAt(0, 0).format().background().color(), QColor(Qt::blue));
    EXPECT_EQ(tableOf(read)->childFrames().size(), 1);
}

TEST(RtfReaderTables, LinesOfCells)
{
    ReadDocument read(framed("\\trowd\\clbrdrb\\brdrs\\brdrw30\\brdrcf1\\clbrdrl\\brdrdot\\cellx1500"
                             "\\clbrdrt\\brdrdb\\brdrw15\\cellx3000\\intbl a\\cell b\\cell\\row"));
    ASSERT_TRUE(tableOf(read));
    EXPECT_TRUE(tableOf(read)->format().borderCollapse());
    EXPECT_EQ(tableOf(read)->format().border(), 0);
    const QTextTableCellFormat a = tableOf(read)->cellAt(0, 0).format().toTableCellFormat();
    EXPECT_EQ(a.bottomBorder(), 2);
    EXPECT_EQ(a.bottomBorderStyle(), QTextFrameFormat::BorderStyle_Solid);
    EXPECT_EQ(a.bottomBorderBrush().color(), QColor(Qt::red));
    EXPECT_EQ(a.leftBorder(), 1);
    EXPECT_EQ(a.leftBorderStyle(), QTextFrameFormat::BorderStyle_Dotted);
    EXPECT_EQ(a.leftBorderBrush().color(), QColor(Qt::black));
    EXPECT_FALSE(a.hasProperty(QTextFormat::TableCellTopBorder));
    const QTextTableCellFormat b = tableOf(read)->cellAt(0, 1).format().toTableCellFormat();
    EXPECT_EQ(b.topBorder(), 3); // two lines, and as much between them
    EXPECT_EQ(b.topBorderStyle(), QTextFrameFormat::BorderStyle_Double);
    EXPECT_FALSE(b.hasProperty(QTextFormat::TableCellRightBorder));
}

TEST(RtfReaderTables, LinesAlikeAroundAllCellsAreThoseOfTheTable)
{
    const QByteArray lines = "\\clbrdrt\\brdrdash\\clbrdrl\\brdrdash\\clbrdrb\\brdrdash\\clbrdrr\\brdrdash";
    const QByteArray row =
        "\\trowd" + lines + "\\cellx1500" + lines + "\\cellx3000\\intbl a\\cell b\\cell\\row";
    ReadDocument read(framed(row + row));
    ASSERT_TRUE(tableOf(read));
    EXPECT_EQ(tableOf(read)->format().border(), 1);
    EXPECT_EQ(tableOf(read)->format().borderStyle(), QTextFrameFormat::BorderStyle_Dashed);
    EXPECT_FALSE(tableOf(read)->cellAt(0, 0).format().hasProperty(QTextFormat::TableCellTopBorder));

    ReadDocument other(
        framed(row + "\\trowd" + lines + "\\cellx1500\\cellx3000\\intbl a\\cell b\\cell\\row"));
    ASSERT_TRUE(tableOf(other));
    EXPECT_EQ(tableOf(other)->format().border(), 0);
    EXPECT_TRUE(tableOf(other)->cellAt(0, 1).format().hasProperty(QTextFormat::TableCellTopBorder));
    EXPECT_FALSE(tableOf(other)->cellAt(1, 1).format().hasProperty(QTextFormat::TableCellTopBorder));
}

TEST(RtfReaderTables, Looks)
{
    ReadDocument read(
        framed("\\trowd\\trgaph75\\trbrdrt\\brdrs\\brdrw30\\brdrcf1\\clcbpat2\\clvertalc\\cellx1500"
               "\\cellx3000\\intbl{\\b a}\\cell b\\cell\\row"));
    ASSERT_TRUE(tableOf(read));
    const QTextTableFormat format = tableOf(read)->format();
    EXPECT_EQ(format.stringProperty(RichTextProperty::RowTwips), QStringLiteral("1500 3000"));
    ASSERT_EQ(format.columnWidthConstraints().size(), 2);
    EXPECT_EQ(format.columnWidthConstraints().at(1).type(), QTextLength::FixedLength);
    EXPECT_EQ(format.borderStyle(), QTextFrameFormat::BorderStyle_Solid);
    EXPECT_EQ(format.borderBrush().color(), QColor(Qt::red));
    const QTextTableCell cell = tableOf(read)->cellAt(0, 0);
    EXPECT_EQ(cell.format().background().color(), QColor(Qt::blue));
    EXPECT_EQ(cell.format().verticalAlignment(), QTextCharFormat::AlignMiddle);
    EXPECT_EQ(read.formatOf(QStringLiteral("a")).fontWeight(), int(QFont::Bold));
}

TEST(RtfReaderTables, BetweenTheMargins)
{
    const auto alignment = [](const QByteArray &words) {
        ReadDocument read(framed("\\trowd" + words + "\\cellx1500\\intbl a\\cell\\row"));
        return tableOf(read) ? int(tableOf(read)->format().alignment()) : -1;
    };
    EXPECT_EQ(alignment("\\trqr"), int(Qt::AlignRight));
    EXPECT_EQ(alignment("\\trqc"), int(Qt::AlignHCenter));
    EXPECT_EQ(alignment("\\trqr\\trql"), 0);
}

TEST(RtfReaderTables, LinesOfParagraphsAreNotTheTables)
{
    ReadDocument read(
        framed("\\trowd\\clbrdrt\\brdrnone\\cellx1500\\pard\\intbl\\brdrb\\brdrs a\\cell\\row"));
    ASSERT_TRUE(tableOf(read));
    EXPECT_EQ(tableOf(read)->format().border(), 0);
}

TEST(RtfReaderTables, ManyRowsStayOneTable)
{
    constexpr int count = 10000;
    QByteArray body;
    for (int i = 0; i < count; ++i)
        body += "\\trowd\\cellx1000\\cellx2000\\intbl a\\cell b\\cell\\row\n";
    ReadDocument read(framed(body));
    ASSERT_TRUE(tableOf(read));
    EXPECT_EQ(tableOf(read)->rows(), count);
    EXPECT_EQ(tableOf(read)->columns(), 2);
}

TEST(RtfReaderTables, CellsWithoutEnd)
{
    constexpr int count = 1000;
    ReadDocument read(framed("\\trowd\\cellx100\\intbl " + QByteArray("a\\cell ").repeated(count)));
    EXPECT_EQ(read.document().toRawText().count(u'a'), count);
}

} // namespace

/// No deeper than a file may say, or they would come back otherwise.
TEST(RtfReaderTables, OfShapesAreNotDeeperThanOthers)
{
    ReadDocument read(framed("\\trowd\\cellx900\\intbl\\itap16{\\*\\nesttableprops\\trowd\\cellx900}"
                             "{\\shp{\\*\\shpinst{\\shptxt\\trowd\\cellx900\\intbl x\\cell\\row}}}"));
    const QTextCursor x = read.document().find(QStringLiteral("x"));
    int depth = 0;
    for (const QTextFrame *frame = x.currentFrame(); frame->parentFrame(); frame = frame->parentFrame())
        ++depth;
    EXPECT_EQ(depth, 16);
}
