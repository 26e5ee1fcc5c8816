#pragma once

#include <QImage>
#include <QSizeF>

class QTextDocument;

/// Documents laid out for paper, as they are on the screen.
namespace PaperLayout {

inline constexpr int dpi = 288; ///< fonts, by half points, and the screen's pixels come to whole dots

/// What documents are laid out for, which must outlive their layout. Not the printer, with whose many dots
/// Qt's numbers end after some hundred pages.
QImage device();

/// Fits \a document to \a text, the size of a page's text in inches: what is larger is shrunk, and lengths
/// that Qt does not scale to devices are scaled.
void fit(QTextDocument &document, const QSizeF &text);

} // namespace PaperLayout
