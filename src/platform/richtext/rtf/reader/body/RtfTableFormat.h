#pragma once

#include "RtfTableGrid.h"

#include <QTextTableCell>
#include <QTextTableFormat>

struct RtfTable;
class RtfColorTable;

/// What rows of the file say about looks, as formats of Qt's tables.
namespace RtfTableFormat {

QTextTableFormat table(const RtfTable &table, const RtfTableGrid &grid, const RtfColorTable &colors);

QTextTableCellFormat cell(const RtfTable &table, const RtfTableGrid::Cell &cell, const RtfColorTable &colors);

} // namespace RtfTableFormat
