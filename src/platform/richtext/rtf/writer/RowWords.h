#pragma once

#include <QByteArray>
#include <QList>

class QTextTable;
class QTextTableCell;
class WrittenColours;

/// The definitions of a table's rows: where its cells end, how they are merged, framed and coloured.
class RowWords
{
public:
    /// \a firstRow is the first that is written.
    RowWords(const QTextTable &table, int firstRow, WrittenColours &colours);

    /// The definition of \a row, of which only the columns \a first to \a last are written.
    QByteArray row(int row, int first, int last);

private:
    QByteArray cell(int row, int column) const;
    QByteArray borders() const;
    void appendPadding(QByteArray &out, const QTextTableCell &cell) const;

    const QTextTable &m_table;
    const int m_firstRow;
    WrittenColours &m_colours;
    QList<int> m_edges; ///< twips, the right edge of each column
    int m_gap;          ///< twips, before and behind the text of cells that say nothing else
    QByteArray m_start;
    QByteArray m_borders;
};
