#pragma once

class QString;
struct ReportRecord;

/// The rich text of the summary, one row for each contact. The lines end in CR LF. Values are put in as
/// DetailSheet does, cut and filled up with blanks to the widths of the columns.
namespace SummaryTable {

/// The document's head and its first row.
QString firstRow(const ReportRecord &contact);

QString row(const ReportRecord &contact);

/// The document's end.
QString end();

} // namespace SummaryTable
