#pragma once

#include <QImage>

/// A picture as it came from its file, and as it is shown.
struct LoadedPicture
{
    QImage pixels; ///< as they are in the file; what is saved
    QImage shown;  ///< upright, and in the screen's colours (sRGB); shares the pixels where nothing differs
};
