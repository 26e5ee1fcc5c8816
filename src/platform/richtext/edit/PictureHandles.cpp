#include "PictureHandles.h"

#include "Pictures.h"
#include "ViewZoom.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <cmath>
#include <utility>

namespace {

constexpr double handleSize = 8;  // pixels
constexpr double reach = 6;       // pixels around a corner in which a press takes it
constexpr double leastLength = 8; // pixels of a picture's shorter side

constexpr Qt::Corner corners[] = {Qt::TopLeftCorner, Qt::TopRightCorner, Qt::BottomLeftCorner,
                                  Qt::BottomRightCorner};

QPointF pointOf(const QRectF &area, Qt::Corner corner)
{
    switch (corner) {
    case Qt::TopLeftCorner:
        return area.topLeft();
    case Qt::TopRightCorner:
        return area.topRight();
    case Qt::BottomLeftCorner:
        return area.bottomLeft();
    case Qt::BottomRightCorner:
        break;
    }
    return area.bottomRight();
}

Qt::Corner opposite(Qt::Corner corner)
{
    return Qt::Corner(Qt::BottomRightCorner - corner);
}

Qt::CursorShape shapeOf(Qt::Corner corner)
{
    return corner == Qt::TopLeftCorner || corner == Qt::BottomRightCorner ? Qt::SizeFDiagCursor
                                                                          : Qt::SizeBDiagCursor;
}

/// The largest of the proportions of \a size that is no wider and no higher than the distance from \a fixed
/// to \a point suggests by its longer side.
QSizeF scaledTo(const QSizeF &size, const QPointF &fixed, const QPointF &point, double widest)
{
    const double factor =
        qMax(std::abs(point.x() - fixed.x()) / size.width(), std::abs(point.y() - fixed.y()) / size.height());
    const double least = qMin(1.0, leastLength / qMin(size.width(), size.height()));
    return size * qBound(least, factor, qMax(least, widest / size.width()));
}

/// The rectangle with a corner at \a fixed that reaches towards the middle of \a area.
QRectF outline(const QRectF &area, const QPointF &fixed, const QSizeF &size)
{
    const double left = fixed.x() < area.center().x() ? fixed.x() : fixed.x() - size.width();
    const double top = fixed.y() < area.center().y() ? fixed.y() : fixed.y() - size.height();
    return {QPointF(left, top), size};
}

bool isLink(const QTextDocument &document, int position)
{
    QTextCursor behind(document.findBlock(position));
    behind.setPosition(position + 1); // a position's format is that of the character before it
    return behind.charFormat().isAnchor();
}

} // namespace

PictureHandles::PictureHandles(QTextEdit &view, const ViewZoom &zoom)
    : m_view(view)
    , m_zoom(zoom)
{}

bool PictureHandles::press(const QPoint &point)
{
    const std::optional<Picture> chosen = selected();
    if (const std::optional<Qt::Corner> corner = cornerAt(point)) {
        m_drag = Drag{*chosen, pointOf(chosen->area, opposite(*corner)), chosen->area.size(), viewOrigin()};
        return true;
    }
    const std::optional<Picture> hit = pictureAt(point);
    const bool isSelected = hit && chosen && chosen->position == hit->position;
    if (!hit || isSelected || isLink(*m_view.document(), hit->position)) // it can be dragged or followed
        return false;
    QTextCursor cursor = m_view.textCursor();
    cursor.setPosition(hit->position);
    cursor.setPosition(hit->position + 1, QTextCursor::KeepAnchor);
    m_view.setTextCursor(cursor);
    m_view.setFocus(Qt::MouseFocusReason);
    return true;
}

void PictureHandles::move(const QPoint &point, double page)
{
    const double widest =
        Pictures::lineWidth(*m_view.document(), m_drag->picture.position, page) * m_zoom.factor();
    m_drag->size = scaledTo(m_drag->picture.area.size(), m_drag->fixed, point + scrolledInDrag(), widest);
    m_view.viewport()->update();
}

