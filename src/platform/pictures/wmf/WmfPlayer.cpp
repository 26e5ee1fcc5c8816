#include "WmfPlayer.h"

#include "WmfBitmaps.h"
#include "WmfMaking.h"
#include "WmfSettings.h"
#include "WmfShapes.h"
#include "WmfTexts.h"

#include <algorithm>

namespace {

struct Command
{
    quint16 function;
    void (*run)(WmfCanvas &canvas, const WmfRecord &record);
};

/// In the order of their numbers.
constexpr Command commands[] = {
    {0x001E, WmfSettings::save},
    {0x00F7, WmfMaking::makePalette},
    {0x0102, WmfSettings::setBackgroundMode},
    {0x0104, WmfSettings::setDrawingMode},
    {0x0106, WmfSettings::setFillRule},
    {0x0108, WmfSettings::setTextSpacing},
    {0x0127, WmfSettings::restore},
    {0x012B, WmfShapes::paintRegion},
    {0x012C, WmfSettings::clipToRegion},
    {0x012D, WmfMaking::select},
    {0x012E, WmfSettings::setTextAlignment},
    {0x0142, WmfMaking::makePatternBrush},
    {0x01F0, WmfMaking::remove},
    {0x01F9, WmfMaking::makeOldPatternBrush},
    {0x0201, WmfSettings::setBackground},
    {0x0209, WmfSettings::setTextColor},
    {0x020B, WmfSettings::setWindowOrigin},
    {0x020C, WmfSettings::setWindowExtent},
    {0x020F, WmfSettings::moveWindowOrigin},
    {0x0213, WmfShapes::lineTo},
    {0x0214, WmfShapes::moveTo},
    {0x0220, WmfSettings::moveClip},
    {0x0228, WmfShapes::fillRegion},
    {0x02FA, WmfMaking::makePen},
    {0x02FB, WmfMaking::makeFont},
    {0x02FC, WmfMaking::makeBrush},
    {0x0324, WmfShapes::polygon},
    {0x0325, WmfShapes::polyline},
    {0x0410, WmfSettings::scaleWindowExtent},
    {0x0415, WmfSettings::clipAway},
    {0x0416, WmfSettings::clipTo},
    {0x0418, WmfShapes::ellipse},
    {0x041B, WmfShapes::rectangle},
    {0x041F, WmfBitmaps::setPixel},
    {0x0521, WmfTexts::textOut},
    {0x0538, WmfShapes::polygons},
    {0x061C, WmfShapes::roundRectangle},
    {0x061D, WmfBitmaps::fillPattern},
    {0x06FF, WmfMaking::makeRegion},
    {0x0817, WmfShapes::arc},
    {0x081A, WmfShapes::pie},
    {0x0830, WmfShapes::chord},
    {0x0940, WmfBitmaps::drawBitmap},
    {0x0A32, WmfTexts::extendedTextOut},
    {0x0B41, WmfBitmaps::drawStretchedBitmap},
    {0x0D33, WmfBitmaps::setBitmap},
    {0x0F43, WmfBitmaps::stretchBitmap},
};

static_assert(std::ranges::is_sorted(commands, {}, &Command::function));

} // namespace

void WmfPlayer::play(WmfRecordList &list, WmfCanvas &canvas)
{
    constexpr qint64 stepsToTheRecord = 50;
    while (const std::optional<WmfRecord> record = list.next()) {
        if (!canvas.work().take(stepsToTheRecord))
            return;
        const auto *command = std::ranges::lower_bound(commands, record->function, {}, &Command::function);
        if (command != std::end(commands) && command->function == record->function)
            command->run(canvas, *record);
    }
}
