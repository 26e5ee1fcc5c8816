#include "TextPrinter.h"

#include "PagePainter.h"
#include "ParagraphFormat.h"
#include "Pictures.h"
#include "PrintJob.h"
#include "RowsAcrossPages.h"
#include "RuntimeError.h"
#include "SmallCapitals.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPrinter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <numeric>

namespace {

constexpr int layoutDpi = 288; // fonts, by half points, and the screen's pixels come to whole dots

/// What pages are laid out for. Not the printer, with whose many dots Qt's numbers end after some hundred
/// pages.
QImage layoutDevice()
{
    constexpr double inchesPerMeter = 1 / 0.0254;
    QImage device(1, 1, QImage::Format_RGB32);
    device.setDotsPerMeterX(qRound(layoutDpi * inchesPerMeter));
    device.setDotsPerMeterY(qRound(layoutDpi * inchesPerMeter));
    return device;
}

/// Gives the letters their own widths, not those that a desktop's hinting rounds for its screen.
void spaceForPaper(QTextDocument &document)
{
    QFont font = document.defaultFont();
    font.setHintingPreference(QFont::PreferNoHinting);
    document.setDefaultFont(font);
}

/// Qt scales text, pictures, tables and the space between lines and paragraphs to a device, but not the
/// indents.
void scaleIndents(QTextDocument &document, double factor)
{
    QTextCursor edit(&document);
    edit.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.setLeftMargin(format.leftMargin() * factor);
        format.setRightMargin(format.rightMargin() * factor);
        format.setTextIndent(format.textIndent() * factor);
        edit.setPosition(block.position());
        edit.setBlockFormat(format);
    }
    edit.endEditBlock();
}

/// Qt paints the line before a page and the one behind it too. With room of a page's height above and below
/// each page's text, as PagePainter has it, these fall off the paper.
void partPages(QTextDocument &document, double distance)
{
    QTextFrameFormat frame = document.rootFrame()->frameFormat();
    frame.setMargin(0);
    frame.setTopMargin(distance);
    frame.setBottomMargin(distance);
    document.rootFrame()->setFrameFormat(frame);
}

void layOut(QTextDocument &document, const QPrinter &printer, QPaintDevice &device)
{
    const QSizeF paper = printer.pageLayout().paintRect(QPageLayout::Inch).size();
    if (paper.isEmpty()) // the margins leave nothing
        throw RuntimeError(ErrorNumber::PrinterError);
    const QSizeF onScreen = paper * ParagraphFormat::layoutDpi();
    document.setUndoRedoEnabled(false);
    spaceForPaper(document);
    Pictures::shrinkTo(onScreen, document);
    SmallCapitals::spellOut(document);
    scaleIndents(document, layoutDpi / ParagraphFormat::layoutDpi());
    partPages(document, onScreen.height());
    // The device before the page: a page size given first is taken in the screen's pixels.
    document.documentLayout()->setPaintDevice(&device);
    document.setPageSize({paper.width() * layoutDpi, 3 * paper.height() * layoutDpi});
    RowsAcrossPages::alignTop(document);
}

/// The pages in the order in which they are printed. Copies are the printer's matter where it makes any.
QList<int> printOrder(const QPrinter &printer, int count)
{
    QList<int> pages(count);
    std::iota(pages.begin(), pages.end(), 0);
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::reverse(pages.begin(), pages.end());
    const int copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
    QList<int> order;
    for (int i = 0; i < copies * count; ++i)
        order.append(pages.at(printer.collateCopies() ? i % count : i / copies));
    return order;
}

} // namespace

void TextPrinter::print(QTextDocument &document, QPrinter &printer,
                        const std::optional<QTextCharFormat> &linkLook)
{
    QImage device = layoutDevice();
    layOut(document, printer, device);
    PrintJob job(printer);
    const double factor = double(printer.logicalDpiX()) / layoutDpi;
    job.painter().scale(factor, factor);
    const PagePainter pages(document, linkLook);
    bool isFirst = true;
    for (const int page : printOrder(printer, document.pageCount())) {
        if (!std::exchange(isFirst, false))
            job.newPage();
        pages.paint(page, job.painter());
    }
    job.finish();
}
