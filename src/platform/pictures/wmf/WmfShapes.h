#pragma once

#include "WmfCanvas.h"
#include "WmfRecord.h"

/// The commands that draw lines and shapes.
namespace WmfShapes {

void moveTo(WmfCanvas &canvas, const WmfRecord &record);
void lineTo(WmfCanvas &canvas, const WmfRecord &record);
void polyline(WmfCanvas &canvas, const WmfRecord &record);
void polygon(WmfCanvas &canvas, const WmfRecord &record);
void polygons(WmfCanvas &canvas, const WmfRecord &record);
void rectangle(WmfCanvas &canvas, const WmfRecord &record);
void roundRectangle(WmfCanvas &canvas, const WmfRecord &record);
void ellipse(WmfCanvas &canvas, const WmfRecord &record);
void arc(WmfCanvas &canvas, const WmfRecord &record);
void pie(WmfCanvas &canvas, const WmfRecord &record);
void chord(WmfCanvas &canvas, const WmfRecord &record);
/// Fills the rectangle around a region by the brush, or by one that the command names.
void paintRegion(WmfCanvas &canvas, const WmfRecord &record);
void fillRegion(WmfCanvas &canvas, const WmfRecord &record);

} // namespace WmfShapes
