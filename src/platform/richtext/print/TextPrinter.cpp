#include "TextPrinter.h"

#include "PagePainter.h"
#include "PageTextPainter.h"
#include "PaperLayout.h"
#include "ParagraphFormat.h"
#include "PrintJob.h"
#include "PrinterPaper.h"
#include "RowsAcrossPages.h"

#include <QAbstractTextDocumentLayout>
#include <QPrinter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <numeric>

namespace {

/// Moves the text away from headers and footers that reach into it; a negative margin lets them.
void makeRoom(PageArea &area, const PageTextPainter &texts, const PageSetup &setup)
{
    if (setup.top.value_or(0) >= 0)
        area.margins.setTop(qMax(area.margins.top(), texts.headerRoom()));
    if (setup.bottom.value_or(0) >= 0)
        area.margins.setBottom(qMax(area.margins.bottom(), texts.footerRoom()));
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

/// \a room in inches, above the first page's text: an empty line so high, as Qt gives the first paragraph no
/// space before it.
void lowerFirstPage(QTextDocument &document, double room)
{
    if (room <= 0)
        return;
    QTextCursor start(&document);
    QTextBlockFormat text = start.blockFormat();
    text.setPageBreakPolicy(QTextFormat::PageBreak_Auto);
    text.setTopMargin(0);
    start.insertBlock(text);
    start.movePosition(QTextCursor::Start);
    QTextBlockFormat empty;
    empty.setLineHeight(room * ParagraphFormat::layoutDpi(), QTextBlockFormat::FixedHeight);
    start.setBlockFormat(empty);
}

void layOut(QTextDocument &document, const QSizeF &text, QPaintDevice &device)
{
    PaperLayout::fit(document, text);
    partPages(document, text.height() * ParagraphFormat::layoutDpi());
    // The device before the page: a page size given first is taken in the screen's pixels.
    document.documentLayout()->setPaintDevice(&device);
    document.setPageSize({text.width() * PaperLayout::dpi, 3 * text.height() * PaperLayout::dpi});
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
    const PageSetup setup = PageSetup::of(document);
    const PrinterPaper paper(setup, printer);
    PageArea area = paper.area();
    QImage device = PaperLayout::device();
    PageTextPainter texts(document, area, device);
    makeRoom(area, texts, setup);
    lowerFirstPage(document, texts.firstHeaderRoom() - area.margins.top());
    layOut(document, area.text(), device);
    PrintJob job(printer);
    const double factor = double(printer.logicalDpiX()) / PaperLayout::dpi;
    job.painter().scale(factor, factor);
    const PagePainter pages(document, linkLook);
    bool isFirst = true;
    for (const int page : printOrder(printer, document.pageCount())) {
        if (!std::exchange(isFirst, false))
            job.newPage();
        const QPointF corner(area.left(page + setup.firstNumber), area.margins.top());
        job.painter().save();
        job.painter().translate((corner - paper.origin()) * PaperLayout::dpi);
        pages.paint(page, job.painter());
        texts.paint(page, document.pageCount(), area, job.painter());
        job.painter().restore();
    }
    job.finish();
}
