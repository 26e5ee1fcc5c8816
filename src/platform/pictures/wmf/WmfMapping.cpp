#include "WmfMapping.h"

void WmfMapping::setExtent(const QSizeF &extent)
{
    if (extent.width() != 0 && extent.height() != 0)
        m_window.setSize(extent);
}

QPointF WmfMapping::toPixels(const QPointF &point) const
{
    constexpr double reach = 30000;
    const QPointF offset = point - m_window.topLeft();
    return {qBound(-reach, offset.x() / m_window.width() * m_pixels.width(), reach),
            qBound(-reach, offset.y() / m_window.height() * m_pixels.height(), reach)};
}
