#include "WmfFrame.h"

#include "WmfPlayer.h"
#include "WmfRecordList.h"

namespace {

constexpr double screenResolution = 96; // pixels to the inch
constexpr int longestSide = 4096;
constexpr int longestSideWithoutUnits = 1024;

/// \a pixels with their ratio, but no side longer than \a longest nor without a pixel.
QSize bounded(const QSizeF &pixels, double longest)
{
    const double factor = qMin(1.0, longest / qMax(pixels.width(), pixels.height()));
    return (pixels * factor).toSize().expandedTo({1, 1});
}

QSizeF absolute(const QSizeF &size)
{
    return {qAbs(size.width()), qAbs(size.height())};
}

/// What the commands before the first drawing say.
struct Announcement
{
    QPointF origin;
    QSizeF extent = {0, 0}; ///< where they say none
    int mapMode = 0;
};

Announcement announcementOf(QByteArrayView commands)
{
    constexpr quint16 setMapMode = 0x0103;
    constexpr quint16 setWindowOrigin = 0x020B;
    constexpr quint16 setWindowExtent = 0x020C;
    constexpr int mostRecords = 1000;
    Announcement announcement;
    WmfRecordList list(commands);
    for (int count = 0; count < mostRecords && announcement.extent.isNull(); ++count) {
        const std::optional<WmfRecord> record = list.next();
        if (!record)
            break;
        if (record->function == setMapMode)
            announcement.mapMode = record->number(0);
        else if (record->function == setWindowOrigin)
            announcement.origin = QPointF(record->number(1), record->number(0));
        else if (record->function == setWindowExtent && record->number(0) != 0 && record->number(1) != 0)
            announcement.extent = QSizeF(record->number(1), record->number(0));
    }
    return announcement;
}

/// Units to the inch; zero for a mode that has none.
double unitsPerInch(int mapMode)
{
    switch (mapMode) {
    case 2:
        return 254;
    case 3:
        return 2540;
    case 4:
        return 100;
    case 5:
        return 1000;
    case 6:
        return 1440;
    default:
        return 0;
    }
}

QRectF drawnBounds(QByteArrayView commands)
{
    QImage image(1, 1, QImage::Format_RGB32);
    WmfCanvas canvas(image, QRectF(0, 0, 1, 1));
    WmfRecordList list(commands);
    WmfPlayer::play(list, canvas);
    return canvas.isUsed() ? canvas.drawnBounds() : QRectF(0, 0, 1, 1);
}

/// The modes with units count from below.
QRectF upwards(const QRectF &bounds)
{
    return QRectF(bounds.left(), bounds.bottom(), bounds.width(), -bounds.height());
}

} // namespace

WmfFrame WmfFrame::of(const WmfHeader &header, QByteArrayView commands)
{
    WmfFrame frame;
    if (header.bounds.width() != 0 && header.bounds.height() != 0) {
        frame.window = header.bounds;
        const QSizeF pixels = absolute(frame.window.size()) * (screenResolution / header.unitsPerInch);
        frame.pixels = bounded(pixels, longestSide);
        return frame;
    }
    const Announcement announcement = announcementOf(commands);
    const double units = unitsPerInch(announcement.mapMode);
    frame.window = QRectF(announcement.origin, announcement.extent);
    if (announcement.extent.isNull())
        frame.window = units > 0 ? upwards(drawnBounds(commands)) : drawnBounds(commands);
    const QSizeF pixels = absolute(frame.window.size()) * (units > 0 ? screenResolution / units : 1);
    frame.pixels = bounded(pixels, units > 0 ? longestSide : longestSideWithoutUnits);
    return frame;
}
