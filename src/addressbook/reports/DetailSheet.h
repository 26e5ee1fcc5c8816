#pragma once

class QString;
struct ReportRecord;

/// The rich text of a detail sheet, which has one contact or two. The lines end in CR LF.
///
/// Intended: values are put in as they are, so that a brace or a backslash in a name is markup, as
/// ReportValue has it, and line breaks of an address are those of the file.
namespace DetailSheet {

/// The document's head and its first contact.
QString first(const ReportRecord &contact);

/// The second contact and the document's end.
QString second(const ReportRecord &contact);

/// The end of a document with one contact.
QString end();

} // namespace DetailSheet
