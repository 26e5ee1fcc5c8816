#pragma once

#include <QImage>
#include <QImageIOHandler>

/// A picture as it came from its file, and as it is shown.
struct LoadedPicture
{
    LoadedPicture() = default;
    /// \a image turned upright by \a turning. Shares its pixels where there is nothing to turn.
    explicit LoadedPicture(const QImage &image,
                           QImageIOHandler::Transformations turning = QImageIOHandler::TransformationNone);

    QImage pixels; ///< upright, with the values that are in the file; what is saved
    QImage shown;  ///< in the screen's colours (sRGB); shares the pixels where nothing differs, as where the
                   ///< colour profile cannot be used
};
