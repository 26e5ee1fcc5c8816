#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>

/// Where a metafile's units are in the picture. The picture is the whole of the file's window.
class WmfMapping
{
public:
    /// \a window has its origin in the picture's top left corner; a negative side of it points to the left or
    /// up.
    WmfMapping(const QRectF &window, const QSize &pixels)
        : m_window(window)
        , m_pixels(pixels)
    {}

    void setOrigin(const QPointF &origin) { m_window = QRectF(origin, m_window.size()); }
    void moveOrigin(const QPointF &by) { setOrigin(m_window.topLeft() + by); }
    /// A side of zero leaves all as it is.
    void setExtent(const QSizeF &extent);
    const QSizeF extent() const { return m_window.size(); }

    /// In pixels, within reach of the painter however far away \a point is.
    QPointF toPixels(const QPointF &point) const;
    /// Pixels to the unit; never negative.
    double scaleX() const { return qAbs(m_pixels.width() / m_window.width()); }
    double scaleY() const { return qAbs(m_pixels.height() / m_window.height()); }

private:
    QRectF m_window;
    QSize m_pixels;
};
