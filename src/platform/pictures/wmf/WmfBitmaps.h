#pragma once

#include "WmfCanvas.h"
#include "WmfRecord.h"

/// The commands that draw bitmaps and whole rectangles. Those with bitmaps of the screen of that time, which
/// no other screen has, draw nothing.
namespace WmfBitmaps {

void fillPattern(WmfCanvas &canvas, const WmfRecord &record);
void drawBitmap(WmfCanvas &canvas, const WmfRecord &record);
void drawStretchedBitmap(WmfCanvas &canvas, const WmfRecord &record);
void stretchBitmap(WmfCanvas &canvas, const WmfRecord &record);
void setBitmap(WmfCanvas &canvas, const WmfRecord &record);
void setPixel(WmfCanvas &canvas, const WmfRecord &record);

} // namespace WmfBitmaps
