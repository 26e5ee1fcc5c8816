#pragma once

#include "WmfCanvas.h"
#include "WmfRecord.h"

/// The commands that draw texts.
namespace WmfTexts {

void textOut(WmfCanvas &canvas, const WmfRecord &record);
/// The same with a rectangle to fill or to clip to, and with the width of each character.
void extendedTextOut(WmfCanvas &canvas, const WmfRecord &record);

} // namespace WmfTexts
