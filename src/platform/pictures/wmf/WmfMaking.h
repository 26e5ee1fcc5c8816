#pragma once

#include "WmfCanvas.h"
#include "WmfRecord.h"

/// The commands that make, choose and delete a metafile's pens, brushes, fonts and regions.
namespace WmfMaking {

void makePen(WmfCanvas &canvas, const WmfRecord &record);
void makeBrush(WmfCanvas &canvas, const WmfRecord &record);
void makeFont(WmfCanvas &canvas, const WmfRecord &record);
void makeRegion(WmfCanvas &canvas, const WmfRecord &record);
void makePalette(WmfCanvas &canvas, const WmfRecord &record);
void makePatternBrush(WmfCanvas &canvas, const WmfRecord &record);
/// A brush from a picture of the screen of that time, which no other screen has: grey.
void makeOldPatternBrush(WmfCanvas &canvas, const WmfRecord &record);

void select(WmfCanvas &canvas, const WmfRecord &record);
void remove(WmfCanvas &canvas, const WmfRecord &record);

} // namespace WmfMaking
