#pragma once

#include <QImage>
#include <QImageIOHandler>

/// How a picture is to be seen.
namespace ShownPicture {

/// \a pixels turned by \a turning, and in sRGB where they have a colour profile of another kind. The same
/// shared image where neither changes anything; in their own colours where the profile cannot be used.
QImage of(const QImage &pixels, QImageIOHandler::Transformations turning);

} // namespace ShownPicture
