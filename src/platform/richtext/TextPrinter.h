#pragma once

class QPagedPaintDevice;
class QTextDocument;

/// Puts documents on paper.
namespace TextPrinter {

/// Prints \a document, which is fitted to the paper and not to be shown afterwards. The device's own page
/// margins are the only ones; there is no page number.
void print(QTextDocument &document, QPagedPaintDevice &device);

} // namespace TextPrinter
