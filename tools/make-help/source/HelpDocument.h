#pragma once

class QString;
class QTextDocument;
struct HelpSource;

/// The look of a help topic. Text has the automatic color, so that it suits whatever paper it is shown on.
namespace HelpDocument {

/// Fills the empty \a document. The pictures are in \a folder. Throws HelpError for one that is missing, no
/// PNG file, or too wide.
void fill(QTextDocument &document, const HelpSource &source, const QString &folder);

} // namespace HelpDocument
