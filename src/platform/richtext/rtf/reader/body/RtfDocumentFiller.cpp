#include "RtfDocumentFiller.h"

#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RtfFormats.h"
#include "RtfLists.h"
#include "RtfTable.h"
#include "RtfTableFormat.h"
#include "RtfTableLayout.h"

#include <QTextList>
#include <QTextTable>

namespace {

const RtfFlow::Item &firstParagraph(const RtfTable &table)
{
    const RtfFlow::Item &first = table.flow.items.front();
    return first.table < 0 ? first : firstParagraph(*table.flow.tables[size_t(first.table)]);
}

} // namespace

RtfDocumentFiller::RtfDocumentFiller(QTextDocument &document, const RtfFormats &formats,
                                     const RtfColorTable &colors, const RtfLists &lists)
    : m_formats(formats)
    , m_colors(colors)
    , m_lists(lists)
    , m_cursor(&document)
{
    m_cursor.beginEditBlock();
}

RtfDocumentFiller::~RtfDocumentFiller()
{
    m_cursor.endEditBlock();
}

void RtfDocumentFiller::append(const RtfFlow &flow)
{
    items(flow, 0, int(flow.items.size()));
}

void RtfDocumentFiller::addUnseen(const Unseen::Pieces &pieces)
{
    QTextCharFormat end = m_cursor.blockCharFormat();
    Unseen::set(end, Unseen::of(end) + pieces);
    m_cursor.setBlockCharFormat(end);
}

void RtfDocumentFiller::items(const RtfFlow &flow, int first, int end)
{
    for (int i = first; i < end; ++i) {
        const int inner = flow.items[size_t(i)].table;
        if (inner >= 0)
            table(*flow.tables[size_t(inner)]);
        else
            paragraph(flow, i);
    }
}

void RtfDocumentFiller::paragraph(const RtfFlow &flow, int index)
{
    const RtfFlow::Item &item = flow.items[size_t(index)];
    const RtfFlow::Item before = index == 0 ? RtfFlow::Item() : flow.items[size_t(index) - 1];
    beginBlock(item);
    int start = before.textEnd;
    for (int i = before.runsEnd; i < item.runsEnd; ++i) {
        const RtfFlow::Run &run = flow.runs[size_t(i)];
        m_cursor.insertText(flow.text.mid(start, run.end - start), m_formats.characters(run.format));
        start = run.end;
    }
}

void RtfDocumentFiller::beginBlock(const RtfFlow::Item &item)
{
    const QTextBlockFormat format = blockFormat(item);
    const QTextCharFormat &mark = m_formats.characters(item.markFormat);
    if (!m_isBlockFree) {
        m_cursor.insertBlock(format, mark);
    } else if (m_isInCell) {
        QTextCharFormat cell = mark;
        cell.merge(m_cellFormat);
        m_cursor.setBlockCharFormat(cell);
        m_cursor.setBlockFormat(format);
    } else {
        m_cursor.setBlockCharFormat(mark);
        m_cursor.setBlockFormat(format);
    }
    m_isBlockFree = false;
    m_isInCell = false;
    if (item.list >= 0 && !m_listObjects.contains(item.list))
        m_listObjects.insert(item.list, m_cursor.createList(m_lists.format(item.list))->objectIndex());
}

/// The first item of a list gets its block before there is a list to belong to.
QTextBlockFormat RtfDocumentFiller::blockFormat(const RtfFlow::Item &item)
{
    const QTextBlockFormat &format = m_formats.paragraph(item.format);
    const auto list = m_listObjects.constFind(item.list);
    if (list == m_listObjects.constEnd())
        return format;
    QTextBlockFormat &known = m_itemFormats[{item.format, item.list}];
    if (!known.isValid() || known.objectIndex() < 0) {
        known = format;
        known.setObjectIndex(*list);
    }
    return known;
}

void RtfDocumentFiller::table(const RtfTable &table)
{
    RtfTableLayout layout(table);
    const std::vector<RtfTableGrid> grids = layout.grids();
    if (m_isBlockFree)
        fillBefore(table, m_isBehindTable ? Before::PartsTables : Before::IsNone);
    for (size_t i = 0; i < grids.size(); ++i) {
        if (i > 0)
            fillBefore(table, Before::IsNone);
        grid(table, layout, grids[i]);
    }
}

/// Qt's own steps to merge cells and to add rows look at the whole table each time. A table is a row of cells
/// that know their spans, broken by a number of columns: so the cells are inserted as one column, filled in
/// order, and the number of columns is set at the end.
void RtfDocumentFiller::grid(const RtfTable &table, const RtfTableLayout &layout, const RtfTableGrid &grid)
{
    settleCell();
    QTextTableFormat format = RtfTableFormat::table(table, grid, m_colors);
    QTextTable *inserted = m_cursor.insertTable(int(grid.cells.size()), 1, format);
    int position = inserted->firstPosition();
    for (size_t i = 0; i < grid.cells.size(); ++i) {
        m_cursor.setPosition(position);
        cell(table, layout, grid, i);
        position = m_cursor.position() + 1;
    }
    format.setColumns(grid.columns());
    inserted->QTextFrame::setFrameFormat(format);
    m_cursor.setPosition(position);
    m_isBlockFree = true;
    m_isBehindTable = true;
    m_isInCell = false;
}

/// The paragraph that Qt has before \a table.
void RtfDocumentFiller::fillBefore(const RtfTable &table, Before before)
{
    QTextBlockFormat format;
    if (before == Before::IsNone)
        format.setProperty(RichTextProperty::OnlyBeforeTable, true);
    const RtfFlow::Item &first = firstParagraph(table);
    if (const int note = m_formats.paragraph(first.format).intProperty(RichTextProperty::Note); note != 0)
        format.setProperty(RichTextProperty::Note, note);
    m_cursor.setBlockFormat(format);
    QTextCharFormat text = m_formats.characters(first.markFormat);
    text.clearProperty(RichTextProperty::Unseen);
    if (m_isInCell)
        text.merge(m_cellFormat);
    m_cursor.setBlockCharFormat(text);
    m_isInCell = false;
}

void RtfDocumentFiller::cell(const RtfTable &table, const RtfTableLayout &layout, const RtfTableGrid &grid,
                             size_t index)
{
    m_isBlockFree = true;
    m_isBehindTable = false;
    m_isInCell = true;
    m_cellFormat = RtfTableFormat::cell(table, grid.cells[index], m_colors);
    for (int part = grid.cells[index].firstPart; part >= 0; part = layout.nextPart(part)) {
        const int first = part == 0 ? 0 : table.cells[size_t(part) - 1];
        items(table.flow, first, table.cells[size_t(part)]);
    }
    settleCell();
}

void RtfDocumentFiller::settleCell()
{
    if (m_isInCell)
        m_cursor.setBlockCharFormat(m_cellFormat);
    m_isInCell = false;
}
