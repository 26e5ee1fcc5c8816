#include "TextPrinter.h"

#include "PagePainter.h"
#include "PageTextPainter.h"
#include "PaperLayout.h"
#include "PaperSpacing.h"
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

/// \a room in inches, above the first page's text. Qt gives the first paragraph no space before it.
void lowerFirstPage(QTextDocument &document, double room)
{
    const QTextBlock first = document.firstBlock();
    PaperSpacing::insertBefore(first, qMax(0.0, room * ParagraphFormat::layoutDpi()) +
                                          first.blockFormat().topMargin());
}

void setPages(QTextDocument &document, const QSizeF &text, QPaintDevice &device)
{
    const int dpi = device.logicalDpiX();
    // The device before the page: a page size given first is taken in the screen's pixels.
    document.documentLayout()->setPaintDevice(&device);
    document.setPageSize({text.width() * dpi, 3 * text.height() * dpi});
}

/// In fine dots if the pages are not too many. Returns how many there are to the inch.
int layOut(QTextDocument &document, const QSizeF &text, QPaintDevice &coarse, QPaintDevice &fine)
{
    PaperLayout::fit(document, text, PaperLayout::coarseDpi);
    partPages(document, text.height() * ParagraphFormat::layoutDpi());
    setPages(document, text, coarse);
    const bool isShort =
        document.pageCount() * document.pageSize().height() * PaperLayout::fineDpi / PaperLayout::coarseDpi <
        PaperLayout::farthest;
    if (isShort) {
        PaperLayout::change(document, PaperLayout::coarseDpi, PaperLayout::fineDpi);
        setPages(document, text, fine);
    }
    RowsAcrossPages::alignTop(document);
    return isShort ? PaperLayout::fineDpi : PaperLayout::coarseDpi;
}

/// Lets \a painter paint in dots of which \a dpi are an inch, from \a corner on, in inches, as long as this
/// lives.
class DotsOfPaper
{
public:
    DotsOfPaper(QPainter &painter, const QPrinter &printer, const QPointF &corner, int dpi)
        : m_painter(painter)
    {
        const double factor = double(printer.logicalDpiX()) / dpi;
        m_painter.save();
        m_painter.scale(factor, factor);
        m_painter.translate(corner * dpi);
    }
    ~DotsOfPaper() { m_painter.restore(); }
    DotsOfPaper(const DotsOfPaper &) = delete;
    DotsOfPaper &operator=(const DotsOfPaper &) = delete;

private:
    QPainter &m_painter;
};

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
    QImage coarse = PaperLayout::device(PaperLayout::coarseDpi);
    QImage fine = PaperLayout::device(PaperLayout::fineDpi);
    PageTextPainter texts(document, area, fine);
    makeRoom(area, texts, setup);
    lowerFirstPage(document, texts.firstHeaderRoom() - area.margins.top());
    const int dpi = layOut(document, area.text(), coarse, fine);
    PrintJob job(printer);
    const PagePainter pages(document, linkLook);
    bool isFirst = true;
    for (const int page : printOrder(printer, document.pageCount())) {
        if (!std::exchange(isFirst, false))
            job.newPage();
        const QPointF corner(area.left(page + setup.firstNumber), area.margins.top());
        {
            const DotsOfPaper dots(job.painter(), printer, corner - paper.origin(), dpi);
            pages.paint(page, job.painter());
        }
        const DotsOfPaper dots(job.painter(), printer, corner - paper.origin(), PaperLayout::fineDpi);
        texts.paint(page, document.pageCount(), area, job.painter());
    }
    job.finish();
}
