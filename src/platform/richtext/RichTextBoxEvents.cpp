#include "CellKeys.h"
#include "CellText.h"
#include "ClipboardText.h"
#include "EventGate.h"
#include "ParagraphEdits.h"
#include "ParagraphFormat.h"
#include "ParagraphLines.h"
#include "Pictures.h"
#include "RichTextBox.h"
#include "Twips.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextList>

// What reaches the control from the desktop: events, the clipboard, drops.

namespace {

bool isReturn(const QKeyEvent &key)
{
    return (key.key() == Qt::Key_Return && key.modifiers() == Qt::NoModifier) ||
           (key.key() == Qt::Key_Enter && key.modifiers() == Qt::KeypadModifier);
}

/// Backspace before the text of an item and Return in an item without text end the list there.
bool endsList(const QKeyEvent &key, const QTextCursor &cursor)
{
    if (!cursor.currentList() || cursor.hasSelection())
        return false;
    const bool isBackspace = key.key() == Qt::Key_Backspace && key.modifiers() == Qt::NoModifier;
    return (isBackspace && cursor.atBlockStart()) || (isReturn(key) && cursor.block().length() == 1);
}

/// Return in an empty paragraph, where Qt would forget how text typed there looks.
bool repeatsEmpty(const QKeyEvent &key, const QTextCursor &cursor)
{
    return isReturn(key) && !cursor.hasSelection() && cursor.block().length() == 1;
}

} // namespace

void RichTextBox::changeEvent(QEvent *event)
{
    run([&] {
        // QTextEdit would make the desktop's font the document's; the document brings its own.
        if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange)
            QAbstractScrollArea::changeEvent(event);
        else
            QTextEdit::changeEvent(event);
    });
}

void RichTextBox::contextMenuEvent(QContextMenuEvent *event)
{
    run([&] {
        const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
        QMenu *menu = createStandardContextMenu(event->pos() + scrolled);
        const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
        const QTextCursor place = isByMouse ? cursorForPosition(event->pos()) : textCursor();
        m_spelling.addSuggestions(*menu, place.position());
        if (!actions().isEmpty()) {
            menu->addSeparator();
            menu->addActions(actions());
        }
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(event->globalPos());
    });
}

void RichTextBox::focusInEvent(QFocusEvent *event)
{
    run([&] {
        QTextEdit::focusInEvent(event);
        Q_EMIT GotFocus();
    });
}

void RichTextBox::keyPressEvent(QKeyEvent *event)
{
    run([&] {
        if (m_zoom.press(*event)) {
            m_handles.forget();
            return;
        }
        m_undoSteps.beforeKey(*event, textCursor());
        QTextCursor caret = textCursor();
        if (!Locked() && m_unseen.beforeKey(*event, caret))
            setTextCursor(caret);
        if (!Locked() && CellKeys::press(*event, caret))
            showCaret(caret);
        else if (!Locked() && endsList(*event, textCursor()))
            ParagraphEdits::leaveList(textCursor());
        else if (!Locked() && repeatsEmpty(*event, textCursor()))
            repeatEmptyParagraph();
        else
            QTextEdit::keyPressEvent(event);
        m_undoSteps.afterKey(textCursor());
    });
}

void RichTextBox::repeatEmptyParagraph()
{
    QTextCursor caret = textCursor();
    caret.insertBlock();
    showCaret(caret);
}

/// Before anything is typed into an empty cell.
void RichTextBox::forgetLookOfCell()
{
    const QTextCursor caret = textCursor();
    if (CellText::isAtEmptyCell(caret))
        setCurrentCharFormat(CellText::format(caret.charFormat()));
}

void RichTextBox::showCaret(const QTextCursor &caret)
{
    setTextCursor(caret);
    ensureCursorVisible();
}

void RichTextBox::mousePressEvent(QMouseEvent *event)
{
    run([&] {
        const QPoint point = event->position().toPoint();
        const bool isPlain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
        if (isPlain && !Locked() && m_handles.press(point))
            return;
        if (isPlain)
            m_links.press(point);
        QTextEdit::mousePressEvent(event);
    });
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent *event)
{
    run([&] { QTextEdit::mouseDoubleClickEvent(event); });
}

void RichTextBox::mouseMoveEvent(QMouseEvent *event)
{
    run([&] {
        const QPoint point = event->position().toPoint();
        if (m_handles.isDragging()) {
            m_handles.move(point, pageWidth());
            return;
        }
        QTextEdit::mouseMoveEvent(event);
        m_links.hover(point);
        if (!Locked())
            m_handles.hover(point);
    });
}

void RichTextBox::mouseReleaseEvent(QMouseEvent *event)
{
    run([&] {
        if (m_handles.isDragging()) {
            m_handles.release();
            return;
        }
        QTextEdit::mouseReleaseEvent(event);
        if (event->button() != Qt::LeftButton)
            return;
        // Last of all, as the listener may close the window.
        if (const auto link = m_links.release(event->position().toPoint()))
            Q_EMIT LinkClicked(link->first, link->end);
    });
}

