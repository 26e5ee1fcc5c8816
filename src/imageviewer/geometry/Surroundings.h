#pragma once

#include "ImageSize.h"

/// What the display rectangle is placed in; twips.
struct Surroundings
{
    ImageSize window; ///< the outer size, with its title bar
    ImageSize screen;
    float twipsPerPixelX = 15;
    float twipsPerPixelY = 15;
};
