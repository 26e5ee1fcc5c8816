#include "RtfFlowBuilder.h"

void RtfFlowBuilder::setDepth(int depth)
{
    while (int(m_tables.size()) > depth)
        closeTable();
    while (int(m_tables.size()) < depth)
        m_tables.push_back(std::make_unique<RtfTable>());
}

void RtfFlowBuilder::endParagraph(int depth, const RtfFlow::Item &properties, bool keepsLabel)
{
    setDepth(depth);
    RtfFlow &flow = target();
    if (keepsLabel)
        flow.append(std::move(m_label));
    flow.append(std::move(m_paragraph));
    flow.endParagraph(properties);
    m_label.clear();
    m_paragraph.clear();
}

bool RtfFlowBuilder::splitLabel()
{
    RtfFlow text = std::move(m_label);
    m_label = text.takeStart(int(text.text.indexOf(u'\t')) + 1);
    text.append(std::move(m_paragraph));
    m_paragraph = std::move(text);
    m_isLabel = false;
    return m_label.text.size() <= 1;
}

void RtfFlowBuilder::endCell(int depth)
{
    setDepth(depth);
    RtfTable &table = *m_tables.back();
    table.cells.push_back(int(table.flow.items.size()));
    const int behindRows = table.rows.empty() ? 0 : table.rows.back().cellsEnd;
    if (table.cells.size() - size_t(behindRows) == RtfRow::mostCells)
        endRow(table, depth);
}

void RtfFlowBuilder::endRow(int depth)
{
    setDepth(depth);
    endRow(*m_tables.back(), depth);
}

void RtfFlowBuilder::endRow(RtfTable &table, int depth)
{
    const int items = int(table.flow.items.size());
    const int behindCells = table.cells.empty() ? 0 : table.cells.back();
    if (behindCells < items)
        table.cells.push_back(items);
    const int behindRows = table.rows.empty() ? 0 : table.rows.back().cellsEnd;
    const int count = int(table.cells.size()) - behindRows;
    if (count == 0)
        return;
    // Inner rows that are not described are like those before; the description may be of a table within.
    const bool isRepeated = depth > 1 && !row(depth).takeDescription() && !table.definitions.empty();
    RtfRow definition = row(depth).isDescribed() ? row(depth).row() : RtfRow();
    if (isRepeated)
        definition = table.definitions.back();
    definition.ensureCells(size_t(count));
    if (table.definitions.empty() || table.definitions.back() != definition) {
        table.definitions.push_back(std::move(definition));
        const RtfRow::Line &first = table.definitions.front().cells.front().lines[0];
        table.hasLinesOfCells = table.hasLinesOfCells || !table.definitions.back().isLined(first);
    }
    table.rows.push_back({int(table.cells.size()), int(table.definitions.size()) - 1});
}

void RtfFlowBuilder::append(int depth, RtfFlow &&flow)
{
    setDepth(depth);
    target().append(std::move(flow));
}

void RtfFlowBuilder::closeTable()
{
    const int depth = int(m_tables.size());
    std::unique_ptr<RtfTable> table = std::move(m_tables.back());
    m_tables.pop_back();
    if (!table->rows.empty() || row(depth).isDescribed())
        endRow(*table, depth);
    if (table->rows.empty())
        target().append(std::move(table->flow));
    else
        target().addTable(std::move(table));
}
