#pragma once

#include <QTextCharFormat>
#include <optional>

class PrintJob;
class QPrinter;
class QTextDocument;

/// Puts documents on paper as they are on the screen.
namespace TextPrinter {

/// Prints \a document, which is fitted to the paper and not to be shown afterwards. Paper and margins are the
/// document's; those that it does not say are the printer's. Its headers and footers are on each page, and
/// text begins below tall ones. A line moves to the next page rather than being cut, and a picture larger
/// than its column or the page is shrunk to it. Web and mail addresses look like \a linkLook, if given.
/// Copies that the printer does not make itself, as a file cannot, are pages of their own. Throws
/// RuntimeError as PrintJob does, and 482 where the margins leave no paper.
void print(QTextDocument &document, QPrinter &printer, const std::optional<QTextCharFormat> &linkLook);

/// The same as further pages of \a job, on the paper that its printer has.
void print(QTextDocument &document, PrintJob &job, const std::optional<QTextCharFormat> &linkLook);

} // namespace TextPrinter
