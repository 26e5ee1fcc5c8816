#pragma once

#include "WmfCanvas.h"
#include "WmfRecord.h"

/// The commands that change how a metafile draws from then on.
namespace WmfSettings {

void save(WmfCanvas &canvas, const WmfRecord &record);
void restore(WmfCanvas &canvas, const WmfRecord &record);

void setBackgroundMode(WmfCanvas &canvas, const WmfRecord &record);
void setBackground(WmfCanvas &canvas, const WmfRecord &record);
void setDrawingMode(WmfCanvas &canvas, const WmfRecord &record);
void setFillRule(WmfCanvas &canvas, const WmfRecord &record);
void setTextColor(WmfCanvas &canvas, const WmfRecord &record);
void setTextAlignment(WmfCanvas &canvas, const WmfRecord &record);
void setTextSpacing(WmfCanvas &canvas, const WmfRecord &record);

void setWindowOrigin(WmfCanvas &canvas, const WmfRecord &record);
void setWindowExtent(WmfCanvas &canvas, const WmfRecord &record);
void moveWindowOrigin(WmfCanvas &canvas, const WmfRecord &record);
void scaleWindowExtent(WmfCanvas &canvas, const WmfRecord &record);

void clipTo(WmfCanvas &canvas, const WmfRecord &record);
void clipAway(WmfCanvas &canvas, const WmfRecord &record);
void moveClip(WmfCanvas &canvas, const WmfRecord &record);
/// Clips to the rectangle around a region; to nothing else where there is no such region.
void clipToRegion(WmfCanvas &canvas, const WmfRecord &record);

} // namespace WmfSettings
