#include "WmfShapes.h"

#include <QLineF>

namespace {

/// A line goes through the middle of its pixels.
constexpr double middle = 0.5;

bool hasPen(const WmfCanvas &canvas)
{
    return canvas.state().pen.style() != Qt::NoPen;
}

QPointF toMiddle(WmfCanvas &canvas, const QPointF &units)
{
    return canvas.toPixels(units) + QPointF(middle, middle);
}

/// Appends the points from word \a index on.
void addPoints(QPainterPath &path, WmfCanvas &canvas, const WmfRecord &record, qsizetype index, int count)
{
    const bool isLine = hasPen(canvas);
    for (int point = 0; point < count && index + 1 < record.count(); ++point, index += 2) {
        const QPointF units(record.number(index), record.number(index + 1));
        const QPointF place = isLine ? toMiddle(canvas, units) : canvas.toPixels(units);
        if (point == 0)
            path.moveTo(place);
        else
            path.lineTo(place);
    }
}

/// The rectangle whose bottom, right, top and left begin at word \a index. Its last row and column of pixels
/// are outside; the pen's line is inside.
QRectF box(WmfCanvas &canvas, const WmfRecord &record, qsizetype index)
{
    const QRectF area = canvas.toPixels(QRectF(QPointF(record.number(index + 3), record.number(index + 2)),
                                               QPointF(record.number(index + 1), record.number(index))));
    const bool hasRoom = area.width() > 1 && area.height() > 1;
    return hasPen(canvas) && hasRoom ? area.adjusted(middle, middle, -middle, -middle) : area;
}

/// A part of an ellipse between two rays from its middle, against the clock.
struct Section
{
    QRectF box;
    double begin; ///< degrees
    double sweep;

    static Section of(WmfCanvas &canvas, const WmfRecord &record);
};

/// The angle of the ray to \a point as the ellipse in \a box counts it, which is a circle that was stretched.
double angleOf(const QRectF &box, const QPointF &point)
{
    const QPointF ray = point - box.center();
    return QLineF(QPointF(), QPointF(ray.x() / qMax(1.0, box.width()), ray.y() / qMax(1.0, box.height())))
        .angle();
}

Section Section::of(WmfCanvas &canvas, const WmfRecord &record)
{
    constexpr double turn = 360;
    const QRectF box = ::box(canvas, record, 4);
    const double begin = angleOf(box, canvas.toPixels(QPointF(record.number(3), record.number(2))));
    const double end = angleOf(box, canvas.toPixels(QPointF(record.number(1), record.number(0))));
    const double sweep = end - begin;
    return {box, begin, sweep > 0 ? sweep : sweep + turn};
}

} // namespace

void WmfShapes::moveTo(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.state().position = QPointF(record.number(1), record.number(0));
}

void WmfShapes::lineTo(WmfCanvas &canvas, const WmfRecord &record)
{
    QPainterPath path(toMiddle(canvas, canvas.state().position));
    moveTo(canvas, record);
    path.lineTo(toMiddle(canvas, canvas.state().position));
    canvas.drawOutline(path);
}

void WmfShapes::polyline(WmfCanvas &canvas, const WmfRecord &record)
{
    QPainterPath path;
    addPoints(path, canvas, record, 1, record.word(0));
    canvas.drawOutline(path);
}

void WmfShapes::polygon(WmfCanvas &canvas, const WmfRecord &record)
{
    QPainterPath path;
    addPoints(path, canvas, record, 1, record.word(0));
    path.closeSubpath();
    canvas.drawShape(path);
}

void WmfShapes::polygons(WmfCanvas &canvas, const WmfRecord &record)
{
    const int count = record.word(0);
    qsizetype index = 1 + count;
    QPainterPath path;
    for (int polygon = 0; polygon < count && index < record.count(); ++polygon) {
        const int points = record.word(1 + polygon);
        addPoints(path, canvas, record, index, points);
        path.closeSubpath();
        index += 2 * qsizetype(points);
    }
    canvas.drawShape(path);
}

void WmfShapes::rectangle(WmfCanvas &canvas, const WmfRecord &record)
{
    QPainterPath path;
    path.addRect(box(canvas, record, 0));
    canvas.drawShape(path);
}

void WmfShapes::roundRectangle(WmfCanvas &canvas, const WmfRecord &record)
{
    const WmfMapping &mapping = canvas.state().mapping;
    QPainterPath path;
    path.addRoundedRect(box(canvas, record, 2), qAbs(record.number(1)) * mapping.scaleX() / 2,
                        qAbs(record.number(0)) * mapping.scaleY() / 2);
    canvas.drawShape(path);
}

void WmfShapes::ellipse(WmfCanvas &canvas, const WmfRecord &record)
{
    QPainterPath path;
    path.addEllipse(box(canvas, record, 0));
    canvas.drawShape(path);
}

void WmfShapes::arc(WmfCanvas &canvas, const WmfRecord &record)
{
    const Section section = Section::of(canvas, record);
    QPainterPath path;
    path.arcMoveTo(section.box, section.begin);
    path.arcTo(section.box, section.begin, section.sweep);
    canvas.drawOutline(path);
}

void WmfShapes::pie(WmfCanvas &canvas, const WmfRecord &record)
{
    const Section section = Section::of(canvas, record);
    QPainterPath path(section.box.center());
    path.arcTo(section.box, section.begin, section.sweep);
    path.closeSubpath();
    canvas.drawShape(path);
}

void WmfShapes::chord(WmfCanvas &canvas, const WmfRecord &record)
{
    const Section section = Section::of(canvas, record);
    QPainterPath path;
    path.arcMoveTo(section.box, section.begin);
    path.arcTo(section.box, section.begin, section.sweep);
    path.closeSubpath();
    canvas.drawShape(path);
}

void WmfShapes::paintRegion(WmfCanvas &canvas, const WmfRecord &record)
{
    const auto *region = std::get_if<WmfObjects::Region>(&canvas.objects().at(record.word(0)));
    if (region && canvas.state().brush.style() != Qt::NoBrush)
        canvas.fill(canvas.toPixels(QRectF(*region)), canvas.state().brush,
                    QPainter::CompositionMode_SourceOver);
}

void WmfShapes::fillRegion(WmfCanvas &canvas, const WmfRecord &record)
{
    const auto *region = std::get_if<WmfObjects::Region>(&canvas.objects().at(record.word(0)));
    const auto *brush = std::get_if<QBrush>(&canvas.objects().at(record.word(1)));
    if (region && brush && brush->style() != Qt::NoBrush)
        canvas.fill(canvas.toPixels(QRectF(*region)), *brush, QPainter::CompositionMode_SourceOver);
}
