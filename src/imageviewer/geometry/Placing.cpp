#include "Placing.h"

#include <cmath>

namespace {

int rounded(float value)
{
    constexpr float most = 1 << 30; // beyond, a conversion to int has no meaning
    return int(std::nearbyint(std::fmin(std::fmax(value, -most), most)));
}

int pixels(float twips, float twipsPerPixel)
{
    return rounded(twips / twipsPerPixel);
}

} // namespace

ImagePlace Placing::centered(ImageSize image, const Surroundings &around, int barOffset)
{
    constexpr float above = 740;
    constexpr float beside = 112;
    const float height = around.window.height - float(barOffset);
    const float width = around.window.width;
    const float top = image.height < around.screen.height ? (height - image.height - above) / 2
                                                          : (image.height - height + above) / 2;
    const float left = image.width < around.screen.width ? (width - image.width - beside) / 2
                                                         : (image.width - width + beside) / 2;
    return {left, top + float(barOffset)};
}

bool Placing::fillsScreen(ImageSize image, const Surroundings &around)
{
    return image.height >= around.screen.height || image.width >= around.screen.width;
}

ImageSize Placing::windowFor(ImageSize image)
{
    constexpr float narrow = 2551;
    const float above = image.width < narrow ? 1000 : 736;
    return {image.width + 116, image.height + above};
}

ImageSize Placing::heldBy(ImageSize image, const Surroundings &around)
{
    ImageSize window = around.window;
    if (pixels(window.width, around.twipsPerPixelX) < pixels(image.width, around.twipsPerPixelX))
        window.width = image.width;
    if (pixels(window.height, around.twipsPerPixelY) < pixels(image.height, around.twipsPerPixelY))
        window.height = image.height;
    return window;
}

ImageSize Placing::noSmaller(ImageSize window, const Surroundings &around)
{
    if (window.width < around.twipsPerPixelX * 290)
        window.width = around.twipsPerPixelY * 290; // Intended: the vertical factor
    if (window.height < around.twipsPerPixelY * 270)
        window.height = around.twipsPerPixelY * 270;
    return window;
}

ImageSize Placing::filling(ImageSize window)
{
    return {window.width, window.height - 100};
}

ImagePlace Placing::dragged(ImagePlace place, ImageSize image, const Surroundings &around, QPoint distance)
{
    constexpr double damping = 1.44; // distances are relative to the rectangle, which itself moves
    if (image.height > around.window.height)
        place.top = float(double(place.top) + distance.y() / damping);
    if (image.width > around.window.width)
        place.left = float(double(place.left) + distance.x() / damping);
    return place;
}

ImagePlace Placing::clamped(ImagePlace place, ImageSize image, const Surroundings &around)
{
    place.top = std::fmin(place.top, 0.0F);
    place.left = std::fmin(place.left, 0.0F);
    if (image.height > around.window.height && place.top < -(image.height - around.window.height))
        place.top = around.window.height - image.height;
    if (image.width > around.window.width) {
        const float limit = 128 * around.twipsPerPixelX - image.width;
        if (limit > float(rounded(place.left - 2 * around.twipsPerPixelX)))
            place.left = limit;
    }
    return place;
}
