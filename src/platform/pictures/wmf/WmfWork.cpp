#include "WmfWork.h"

namespace {

constexpr qint64 stepsToTheElement = 50;
constexpr qint64 stepsToTheLength = 4; // an edge is followed line by line
constexpr qint64 pixelsToTheStep = 4;
constexpr double endless = 1e9; // pixels

double length(const QPainterPath &path, const QSizeF &most)
{
    double sum = 0;
    for (int index = 1; index < path.elementCount(); ++index) {
        const QPointF from = path.elementAt(index - 1);
        const QPointF to = path.elementAt(index);
        sum += qMin(qAbs(to.x() - from.x()), most.width()) + qMin(qAbs(to.y() - from.y()), most.height());
    }
    return sum;
}

} // namespace

bool WmfWork::take(qint64 steps)
{
    m_left -= qMin(steps, allowed + 1);
    return m_left >= 0;
}

qint64 WmfWork::ofFilling(const QRectF &area) const
{
    const QRectF seen = area.normalized().intersected(QRectF(QPointF(), m_pixels));
    return stepsToTheElement + qint64(seen.width() * seen.height()) / pixelsToTheStep;
}

/// Each line of pixels keeps its crossings in a list that is walked through for each new one.
qint64 WmfWork::ofEdges(double length) const
{
    const double crossings = qMin(length / m_pixels.height(), double(m_pixels.width()));
    return qint64(length * (stepsToTheLength + crossings / 2));
}

qint64 WmfWork::ofFilling(const QPainterPath &path) const
{
    return ofFilling(path.controlPointRect()) + stepsToTheElement * path.elementCount() +
           ofEdges(length(path, m_pixels));
}

/// A line becomes a shape of its own, and each of its dashes too; those are made beyond the edge as well.
qint64 WmfWork::ofStroking(const QPainterPath &path, const QPen &pen) const
{
    constexpr qint64 edges = 4;
    constexpr qint64 stepsToTheDash = 400;
    const double width = qMin(pen.widthF(), double(qMax(m_pixels.width(), m_pixels.height())));
    const double line = length(path, m_pixels);
    const double outline = 2 * line + edges * width * path.elementCount();
    const bool isDashed = pen.style() != Qt::SolidLine;
    const double dashes = isDashed ? length(path, QSizeF(endless, endless)) / pen.widthF() : 0;
    return edges * stepsToTheElement * path.elementCount() + ofEdges(outline) +
           qint64(line * width) / pixelsToTheStep + stepsToTheDash * qint64(dashes);
}

qint64 WmfWork::ofChoosing(const QFont &font)
{
    constexpr qint64 first = 2'000'000;
    constexpr qint64 again = 5000;
    const QString key = font.key();
    if (m_knownFonts.contains(key))
        return again;
    m_knownFonts.insert(key);
    return first;
}
