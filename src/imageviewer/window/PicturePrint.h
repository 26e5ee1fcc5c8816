#pragma once

#include <QImage>

class QPrinter;

/// A picture on paper.
namespace PicturePrint {

/// Prints \a picture at the page's top left corner, as near to the paper's as \a printer reaches. A pixel is
/// as large as one of a display with \a dpi dots per inch; what is larger than the page is cut off. Throws
/// RuntimeError as PrintJob does. The printer has its margins again afterwards.
void print(const QImage &picture, QPrinter &printer, const QSize &dpi);

} // namespace PicturePrint