void RichTextBox::paintEvent(QPaintEvent *event)
{
    runPainting([&] {
        ViewMarks::show(*this, m_links.visible() + m_spelling.visible());
        QTextEdit::paintEvent(event);
        paintLines(event->region());
        if (!Locked())
            m_handles.paint();
    });
}

/// Asks for no place far below: that would bring everything there to its place.
void RichTextBox::paintLines(const QRegion &region)
{
    const double dpi = ParagraphFormat::layoutDpi() * m_zoom.factor();
    const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const double bottom = region.boundingRect().bottom() + scrolled.y() + ParagraphLines::farthest(dpi);
    QPainter painter(viewport());
    painter.setClipRegion(region);
    painter.translate(-scrolled);
    const QAbstractTextDocumentLayout &layout = *document()->documentLayout();
    const auto [first, end] = m_longDocuments.stretchInView();
    for (QTextBlock block = document()->findBlock(first); block.isValid() && block.position() <= end;
         block = block.next()) {
        // Of cells beside each other the second begins above the end of the first.
        const bool isOnPage = document()->frameAt(block.position()) == document()->rootFrame();
        if (isOnPage && layout.blockBoundingRect(block).top() > bottom)
            break;
        if (ParagraphLines::has(block))
            ParagraphLines::paint(block, dpi, painter);
    }
}

void RichTextBox::resizeEvent(QResizeEvent *event)
{
    run([&] {
        m_longDocuments.catchUp();
        QTextEdit::resizeEvent(event);
        wrap();
    });
}

void RichTextBox::wheelEvent(QWheelEvent *event)
{
    run([&] {
        if (m_zoom.turn(*event))
            m_handles.forget();
        else
            QTextEdit::wheelEvent(event);
    });
}

void RichTextBox::showEvent(QShowEvent *event)
{
    run([&] {
        m_longDocuments.show();
        QTextEdit::showEvent(event);
    });
}

/// The right margin is measured over the whole control, so that a margin of the control's width wraps at the
/// edge of what is seen, with a scroll bar or without.
void RichTextBox::wrap()
{
    const int margin = Twips::toPixels(m_rightMargin, ParagraphFormat::layoutDpi());
    const int width = qMax(1, margin - (this->width() - viewport()->width()));
    if (m_rightMargin == 0) {
        if (lineWrapMode() != WidgetWidth)
            setLineWrapMode(WidgetWidth);
    } else if (lineWrapMode() != FixedPixelWidth || lineWrapColumnOrWidth() != width) {
        setLineWrapColumnOrWidth(width);
        setLineWrapMode(FixedPixelWidth);
    }
}

bool RichTextBox::canInsertFromMimeData(const QMimeData *source) const
{
    bool can = false;
    run([&] {
        can = source->hasImage() || ClipboardText::isRichText(*source) ||
              QTextEdit::canInsertFromMimeData(source);
    });
    return can;
}

void RichTextBox::insertFromMimeData(const QMimeData *source)
{
    run([&] {
        if (Locked())
            return;
        const QByteArray richText = ClipboardText::richText(*source);
        if (!richText.isEmpty()) {
            setSelRTF(richText);
        } else if (ClipboardText::isPicture(*source) || !ClipboardText::pictureFiles(*source).isEmpty()) {
            insertPictures(*source);
        } else {
            QTextEdit::insertFromMimeData(source);
        }
        ensureCursorVisible();
    });
}

/// The files as they are, before the picture that the other program has made of them.
void RichTextBox::insertPictures(const QMimeData &source)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    const QStringList files = ClipboardText::pictureFiles(source);
    for (const QString &file : files)
        Pictures::insertFile(cursor, file, pageWidth());
    if (files.isEmpty())
        Pictures::insert(cursor, source.imageData().value<QImage>(), pageWidth());
    cursor.endEditBlock();
}

/// Pixels between the document's margins, as they are without enlargement.
double RichTextBox::pageWidth() const
{
    return document()->pageSize().width() / m_zoom.factor() - 2 * document()->documentMargin();
}

/// Whatever the other program proposes, its files stay with it.
void RichTextBox::dropEvent(QDropEvent *event)
{
    run([&] {
        QTextEdit::dropEvent(event);
        if (event->mimeData()->hasUrls())
            event->setDropAction(Qt::CopyAction);
    });
}

/// Documents are left to the window around, which opens them.
void RichTextBox::dragEnterEvent(QDragEnterEvent *event)
{
    run([&] {
        if (ClipboardText::namesDocuments(*event->mimeData()))
            event->ignore();
        else
            QTextEdit::dragEnterEvent(event);
    });
}

QMimeData *RichTextBox::createMimeDataFromSelection() const
{
    std::unique_ptr<QMimeData> selected;
    run([&] { selected = ClipboardText::of(textCursor()); });
    return selected.release();
}
