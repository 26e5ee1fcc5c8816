#pragma once

/// Where the display rectangle's top left corner is in the window's client area; twips.
struct ImagePlace
{
    float left = 0;
    float top = 0;

    bool operator==(const ImagePlace &) const = default;
};
