#pragma once

#include <QBrush>
#include <QMultiHash>
#include <QRectF>
#include <QTextFrameFormat>

class QPainter;
class QTextDocument;
class QTextTable;
class QTextTableCell;

/// Cells with lines of their own that reach to a page's edge, where Qt leaves them open.
class CellEdges
{
public:
    /// Finds the lines that close the cells of \a document, whose pages are as PagePainter has them; none
    /// when built without Qt's private headers.
    explicit CellEdges(const QTextDocument &document);

    /// Paints those of \a page, from 0, where they are in the document, in the room around the page's text.
    void paint(int page, QPainter &painter) const;

private:
    struct Border
    {
        double width = 0; ///< dots
        QTextFrameFormat::BorderStyle style = QTextFrameFormat::BorderStyle_None;
        QBrush brush;
    };
    struct Line
    {
        QRectF area;
        Border border;
    };

    static Border upperBorder(const QTextTable &table, const QTextTableCell &cell);
    static Border lowerBorder(const QTextTable &table, const QTextTableCell &cell);
    static Border lineAbove(const QTextTable &table, const QTextTableCell &cell);
    static Border lineBelow(const QTextTable &table, const QTextTableCell &cell);
    static void paint(const Line &line, QPainter &painter);
    void close(QTextTable &table);
    void close(QTextTable &table, const QTextTableCell &cell);
    void closeAbove(const QRectF &area, const Border &border);
    void closeBelow(const QRectF &area, const Border &border);

    double m_pageHeight;
    QMultiHash<int, Line> m_lines; ///< by the page
};
