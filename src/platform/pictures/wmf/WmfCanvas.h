#pragma once

#include "WmfObjects.h"
#include "WmfState.h"
#include "WmfWork.h"

#include <QImage>
#include <QPainter>
#include <vector>

/// The picture that a metafile draws on, with all that its commands share. Points in units become pixels
/// here.
class WmfCanvas
{
public:
    /// \a window is what \a image shows, in units.
    WmfCanvas(QImage &image, const QRectF &window);

    WmfState &state() { return m_state; }
    const WmfState &state() const { return m_state; }
    WmfObjects &objects() { return m_objects; }
    WmfWork &work() { return m_work; }
    QSize pixels() const { return m_pixels; }

    /// Saved states nest at most 256 deep; deeper ones are not kept.
    void save();
    /// A positive \a which is the number of a saved state, a negative one counts from the last.
    void restore(int which);

    QPointF toPixels(const QPointF &point);
    QRectF toPixels(const QRectF &rectangle);
    /// The pen in pixels; none is thinner than one.
    QPen penInPixels() const;

    /// Fills \a path by the state's brush and rules, and follows it by the pen. The path is in pixels.
    void drawShape(const QPainterPath &path);
    void drawOutline(const QPainterPath &path);
    void fill(const QRectF &pixels, const QBrush &brush, QPainter::CompositionMode mode);
    void drawImage(const QRectF &target, const QImage &image, const QRectF &source,
                   QPainter::CompositionMode mode);
    /// The painter, set up as the state says, for what costs \a steps; null when there is no work left.
    QPainter *painter(qint64 steps);

    /// Whether anything has been drawn.
    bool isUsed() const { return m_isUsed; }
    /// The rectangle of all points that were drawn so far, in units.
    QRectF drawnBounds() const { return m_drawnBounds; }

private:
    void fillShape(QPainter &painter, const QPainterPath &path) const;

    QSize m_pixels;
    QPainter m_painter;
    WmfState m_state;
    std::vector<WmfState> m_saved;
    WmfObjects m_objects;
    WmfWork m_work;
    QRectF m_drawnBounds;
    bool m_isUsed = false;
};
