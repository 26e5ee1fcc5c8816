#include "WmfCanvas.h"

namespace {

constexpr std::size_t deepest = 256;
constexpr qint64 patternLayers = 8; // a pattern takes as long as so many colours

bool isHatched(const QBrush &brush)
{
    return brush.style() >= Qt::HorPattern && brush.style() <= Qt::DiagCrossPattern;
}

} // namespace

WmfCanvas::WmfCanvas(QImage &image, const QRectF &window)
    : m_pixels(image.size())
    , m_painter(&image)
    , m_state(WmfMapping(window, image.size()))
    , m_work(image.size())
{}

void WmfCanvas::save()
{
    if (m_saved.size() < deepest)
        m_saved.push_back(m_state);
}

void WmfCanvas::restore(int which)
{
    const int count = int(m_saved.size());
    const int index = which < 0 ? count + which : which - 1;
    if (index < 0 || index >= count)
        return;
    m_state = m_saved[std::size_t(index)];
    m_saved.erase(m_saved.begin() + index, m_saved.end());
}

QPointF WmfCanvas::toPixels(const QPointF &point)
{
    const QRectF dot(point, QSizeF(1, 1));
    m_drawnBounds = m_isUsed ? m_drawnBounds.united(dot) : dot;
    m_isUsed = true;
    return m_state.mapping.toPixels(point);
}

QRectF WmfCanvas::toPixels(const QRectF &rectangle)
{
    return QRectF(toPixels(rectangle.topLeft()), toPixels(rectangle.bottomRight())).normalized();
}

QPen WmfCanvas::penInPixels() const
{
    constexpr double thinnest = 1.001; // with 1 Qt leaves out the corners
    QPen pen = m_state.pen;
    const double width = pen.widthF() * m_state.mapping.scaleX();
    pen.setWidthF(qMax(thinnest, width));
    if (width < thinnest) {
        pen.setCapStyle(Qt::SquareCap); // whole pixels
        pen.setJoinStyle(Qt::MiterJoin);
    }
    return pen;
}

void WmfCanvas::drawShape(const QPainterPath &path)
{
    QPainterPath shape = path;
    shape.setFillRule(m_state.fillRule);
    if (m_state.brush.style() != Qt::NoBrush) {
        const qint64 layers = m_state.brush.style() == Qt::SolidPattern ? 1 : patternLayers;
        if (QPainter *painting = painter(layers * m_work.ofFilling(shape)))
            fillShape(*painting, shape);
    }
    drawOutline(path);
}

void WmfCanvas::fillShape(QPainter &painter, const QPainterPath &path) const
{
    if (isHatched(m_state.brush) && m_state.fillsBackground)
        painter.fillPath(path, m_state.background);
    painter.fillPath(path, m_state.brush);
}

void WmfCanvas::drawOutline(const QPainterPath &path)
{
    if (m_state.pen.style() == Qt::NoPen)
        return;
    const QPen pen = penInPixels();
    if (QPainter *painting = painter(m_work.ofStroking(path, pen)))
        painting->strokePath(path, pen);
}

void WmfCanvas::fill(const QRectF &pixels, const QBrush &brush, QPainter::CompositionMode mode)
{
    const qint64 layers = brush.style() == Qt::SolidPattern ? 1 : patternLayers;
    if (QPainter *painting = painter(layers * m_work.ofFilling(pixels))) {
        painting->setRenderHint(QPainter::Antialiasing, false);
        painting->setCompositionMode(mode);
        painting->fillRect(pixels, brush);
    }
}

void WmfCanvas::drawImage(const QRectF &target, const QImage &image, const QRectF &source,
                          QPainter::CompositionMode mode)
{
    constexpr qint64 blending = 16; // as costly as so many times filling
    if (QPainter *painting = painter(blending * m_work.ofFilling(target))) {
        painting->setRenderHint(QPainter::Antialiasing, false);
        const bool isReduced = target.width() < source.width() || target.height() < source.height();
        painting->setRenderHint(QPainter::SmoothPixmapTransform, isReduced);
        painting->setCompositionMode(mode);
        painting->drawImage(target, image, source);
    }
}

QPainter *WmfCanvas::painter(qint64 steps)
{
    if (!m_state.mode || !m_work.take(steps))
        return nullptr;
    m_painter.setCompositionMode(*m_state.mode);
    // Logical operations know no pixel that is covered by half.
    m_painter.setRenderHint(QPainter::Antialiasing, *m_state.mode == QPainter::CompositionMode_SourceOver);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.resetTransform();
    if (m_state.clip)
        m_painter.setClipRegion(*m_state.clip);
    else
        m_painter.setClipping(false);
    m_painter.setBackground(m_state.background);
    return &m_painter;
}
