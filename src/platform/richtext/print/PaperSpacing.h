#pragma once

class QTextBlock;
class QTextDocument;

/// The space before and after paragraphs as rich text means it, where Qt has less of it.
namespace PaperSpacing {

/// Before the first and after the last paragraph of a cell, before and after tables, and both the space after
/// a paragraph and that before the next one. Text that comes from elsewhere, such as HTML, has the larger of
/// these.
void complete(QTextDocument &document);

/// Puts an empty line \a height pixels high before \a paragraph, whose own space before it is removed.
void insertBefore(const QTextBlock &paragraph, double height);

} // namespace PaperSpacing
