#include "TextPrinter.h"

#include "LinkFinder.h"
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

namespace {

using PaintContext = QAbstractTextDocumentLayout::PaintContext;

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

/// Qt paints the line before a page and the one behind it too. With a page's height between each two pages
/// these fall off the paper.
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

/// The part of the document that page \a number, from 0, shows. Lines may begin or end in the paper's margin.
QRectF areaOf(const QTextDocument &document, int number)
{
    const QSizeF size = document.pageSize();
    const double height = size.height() / 3;
    return {-size.width(), number * size.height() + height, 3 * size.width(), height};
}

using Marks = QList<QAbstractTextDocumentLayout::Selection>;

/// Of each page its own, as the painting of a paragraph looks at every mark.
QList<Marks> marksOfPages(const QTextDocument &document, const QTextCharFormat &look)
{
    QList<Marks> pages(document.pageCount());
    for (const LinkFinder::Link &link : LinkFinder::between(document, 0, document.characterCount())) {
        const QTextBlock paragraph = document.findBlock(link.first);
        QTextCursor cursor(paragraph);
        cursor.setPosition(link.first);
        cursor.setPosition(link.end, QTextCursor::KeepAnchor);
        const QRectF area = document.documentLayout()->blockBoundingRect(paragraph);
        const int last = qMin(int(area.bottom() / document.pageSize().height()), int(pages.size()) - 1);
        for (int page = int(area.top() / document.pageSize().height()); page <= last; ++page)
            pages[page].append({cursor, look});
    }
    return pages;
}

void paint(const QTextDocument &document, const PaintContext &context, QPainter &painter)
{
    painter.save();
    painter.translate(0, -context.clip.top());
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
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
    const QList<Marks> marks = linkLook ? marksOfPages(document, *linkLook) : QList<Marks>();
    const int count = document.pageCount();
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            job.newPage();
        const int page = printer.pageOrder() == QPrinter::LastPageFirst ? count - 1 - i : i;
        PaintContext context;
        context.palette.setColor(QPalette::Text, Qt::black);
        context.clip = areaOf(document, page);
        context.selections = marks.value(page);
        paint(document, context, job.painter());
    }
    job.finish();
}
