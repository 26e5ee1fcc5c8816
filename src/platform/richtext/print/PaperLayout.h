#pragma once

#include <QImage>
#include <QSizeF>

class QTextDocument;

/// Documents laid out for paper, as they are on the screen.
namespace PaperLayout {

/// Dots to the inch. With both of them fonts, by half points, and the screen's pixels come to whole dots; Qt
/// makes each line as high as the next whole dot.
inline constexpr int coarseDpi = 288;
inline constexpr int fineDpi = 1152;

/// Dots, up to which Qt's numbers are good for a layout, with room to spare.
inline constexpr int farthest = 1 << 24;

/// What documents are laid out for, which must outlive their layout.
QImage device(int dpi);

/// Fits \a document to \a text, the size of a page's text in inches: what is larger is shrunk, and lengths
/// that Qt does not scale to devices are scaled to \a dpi.
void fit(QTextDocument &document, const QSizeF &text, int dpi);

/// Makes a document that was fitted to one of the resolutions fit the other.
void change(QTextDocument &document, int fromDpi, int toDpi);

} // namespace PaperLayout
