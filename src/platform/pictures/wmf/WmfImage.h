#pragma once

#include "WmfCanvas.h"

/// The bitmaps in a metafile's commands.
namespace WmfImage {

/// The picture of the headerless \a bitmap. A null one where it is damaged, has more than 16 million pixels,
/// or \a canvas has no work left for it.
QImage of(WmfCanvas &canvas, QByteArrayView bitmap);

} // namespace WmfImage
