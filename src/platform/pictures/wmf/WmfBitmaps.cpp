#include "WmfBitmaps.h"

#include "WmfColor.h"
#include "WmfImage.h"

namespace {

/// The operations by which sources and patterns are joined with the picture, by the byte that tells them
/// apart.
std::optional<QPainter::CompositionMode> modeOf(quint32 operation)
{
    switch (operation >> 16 & 0xFF) {
    case 0xCC: // the source
    case 0xF0: // the pattern
        return QPainter::CompositionMode_SourceOver;
    case 0x88:
    case 0xA0:
        return QPainter::RasterOp_SourceAndDestination;
    case 0xEE:
    case 0xFA:
        return QPainter::RasterOp_SourceOrDestination;
    case 0x66:
    case 0x5A:
        return QPainter::RasterOp_SourceXorDestination;
    case 0x33:
    case 0x0F:
        return QPainter::RasterOp_NotSource;
    case 0x44:
        return QPainter::RasterOp_SourceAndNotDestination;
    case 0x22:
        return QPainter::RasterOp_NotSourceAndDestination;
    case 0xBB:
        return QPainter::RasterOp_NotSourceOrDestination;
    case 0x55:
        return QPainter::RasterOp_NotDestination;
    case 0x00:
        return QPainter::RasterOp_ClearDestination;
    case 0xFF:
        return QPainter::RasterOp_SetDestination;
    default:
        return {};
    }
}

/// The rectangle whose height, width, top and left begin at word \a index.
QRectF rectangle(const WmfRecord &record, qsizetype index)
{
    return QRectF(record.number(index + 3), record.number(index + 2), record.number(index + 1),
                  record.number(index));
}

struct Bitmap
{
    QByteArrayView bytes;
    QRectF source; ///< in its pixels, from the top
    QRectF target; ///< in units
    quint32 operation;
    bool countsFromBelow = false;
};

/// A side below zero turns the bitmap round.
void draw(WmfCanvas &canvas, const Bitmap &bitmap)
{
    const std::optional<QPainter::CompositionMode> mode = modeOf(bitmap.operation);
    QImage image = mode ? WmfImage::of(canvas, bitmap.bytes) : QImage();
    if (image.isNull())
        return;
    QRectF source = bitmap.source.normalized();
    if (bitmap.countsFromBelow)
        source.moveTop(image.height() - source.bottom());
    source = source.intersected(image.rect());
    const QRectF corners =
        QRectF(canvas.toPixels(bitmap.target.topLeft()), canvas.toPixels(bitmap.target.bottomRight()));
    const bool isMirrored = (corners.width() < 0) != (bitmap.source.width() < 0);
    const bool isFlipped = (corners.height() < 0) != (bitmap.source.height() < 0);
    if (isMirrored || isFlipped) {
        image = image.copy(source.toAlignedRect()).mirrored(isMirrored, isFlipped);
        source = image.rect();
    }
    canvas.drawImage(corners.normalized(), image, source, *mode);
}

/// The commands with a bitmap say in their own number how long they are without one.
bool isWithoutBitmap(const WmfRecord &record)
{
    return record.count() == (record.function >> 8);
}

void fill(WmfCanvas &canvas, const QRectF &target, quint32 operation)
{
    const QBrush &brush = canvas.state().brush;
    const std::optional<QPainter::CompositionMode> mode = modeOf(operation);
    if (mode && brush.style() != Qt::NoBrush)
        canvas.fill(canvas.toPixels(target), brush, *mode);
}

} // namespace

void WmfBitmaps::fillPattern(WmfCanvas &canvas, const WmfRecord &record)
{
    fill(canvas, rectangle(record, 2), record.longWord(0));
}

void WmfBitmaps::drawBitmap(WmfCanvas &canvas, const WmfRecord &record)
{
    if (isWithoutBitmap(record))
        return fill(canvas, rectangle(record, 5), record.longWord(0));
    const QRectF target = rectangle(record, 4);
    draw(canvas, {record.from(8), QRectF(QPointF(record.number(3), record.number(2)), target.size()), target,
                  record.longWord(0)});
}

void WmfBitmaps::drawStretchedBitmap(WmfCanvas &canvas, const WmfRecord &record)
{
    if (isWithoutBitmap(record))
        return fill(canvas, rectangle(record, 7), record.longWord(0));
    draw(canvas, {record.from(10), rectangle(record, 2), rectangle(record, 6), record.longWord(0)});
}

void WmfBitmaps::stretchBitmap(WmfCanvas &canvas, const WmfRecord &record)
{
    draw(canvas, {record.from(11), rectangle(record, 3), rectangle(record, 7), record.longWord(0), true});
}

void WmfBitmaps::setBitmap(WmfCanvas &canvas, const WmfRecord &record)
{
    constexpr quint32 copy = 0xCC0020;
    const QRectF target = rectangle(record, 5);
    draw(canvas, {record.from(9), QRectF(QPointF(record.number(4), record.number(3)), target.size()), target,
                  copy, true});
}

void WmfBitmaps::setPixel(WmfCanvas &canvas, const WmfRecord &record)
{
    const QPointF place = canvas.toPixels(QPointF(record.number(3), record.number(2)));
    canvas.fill(QRectF(place.toPoint(), QSizeF(1, 1)), WmfColor::of(record, 0),
                QPainter::CompositionMode_SourceOver);
}
