#include "TextPrinter.h"

#include "ParagraphFormat.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>

namespace {

/// Qt scales text, pictures and the space between lines and paragraphs to the device, but not the indents.
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

} // namespace

void TextPrinter::print(QTextDocument &document, QPagedPaintDevice &device)
{
    document.setUndoRedoEnabled(false);
    scaleIndents(document, device.logicalDpiX() / ParagraphFormat::layoutDpi());
    QTextFrameFormat page = document.rootFrame()->frameFormat();
    page.setMargin(0);
    document.rootFrame()->setFrameFormat(page);
    // The device before the page: a page size given first is taken in the screen's pixels.
    document.documentLayout()->setPaintDevice(&device);
    document.setPageSize(device.pageLayout().paintRectPixels(device.logicalDpiX()).size());
    document.print(&device);
}
