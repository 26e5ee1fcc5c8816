#pragma once

#include "WmfCanvas.h"
#include "WmfRecordList.h"

/// Carries out the commands of a metafile. Commands to the printer or to the program that plays are passed
/// over, as are unknown ones.
namespace WmfPlayer {

/// Draws \a list on \a canvas up to its end, to where it is damaged, or to where the canvas's work is over.
void play(WmfRecordList &list, WmfCanvas &canvas);

} // namespace WmfPlayer
