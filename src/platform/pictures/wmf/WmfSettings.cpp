#include "WmfSettings.h"

#include "WmfColor.h"

#include <array>

namespace {

using Mode = QPainter::CompositionMode;

/// The logical operations of pen and picture, from number 1 on.
constexpr std::array<std::optional<Mode>, 16> drawingModes = {
    QPainter::RasterOp_ClearDestination,
    QPainter::RasterOp_NotSourceAndNotDestination,
    QPainter::RasterOp_NotSourceAndDestination,
    QPainter::RasterOp_NotSource,
    QPainter::RasterOp_SourceAndNotDestination,
    QPainter::RasterOp_NotDestination,
    QPainter::RasterOp_SourceXorDestination,
    QPainter::RasterOp_NotSourceOrNotDestination,
    QPainter::RasterOp_SourceAndDestination,
    QPainter::RasterOp_NotSourceXorDestination,
    std::nullopt,
    QPainter::RasterOp_NotSourceOrDestination,
    QPainter::CompositionMode_SourceOver,
    QPainter::RasterOp_SourceOrNotDestination,
    QPainter::RasterOp_SourceOrDestination,
    QPainter::RasterOp_SetDestination,
};

/// A point, its vertical number first.
QPointF point(const WmfRecord &record)
{
    return QPointF(record.number(1), record.number(0));
}

QRect clipRectangle(WmfCanvas &canvas, const WmfRecord &record)
{
    const WmfMapping &mapping = canvas.state().mapping;
    const QPointF first = mapping.toPixels(QPointF(record.number(3), record.number(2)));
    const QPointF second = mapping.toPixels(QPointF(record.number(1), record.number(0)));
    return QRectF(first, second).normalized().toRect();
}

QRegion clipOf(const WmfCanvas &canvas)
{
    return canvas.state().clip.value_or(QRect(QPoint(), canvas.pixels()));
}

} // namespace

void WmfSettings::save(WmfCanvas &canvas, const WmfRecord &)
{
    canvas.save();
}

void WmfSettings::restore(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.restore(record.number(0));
}

void WmfSettings::setBackgroundMode(WmfCanvas &canvas, const WmfRecord &record)
{
    constexpr int transparent = 1;
    canvas.state().fillsBackground = record.number(0) != transparent;
}

void WmfSettings::setBackground(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.state().background = WmfColor::of(record, 0);
}

void WmfSettings::setDrawingMode(WmfCanvas &canvas, const WmfRecord &record)
{
    const int number = record.number(0);
    if (number >= 1 && std::size_t(number) <= drawingModes.size())
        canvas.state().mode = drawingModes[std::size_t(number) - 1];
}

void WmfSettings::setFillRule(WmfCanvas &canvas, const WmfRecord &record)
{
    constexpr int winding = 2;
    canvas.state().fillRule = record.number(0) == winding ? Qt::WindingFill : Qt::OddEvenFill;
}

void WmfSettings::setTextColor(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.state().textColor = WmfColor::of(record, 0);
}

void WmfSettings::setTextAlignment(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.state().textAlignment = record.word(0);
}

void WmfSettings::setTextSpacing(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.state().textSpacing = record.number(0);
}

void WmfSettings::setWindowOrigin(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.state().mapping.setOrigin(point(record));
}

void WmfSettings::setWindowExtent(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.state().mapping.setExtent(QSizeF(record.number(1), record.number(0)));
}

void WmfSettings::moveWindowOrigin(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.state().mapping.moveOrigin(point(record));
}

void WmfSettings::scaleWindowExtent(WmfCanvas &canvas, const WmfRecord &record)
{
    constexpr double longest = 1e6; // units
    const QSizeF extent = canvas.state().mapping.extent();
    const double yDivisor = record.number(0);
    const double xDivisor = record.number(2);
    if (xDivisor == 0 || yDivisor == 0)
        return;
    const QSizeF scaled(extent.width() * record.number(3) / xDivisor,
                        extent.height() * record.number(1) / yDivisor);
    if (qAbs(scaled.width()) >= 1 && qAbs(scaled.height()) >= 1 && qAbs(scaled.width()) <= longest &&
        qAbs(scaled.height()) <= longest)
        canvas.state().mapping.setExtent(scaled);
}

void WmfSettings::clipTo(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.state().clip = clipOf(canvas).intersected(clipRectangle(canvas, record));
}

void WmfSettings::clipAway(WmfCanvas &canvas, const WmfRecord &record)
{
    constexpr int mostPieces = 256; // each drawing walks through all of them
    const QRegion rest = clipOf(canvas).subtracted(clipRectangle(canvas, record));
    if (rest.rectCount() <= mostPieces)
        canvas.state().clip = rest;
}

void WmfSettings::moveClip(WmfCanvas &canvas, const WmfRecord &record)
{
    const WmfMapping &mapping = canvas.state().mapping;
    const QPointF by = mapping.toPixels(point(record)) - mapping.toPixels(QPointF());
    if (canvas.state().clip)
        canvas.state().clip->translate(by.toPoint());
}

void WmfSettings::clipToRegion(WmfCanvas &canvas, const WmfRecord &record)
{
    const auto *region = std::get_if<WmfObjects::Region>(&canvas.objects().at(record.word(0)));
    canvas.state().clip.reset();
    if (!region)
        return;
    const WmfMapping &mapping = canvas.state().mapping;
    const QRectF area(mapping.toPixels(region->topLeft()),
                      mapping.toPixels(region->topLeft() + QPointF(region->width(), region->height())));
    canvas.state().clip = area.normalized().toRect();
}
