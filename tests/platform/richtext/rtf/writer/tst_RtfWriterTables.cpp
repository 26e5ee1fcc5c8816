#include "RichTextProperties.h"
#include "WrittenBody.h"

#include <QTextTable>
#include <gtest/gtest.h>

namespace {

QTextTableFormat unframed()
{
    QTextTableFormat format;
    format.setBorder(0);
    format.setCellPadding(0);
    return format;
}

void write(QTextTable *table, int row, int column, const QString &text)
{
    table->cellAt(row, column).firstCursorPosition().insertText(text);
}

/// Nine cells, "a" to "i".
struct RtfWriterTables : testing::Test
{
    RtfWriterTables()
    {
        QTextCursor cursor(&document);
        table = cursor.insertTable(3, 3, unframed());
        for (int i = 0; i < 9; ++i)
            write(table, i / 3, i % 3, QString(QChar(u'a' + i)));
    }

    PlainDocument document;
    QTextTable *table = nullptr;
};

} // namespace

TEST_F(RtfWriterTables, AreRowsOfCells)
{
    table->removeRows(1, 2);
    EXPECT_EQ(bodyOf(document), QByteArray("\\par\n\\trowd\\cellx3000\\cellx6000\\cellx9000\n"
                                           "\\pard\\intbl a\\cell\nb\\cell\nc\\cell\n\\row\n\\pard\\par\n"));
}

TEST_F(RtfWriterTables, MergeSideways)
{
    table->mergeCells(0, 0, 1, 2);
    const QByteArray body = bodyOf(document);
    EXPECT_TRUE(
        body.startsWith("\\par\n\\trowd\\cellx6000\\cellx9000\n\\pard\\intbl a b\\cell\nc\\cell\n\\row\n"
                        "\\trowd\\cellx3000\\cellx6000\\cellx9000\n"))
        << body.constData();
}

TEST_F(RtfWriterTables, MergeDownwards)
{
    table->mergeCells(0, 0, 3, 1);
    const QByteArray body = bodyOf(document);
    EXPECT_TRUE(body.contains(
        "\\trowd\\clvmgf\\cellx3000\\cellx6000\\cellx9000\n\\pard\\intbl a\\par\nd\\par\ng\\cell\n"))
        << body.constData();
    EXPECT_EQ(body.count("\\trowd\\clvmrg\\cellx3000\\cellx6000\\cellx9000\n\\cell\n"), 2)
        << body.constData();
}

TEST_F(RtfWriterTables, NestInCells)
{
    QTextCursor cursor = table->cellAt(1, 1).lastCursorPosition();
    QTextTable *inner = cursor.insertTable(1, 1, unframed());
    write(inner, 0, 0, QStringLiteral("x"));
    EXPECT_TRUE(
        bodyOf(document).contains("e\\par\n\\pard\\intbl\\itap2 x\\nestcell{\\nonesttables\\par}\n"
                                  "{\\*\\nesttableprops\\trowd\\cellx9000\\nestrow}{\\nonesttables\\par}\n"
                                  "\\pard\\intbl\\cell\n"))
        << bodyOf(document).constData();
}

TEST_F(RtfWriterTables, InnerCellsSayAllOfTheirParagraphs)
{
    QTextTable *inner = table->cellAt(1, 1).lastCursorPosition().insertTable(1, 2, unframed());
    write(inner, 0, 0, QStringLiteral("x"));
    write(inner, 0, 1, QStringLiteral("y"));
    EXPECT_TRUE(bodyOf(document).contains("\\pard\\intbl\\itap2 x\\nestcell{\\nonesttables\\par}\n"
                                          "\\pard\\intbl\\itap2 y\\nestcell{\\nonesttables\\par}\n"))
        << bodyOf(document).constData();
}

TEST_F(RtfWriterTables, KeepTheEdgesOfTheirColumns)
{
    QTextTableFormat format = unframed();
    format.setProperty(RichTextProperty::RowTwips, QStringLiteral("1441 2882 4000"));
    table->setFormat(format);
    EXPECT_EQ(bodyOf(document).count("\\trowd\\cellx1441\\cellx2882\\cellx4000\n"), 3);
}

