#pragma once

/// Twips, in 32-bit floats as the display rectangle keeps them.
struct ImageSize
{
    float width = 0;
    float height = 0;

    bool operator==(const ImageSize &) const = default;
};
