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
#include <QTextLayout>
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

/// Lays \a document out for \a device.
void setPages(QTextDocument &document, const QSizeF &text, QPaintDevice &device)
{
    const int dpi = device.logicalDpiX();
    document.setLayoutEnabled(false); // or each step would lay out everything
    // The device before the page: a page size given first is taken in the screen's pixels.
    document.documentLayout()->setPaintDevice(&device);
    document.setPageSize({text.width() * dpi, 3 * text.height() * dpi});
    document.setLayoutEnabled(true);
}

/// Has the painting of \a document use what its layout has found out about each letter, which takes memory.
void keepLetters(const QTextDocument &document)
{
    for (QTextBlock paragraph = document.begin(); paragraph.isValid(); paragraph = paragraph.next())
        paragraph.layout()->setCacheEnabled(true);
}

/// Whether fine dots are good for \a document, which is laid out in coarse ones.
bool isShort(const QTextDocument &document)
{
    return document.pageCount() * document.pageSize().height() * PaperLayout::fineDpi /
               PaperLayout::coarseDpi <
           PaperLayout::farthest;
}

/// The height in inches that a line of \a document has at most; nothing where its formats do not say so.
std::optional<double> highestLine(const QTextDocument &document)
{
    constexpr double linesOfFont = 2; // what the highest fonts need
    constexpr double pointsPerInch = 72;
    double points = document.defaultFont().pointSizeF();
    for (const QTextFormat &format : document.allFormats()) {
        if (format.isImageFormat() || format.intProperty(QTextFormat::LineHeightType) != 0)
            return {};
        points = qMax(points, format.doubleProperty(QTextFormat::FontPointSize));
    }
    return linesOfFont * points / pointsPerInch;
}

/// The same before a layout, on pages \a page inches high: even if each paragraph began a page and each
/// character a line.
bool isSurelyShort(const QTextDocument &document, double page)
{
    const auto line = highestLine(document);
    if (!line || !document.rootFrame()->childFrames().isEmpty())
        return false;
    const double height = document.blockCount() * 3 * page + document.characterCount() * *line;
    return height * PaperLayout::fineDpi < PaperLayout::farthest;
}

/// In fine dots if the pages are not too many. Returns how many there are to the inch.
int layOut(QTextDocument &document, const QSizeF &text, QPaintDevice &coarse, QPaintDevice &fine)
{
    const bool isFine = isSurelyShort(document, text.height());
    int dpi = isFine ? PaperLayout::fineDpi : PaperLayout::coarseDpi;
    PaperLayout::fit(document, text, dpi);
    partPages(document, text.height() * ParagraphFormat::layoutDpi());
    if (isFine)
        keepLetters(document);
    setPages(document, text, dpi == PaperLayout::fineDpi ? fine : coarse);
    if (dpi == PaperLayout::coarseDpi && isShort(document)) {
        PaperLayout::change(document, PaperLayout::coarseDpi, PaperLayout::fineDpi);
        setPages(document, text, fine);
        dpi = PaperLayout::fineDpi;
    }
    RowsAcrossPages::alignTop(document);
    return dpi;
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

/// A document that has been laid out on a printer's paper.
class Pages
{
public:
    Pages(QTextDocument &document, const PageSetup &setup, QPrinter &printer);

    void print(PrintJob &job, const std::optional<QTextCharFormat> &linkLook);

private:
    QTextDocument &m_document;
    const PageSetup &m_setup;
    const QPrinter &m_printer;
    PrinterPaper m_paper;
    PageArea m_area;
    QImage m_coarse;
    QImage m_fine;
    PageTextPainter m_texts;
    int m_dpi;
};

Pages::Pages(QTextDocument &document, const PageSetup &setup, QPrinter &printer)
    : m_document(document)
    , m_setup(setup)
    , m_printer(printer)
    , m_paper(setup, printer)
    , m_area(m_paper.area())
    , m_coarse(PaperLayout::device(PaperLayout::coarseDpi))
    , m_fine(PaperLayout::device(PaperLayout::fineDpi))
    , m_texts(document, m_area, m_fine)
{
    makeRoom(m_area, m_texts, setup);
    lowerFirstPage(document, m_texts.firstHeaderRoom() - m_area.margins.top());
    m_dpi = layOut(document, m_area.text(), m_coarse, m_fine);
}

void Pages::print(PrintJob &job, const std::optional<QTextCharFormat> &linkLook)
{
    const PagePainter pages(m_document, linkLook);
    for (const int page : printOrder(m_printer, m_document.pageCount())) {
        job.nextPage();
        const QPointF corner(m_area.left(page + m_setup.firstNumber), m_area.margins.top());
        {
            const DotsOfPaper dots(job.painter(), m_printer, corner - m_paper.origin(), m_dpi);
            pages.paint(page, job.painter());
        }
        const DotsOfPaper dots(job.painter(), m_printer, corner - m_paper.origin(), PaperLayout::fineDpi);
        m_texts.paint(page, m_document.pageCount(), m_area, job.painter());
    }
}

} // namespace

void TextPrinter::print(QTextDocument &document, QPrinter &printer,
                        const std::optional<QTextCharFormat> &linkLook)
{
    const PageSetup setup = PageSetup::of(document);
    Pages pages(document, setup, printer);
    PrintJob job(printer);
    pages.print(job, linkLook);
    job.finish();
}

void TextPrinter::print(QTextDocument &document, PrintJob &job,
                        const std::optional<QTextCharFormat> &linkLook)
{
    PageSetup setup = PageSetup::of(document);
    setup.width.reset();
    setup.height.reset();
    setup.isLandscape = false;
    Pages(document, setup, job.printer()).print(job, linkLook);
}
