#pragma once

#include "ImageSize.h"

#include <QtGlobal>

/// What the sizing commands make of a display rectangle. Only fromRatio() and squared() round, a half to the
/// even neighbour, and have a limit of 16 bits.
namespace SizeSteps {

inline constexpr int percentRows = 20; ///< "25", "50", "100", "200" ... "1800"
inline constexpr int wholeRow = 2;     ///< "100"

/// The percentage that row \a row of the list stands for.
int percent(int row);

/// \a own, the picture's own size, at row \a row of the list of percentages.
ImageSize atPercent(ImageSize own, int row);

/// \a own with the height that its width has at \a across to \a down. Throws RuntimeError 6 for a height of
/// more than 32767 twips.
ImageSize fromRatio(ImageSize own, qint16 across, qint16 down);

/// Both sides at their mean, up to half a twip. Throws RuntimeError 6 for sides that differ by more than
/// 32767 twips.
ImageSize squared(ImageSize size);

} // namespace SizeSteps
