#pragma once

#include "RtfFlow.h"
#include "Unseen.h"

#include <QHash>
#include <QList>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>

class QTextTable;
class RtfColorTable;
class RtfFormats;
class RtfLists;
class RtfTableLayout;
struct RtfTableGrid;

/// Puts flows at the end of a document.
class RtfDocumentFiller
{
public:
    RtfDocumentFiller(QTextDocument &document, const RtfFormats &formats, const RtfColorTable &colors,
                      const RtfLists &lists);
    ~RtfDocumentFiller();

    void append(const RtfFlow &flow);
    /// Behind all that is there.
    void addUnseen(const Unseen::Pieces &pieces);

private:
    /// Of \a flow the items from \a first to before \a end.
    void items(const RtfFlow &flow, int first, int end);
    void paragraph(const RtfFlow &flow, int index);
    void beginBlock(const RtfFlow::Item &item);
    QTextBlockFormat blockFormat(const RtfFlow::Item &item);

    void table(const RtfTable &table);
    void grid(const RtfTable &table, const RtfTableLayout &layout, const RtfTableGrid &grid);
    /// Gives the cell its format where no paragraph of its own did.
    void settleCell();
    enum class Before { IsNone, PartsTables }; ///< of the file's, or it would take two tables for one
    void fillBefore(const RtfTable &table, Before before);
    void cell(const RtfTable &table, const RtfTableLayout &layout, const RtfTableGrid &grid, size_t index);

    const RtfFormats &m_formats;
    const RtfColorTable &m_colors;
    const RtfLists &m_lists;
    QTextCursor m_cursor;
    bool m_isBlockFree = true;    ///< the cursor's block is empty and waits for a paragraph
    bool m_isBehindTable = false; ///< and it follows a table
    bool m_isInCell = false;      ///< and it is the first of a cell, whose format its own one is
    QTextCharFormat m_cellFormat;
    QHash<int, int> m_listObjects;
    QHash<std::pair<int, int>, QTextBlockFormat> m_itemFormats; ///< by paragraph format and list
};
