#include "ViewZoom.h"

#include "EventGate.h"
#include "LongDocuments.h"
#include "PaperLayout.h"
#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "StoredFormats.h"
#include "Twips.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QWheelEvent>
#include <algorithm>
#include <iterator>

namespace {

constexpr int percents[] = {50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400};

/// Qt lays out indents in pixels as they are, whatever the resolution. What has no length in twips came
/// without one.
void scaleIndents(QTextBlockFormat &format, double factor)
{
    const auto pixels = [factor](int twips) {
        return Twips::toPixels(twips, ParagraphFormat::layoutDpi()) * factor;
    };
    if (format.hasProperty(RichTextProperty::LeftIndent))
        format.setLeftMargin(pixels(ParagraphFormat::leftIndent(format)));
    if (format.hasProperty(RichTextProperty::RightIndent))
        format.setRightMargin(pixels(ParagraphFormat::rightIndent(format)));
    if (format.hasProperty(RichTextProperty::FirstLineIndent) && format.textIndent() != 0)
        format.setTextIndent(pixels(ParagraphFormat::firstLineIndent(format)));
}

} // namespace

ViewZoom::ViewZoom(QTextEdit &view, LongDocuments &documents)
    : m_view(view)
    , m_documents(documents)
{}

double ViewZoom::factor() const
{
    return m_percent == 100 ? 1 : m_resolution.logicalDpiY() / ParagraphFormat::layoutDpi();
}

void ViewZoom::attach(QTextDocument &document)
{
    m_document = &document;
    if (m_percent != 100)
        scaleDocument();
    on(&document, &QTextDocument::contentsChange, this, [this] {
        if (m_percent != 100)
            scaleNewFormats();
    });
}

bool ViewZoom::press(const QKeyEvent &key)
{
    if ((key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != Qt::ControlModifier)
        return false;
    switch (key.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        step(1);
        return true;
    case Qt::Key_Minus:
        step(-1);
        return true;
    case Qt::Key_0:
        show(100);
        return true;
    default:
        return false;
    }
}

bool ViewZoom::turn(const QWheelEvent &wheel)
{
    if (wheel.modifiers() != Qt::ControlModifier)
        return false;
    constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
    m_turned += wheel.angleDelta().y();
    for (; qAbs(m_turned) >= notch; m_turned -= m_turned > 0 ? notch : -notch)
        step(m_turned > 0 ? 1 : -1);
    return true;
}

void ViewZoom::step(int direction)
{
    const auto *now = std::lower_bound(std::begin(percents), std::end(percents), m_percent);
    const auto place = std::distance(std::begin(percents), now) + direction;
    if (place >= 0 && place < std::ssize(percents))
        show(percents[place]);
}

/// The first line in view stays there.
void ViewZoom::show(int percent)
{
    if (std::exchange(m_percent, percent) == percent)
        return;
    m_resolution = PaperLayout::device(qRound(ParagraphFormat::layoutDpi() * percent / 100));
    if (!m_document->isLayoutEnabled()) {
        scaleDocument();
        return;
    }
    m_documents.catchUp();
    const QTextCursor first = m_view.cursorForPosition({0, 0});
    const int top = m_view.cursorRect(first).top();
    m_document->setLayoutEnabled(false);
    scaleDocument();
    m_documents.layOutVisible();
    QAbstractTextDocumentLayout &layout = *m_document->documentLayout();
    const QRectF block = layout.blockBoundingRect(first.block());
    const QPointF bottom(block.right(), block.bottom() + m_view.viewport()->height());
    layout.hitTest(bottom, Qt::FuzzyHit); // the layout may be finished later, but the bar has to reach there
    Q_EMIT layout.documentSizeChanged({bottom.x(), bottom.y()});
    QScrollBar &bar = *m_view.verticalScrollBar();
    bar.setValue(bar.value() + m_view.cursorRect(first).top() - top);
}

void ViewZoom::scaleDocument()
{
    m_document->documentLayout()->setPaintDevice(m_percent == 100 ? nullptr : &m_resolution);
    m_formatCount = 0;
    scaleNewFormats();
}

void ViewZoom::scaleNewFormats()
{
    m_formatCount = StoredFormats::changeParagraphs(
        *m_document, m_formatCount, [this](QTextBlockFormat &format) { scaleIndents(format, factor()); });
}

void ViewZoom::forgetIn(QTextDocument &document)
{
    StoredFormats::changeParagraphs(document, 0, [](QTextBlockFormat &format) { scaleIndents(format, 1); });
}
