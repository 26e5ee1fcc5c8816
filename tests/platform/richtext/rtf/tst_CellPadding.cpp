#include "ReadDocument.h"
#include "RtfWriter.h"
#include "WrittenBody.h"

#include <QTextTable>
#include <gtest/gtest.h>

namespace {

/// The definition of the only row that \a words describe, as it is written after it was read.
std::string rowAgain(const QByteArray &words)
{
    ReadDocument read("{\\rtf1" + words + "\\intbl a\\cell b\\cell\\row\\pard}");
    const QByteArray written = RtfWriter::write(read.document());
    const qsizetype start = written.indexOf("\\trowd");
    return written.mid(start, written.indexOf('\n', start) - start).toStdString();
}

QTextTableCellFormat cellOf(const QByteArray &words, int column)
{
    ReadDocument read("{\\rtf1" + words + "\\intbl a\\cell b\\cell\\row\\pard}");
    const auto *table = qobject_cast<QTextTable *>(read.document().rootFrame()->childFrames().value(0));
    return table ? table->cellAt(0, column).format().toTableCellFormat() : QTextTableCellFormat();
}

} // namespace

TEST(CellPadding, TheGapIsBeforeAndBehindTheText)
{
    const QTextTableCellFormat cell = cellOf("\\trowd\\trgaph150\\cellx2000\\cellx4000", 1);
    EXPECT_EQ(cell.leftPadding(), 10);
    EXPECT_EQ(cell.rightPadding(), 10);
    EXPECT_EQ(cell.topPadding(), 0);
    EXPECT_EQ(cell.bottomPadding(), 0);
}

TEST(CellPadding, TheCellsWordsGoBeforeTheRowsAndThoseBeforeTheGap)
{
    const QByteArray words =
        "\\trowd\\trgaph150\\trpaddl300\\trpaddfl3\\trpaddt450\\trpaddft3\\trpaddb99\\trpaddfb0"
        "\\clpadl600\\clpadfl3\\clpadt750\\clpadft3\\clpadr88\\clpadfr0\\cellx2000\\cellx4000";
    const QTextTableCellFormat first = cellOf(words, 0);
    EXPECT_EQ(first.topPadding(), 40); // \clpadl
    EXPECT_EQ(first.leftPadding(), 50);
    EXPECT_EQ(first.rightPadding(), 10);
    EXPECT_EQ(first.bottomPadding(), 0);
    const QTextTableCellFormat second = cellOf(words, 1);
    EXPECT_EQ(second.topPadding(), 30);
    EXPECT_EQ(second.leftPadding(), 20);
}

TEST(CellPadding, IsWrittenBack)
{
    for (const char *row :
         {"\\trowd\\trgaph107\\trleft-107\\cellx2000\\cellx4001", "\\trowd\\cellx2000\\cellx4000",
          "\\trowd\\trgaph70\\clpadfl3\\clpadl33\\cellx2000"
          "\\clpadft3\\clpadt0\\clpadfb3\\clpadb55\\clpadfr3\\clpadr1\\cellx4000"})
        EXPECT_EQ(rowAgain(row), row);
}

TEST(CellPadding, OfATableFromElsewhereIsOnAllSides)
{
    PlainDocument document;
    QTextTableFormat format;
    format.setCellPadding(10);
    format.setBorder(0);
    QTextCursor(&document).insertTable(1, 1, format);
    EXPECT_TRUE(RtfWriter::write(document).contains(
        "\\trowd\\trgaph150\\clpadfl3\\clpadl150\\clpadfb3\\clpadb150\\cellx"))
        << RtfWriter::write(document).constData();
}

TEST(CellPadding, InnerRowsWithoutADescriptionAreLikeThoseBefore)
{
    ReadDocument read(
        "{\\rtf1\\trowd\\cellx8000\\intbl\\itap2 a\\nestcell b\\nestcell"
        "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx3000\\nestrow}"
        "\\itap2 c\\nestcell\\pard\\intbl\\itap3 x\\nestcell y\\nestcell"
        "{\\*\\nesttableprops\\trowd\\cellx500\\cellx700\\nestrow}"
        "\\pard\\intbl\\itap2 d\\nestcell{\\*\\nesttableprops\\nestrow}\\pard\\intbl\\cell\\row\\pard}");
    const QByteArray written = RtfWriter::write(read.document());
    EXPECT_EQ(written.count("\\cellx1000\\cellx3000\\nestrow"), 2) << written.constData();
    EXPECT_EQ(written.count("\\cellx500\\cellx700\\nestrow"), 1);
}