void PictureHandles::release()
{
    const Drag drag = *m_drag;
    m_drag.reset();
    m_view.viewport()->update();
    if (drag.size != drag.picture.area.size() && pictureAt(drag.picture.position))
        Pictures::resize(*m_view.document(), drag.picture.position, drag.size / m_zoom.factor());
}

void PictureHandles::forget()
{
    if (!m_drag)
        return;
    m_drag.reset();
    m_view.viewport()->update();
}

void PictureHandles::hover(const QPoint &point) const
{
    if (const std::optional<Qt::Corner> corner = cornerAt(point))
        m_view.viewport()->setCursor(shapeOf(*corner));
}

/// The view itself only updates what is selected, and the handles reach beyond it.
void PictureHandles::followSelection()
{
    const bool wasShown = std::exchange(m_isShown, selectedPosition().has_value());
    if (wasShown || m_isShown)
        m_view.viewport()->update();
}

void PictureHandles::paint() const
{
    const std::optional<Picture> picture = m_drag ? m_drag->picture : selected();
    if (!picture)
        return;
    QPainter painter(m_view.viewport());
    const QColor color = m_view.palette().color(QPalette::Highlight);
    const QRectF area = m_drag ? outline(picture->area, m_drag->fixed, m_drag->size) : picture->area;
    if (m_drag)
        painter.translate(-scrolledInDrag());
    painter.setPen(color);
    painter.drawRect(area);
    for (const Qt::Corner corner : corners) {
        QRectF handle(0, 0, handleSize, handleSize);
        handle.moveCenter(pointOf(area, corner));
        painter.fillRect(handle, color);
        painter.setPen(Qt::white);
        painter.drawRect(handle);
    }
}

QPointF PictureHandles::viewOrigin() const
{
    return {double(m_view.horizontalScrollBar()->value()), double(m_view.verticalScrollBar()->value())};
}

/// How far the view was scrolled since the press, as by the wheel.
QPointF PictureHandles::scrolledInDrag() const
{
    return viewOrigin() - m_drag->originAtPress;
}

/// An object of the text ends at the base line of its line.
std::optional<PictureHandles::Picture> PictureHandles::pictureAt(int position) const
{
    const QTextDocument &document = *m_view.document();
    const QTextBlock block = document.findBlock(position);
    const QSizeF size = Pictures::sizeAt(document, position) * m_zoom.factor();
    if (size.isEmpty() || !block.isVisible())
        return std::nullopt;
    const QTextLayout &layout = *block.layout();
    const int place = position - block.position();
    const QTextLine line = layout.lineForTextPosition(place);
    if (!line.isValid())
        return std::nullopt;
    const double left = qMin(line.cursorToX(place), line.cursorToX(place + 1));
    const QRectF area(QPointF(left, line.y() + line.ascent() - size.height()), size);
    const QPointF origin = document.documentLayout()->blockBoundingRect(block).topLeft();
    return Picture{position, area.translated(origin - viewOrigin())};
}

std::optional<PictureHandles::Picture> PictureHandles::pictureAt(const QPoint &point) const
{
    const int nearest = m_view.cursorForPosition(point).position();
    for (const int position : {nearest, nearest - 1}) {
        const std::optional<Picture> picture = pictureAt(position);
        if (picture && picture->area.contains(point))
            return picture;
    }
    return std::nullopt;
}

std::optional<int> PictureHandles::selectedPosition() const
{
    const QTextCursor cursor = m_view.textCursor();
    const int start = cursor.selectionStart();
    if (cursor.selectionEnd() - start != 1 || Pictures::sizeAt(*m_view.document(), start).isEmpty())
        return std::nullopt;
    return start;
}

std::optional<PictureHandles::Picture> PictureHandles::selected() const
{
    const std::optional<int> position = selectedPosition();
    return position ? pictureAt(*position) : std::nullopt;
}

std::optional<Qt::Corner> PictureHandles::cornerAt(const QPoint &point) const
{
    const std::optional<Picture> picture = selected();
    if (!picture)
        return std::nullopt;
    for (const Qt::Corner corner : corners) {
        const QPointF distance = point - pointOf(picture->area, corner);
        if (std::abs(distance.x()) <= reach && std::abs(distance.y()) <= reach)
            return corner;
    }
    return std::nullopt;
}
