#pragma once

class ListView;

// The printed reports on the contacts that are checked in the address book's list. Each writes a rich-text
// file into the program's folder, which stays there, and prints it from the hidden frmPrintDocument.
//
// Over a list of anything but contacts they do nothing, and where no contact is checked a box says so.

/// Prints a detail sheet of each contact, two to a document ("recordtest.rtf"). The user chooses the printer
/// at the first document; cancelling that ends the run, unless the document has one contact, which is then
/// not printed.
///
/// From the first pair on an error ends the run with a box; before it, it is thrown: RuntimeError with the
/// numbers of DataError, and as Files::write throws. What was printed before the error is kept. The printing
/// of a last single contact fails silently.
void PrintSelectedRecords(const ListView &list);

/// Prints one table of all contacts ("recordtestr.rtf"). An error ends it with a box, but the printing itself
/// fails silently.
void PrintSummary(const ListView &list);

/// Begins "recordtest.rtf" with the contact that was read last.
void WriteFirstDetail();