TEST_F(RtfWriterTables, ForgetEdgesThatFitNoLonger)
{
    QTextTableFormat format = unframed();
    format.setProperty(RichTextProperty::RowTwips, QStringLiteral("1441 2882"));
    table->setFormat(format);
    EXPECT_EQ(bodyOf(document).count("\\trowd\\cellx3000\\cellx6000\\cellx9000\n"), 3);
}

TEST_F(RtfWriterTables, TakeTheWidthsOfColumns)
{
    QTextTableFormat format = unframed();
    format.setColumnWidthConstraints({QTextLength(QTextLength::FixedLength, 100),
                                      QTextLength(QTextLength::PercentageLength, 50), QTextLength()});
    table->setFormat(format);
    EXPECT_EQ(bodyOf(document).count("\\trowd\\cellx1500\\cellx6000\\cellx9000\n"), 3);
}

TEST_F(RtfWriterTables, AreDrawnInWhereTheyAreWiderThanCanBeSaid)
{
    QTextTableFormat format = unframed();
    format.setProperty(RichTextProperty::RowTwips, QStringLiteral("1000 65534 65535"));
    table->setFormat(format);
    EXPECT_EQ(bodyOf(document).count("\\trowd\\cellx499\\cellx32766\\cellx32767\n"), 3)
        << bodyOf(document).constData();
}

TEST_F(RtfWriterTables, KeepFramesAndColours)
{
    table->removeRows(1, 2);
    table->removeColumns(1, 2);
    QTextTableFormat format = unframed();
    format.setBorder(2);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Dotted);
    format.setBorderBrush(QColor(Qt::red));
    format.setAlignment(Qt::AlignHCenter);
    format.setCellPadding(4);
    format.setHeaderRowCount(1);
    table->setFormat(format);
    QTextTableCell cell = table->cellAt(0, 0);
    QTextCharFormat cellFormat = cell.format();
    cellFormat.setBackground(Qt::yellow);
    cellFormat.setVerticalAlignment(QTextCharFormat::AlignMiddle);
    cell.setFormat(cellFormat);
    const QByteArray line = "\\brdrdot\\brdrw30\\brdrcf1";
    EXPECT_TRUE(bodyOf(document).contains("\\trowd\\trqc\\trgaph60\\trhdr\\clvertalc\\clbrdrt" + line +
                                          "\\clbrdrl" + line + "\\clbrdrb" + line + "\\clbrdrr" + line +
                                          "\\clpadfl3\\clpadl60\\clpadfb3\\clpadb60\\clcbpat2\\cellx9000\n"))
        << bodyOf(document).constData();
}

TEST_F(RtfWriterTables, SelectedInsideOneCellAreText)
{
    QTextCursor cursor = table->cellAt(1, 1).firstCursorPosition();
    cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor);
    EXPECT_EQ(bodyOf(RtfWriter::writeSelection(cursor)), QByteArray("e"));
}

TEST_F(RtfWriterTables, SelectedByCellsAreTheRectangleOfThem)
{
    QTextCursor cursor = table->cellAt(0, 1).firstCursorPosition();
    cursor.setPosition(table->cellAt(1, 2).lastPosition(), QTextCursor::KeepAnchor);
    EXPECT_EQ(bodyOf(RtfWriter::writeSelection(cursor)),
              QByteArray("\\trowd\\cellx6000\\cellx9000\n\\pard\\intbl b\\cell\nc\\cell\n\\row\n"
                         "\\trowd\\cellx6000\\cellx9000\ne\\cell\nf\\cell\n\\row\n"));
}

TEST_F(RtfWriterTables, SelectedBackwardsAreTheSame)
{
    QTextCursor cursor = table->cellAt(0, 2).firstCursorPosition();
    cursor.setPosition(table->cellAt(1, 0).firstPosition(), QTextCursor::KeepAnchor);
    EXPECT_EQ(bodyOf(RtfWriter::writeSelection(cursor)).count("\\cell\n"), 6);
}

TEST_F(RtfWriterTables, SelectedFromOutsideAreWhole)
{
    QTextCursor cursor(&document);
    cursor.setPosition(table->cellAt(1, 1).firstPosition(), QTextCursor::KeepAnchor);
    EXPECT_EQ(bodyOf(RtfWriter::writeSelection(cursor)).count("\\row\n"), 3);
}
