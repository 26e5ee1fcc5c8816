#pragma once

#include "CellEdges.h"
#include "TableEdges.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <optional>

class QPainter;

/// Paints the pages of a document that is laid out for paper: a third of each page's height in the middle is
/// for its text.
class PagePainter
{
public:
    /// Web and mail addresses look like \a linkLook, if given. \a document is not to change as long as this
    /// lives.
    PagePainter(const QTextDocument &document, const std::optional<QTextCharFormat> &linkLook);

    /// Page \a number, from 0, in the dots that the document is laid out for, with the text's upper left
    /// corner at the painter's origin.
    void paint(int number, QPainter &painter) const;

private:
    QRectF area(int number) const;
    void markLinks(const QTextCharFormat &look);
    void findLines();
    void paintPart(const QRectF &part, int number, QPainter &painter) const;
    void paintLines(int number, QPainter &painter) const;
    void paintCircles(int number, QPainter &painter) const;
    void closeTables(int number, QPainter &painter) const;
    void closeCells(int number, QPainter &painter) const;

    using Marks = QList<QAbstractTextDocumentLayout::Selection>;

    const QTextDocument &m_document;
    QList<Marks> m_marks; ///< of each page its own, as the painting of a paragraph looks at every mark
    QMultiHash<int, QTextBlock> m_lined; ///< paragraphs with lines around them
    QMultiHash<int, QRectF> m_circles;
    QMultiHash<int, TableEdges::ClosingLine> m_closingLines;
    CellEdges m_cellEdges;
};
