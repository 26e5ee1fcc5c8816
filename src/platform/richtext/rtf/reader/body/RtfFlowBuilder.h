#pragma once

#include "RtfRowReader.h"
#include "RtfTable.h"

#include <memory>
#include <vector>

/// Builds a flow in the order of the file: text, the ends of paragraphs, of cells and of rows.
///
/// Depths: 0 is the text outside tables, 1 a table, 2 a table in a cell of it. A table ends where a paragraph
/// of a lower depth does. What has neither an end of a row nor a described row is no table; its paragraphs
/// are kept as they are.
class RtfFlowBuilder
{
public:
    /// The text of the paragraph that is being read, and of its label.
    RtfFlow &paragraph() { return m_isLabel ? m_label : m_paragraph; }
    const RtfFlow &paragraph() const { return m_isLabel ? m_label : m_paragraph; }
    void setLabel(bool isLabel) { m_isLabel = isLabel; }
    bool isLabel() const { return m_isLabel; }
    /// The text behind the first tab of the label is the paragraph's after all, and so is what follows.
    /// True when that leaves no mark before the tab.
    bool splitLabel();
    bool hasText() const { return !m_paragraph.text.isEmpty(); }

    /// Without \a keepsLabel the label is dropped, since the list shows it.
    void endParagraph(int depth, const RtfFlow::Item &properties, bool keepsLabel);
    void endCell(int depth);
    void endRow(int depth);
    void append(int depth, RtfFlow &&flow);

    /// Ends all tables, with the row that the file may not have ended.
    void finish() { setDepth(0); }

    /// The description of rows in depth \a depth, 1 and up; all tables inside cells share one.
    RtfRowReader &row(int depth) { return depth > 1 ? m_nestedRow : m_row; }

    bool isInTable() const { return !m_tables.empty(); }
    /// What is complete outside tables; the caller may take it away.
    RtfFlow &flow() { return m_flow; }

private:
    RtfFlow &target() { return m_tables.empty() ? m_flow : m_tables.back()->flow; }
    void setDepth(int depth);
    void closeTable();
    void endRow(RtfTable &table, int depth);

    RtfFlow m_flow;
    RtfFlow m_paragraph;
    RtfFlow m_label;
    bool m_isLabel = false;
    RtfRowReader m_row;
    RtfRowReader m_nestedRow;
    std::vector<std::unique_ptr<RtfTable>> m_tables; ///< open ones, the outer first
};
