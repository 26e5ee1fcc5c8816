#pragma once

#include "ImagePlace.h"
#include "Surroundings.h"

#include <QPoint>

/// Where the display rectangle is in the window, and how large the window is around it. Lengths are 32-bit
/// floats; whole numbers are rounded, a half to the even one.
namespace Placing {

/// The middle of the window below \a barOffset. The numbers allow for the title bar and the borders.
///
/// Intended: a side is compared with the screen and not with the window, and one that is as long as the
/// screen's gets a place with the opposite sign.
ImagePlace centered(ImageSize image, const Surroundings &around, int barOffset);

/// A side is at least as long as the screen's.
bool fillsScreen(ImageSize image, const Surroundings &around);

/// The window that shows \a image.
ImageSize windowFor(ImageSize image);

/// The window, no smaller than \a image to the pixel: an unstretched picture cannot be made to stand out.
ImageSize heldBy(ImageSize image, const Surroundings &around);

/// \a window, which is no smaller than 290 by 270 pixels.
ImageSize noSmaller(ImageSize window, const Surroundings &around);

/// The rectangle in a window that it follows.
ImageSize filling(ImageSize window);

/// \a place moved by \a distance twips, damped, on the sides that are longer than the window's.
ImagePlace dragged(ImagePlace place, ImageSize image, const Surroundings &around, QPoint distance);

/// \a place where the rectangle may be while it is panned: the left and upper edges not inside the window,
/// nor the lower one.
///
/// Intended: on the right the picture may leave the window until 128 pixels of it are left.
ImagePlace clamped(ImagePlace place, ImageSize image, const Surroundings &around);

} // namespace Placing
