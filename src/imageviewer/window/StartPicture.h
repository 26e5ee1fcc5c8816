#pragma once

#include <QImage>

/// The picture that the image window begins with.
namespace StartPicture {

QImage make();

} // namespace StartPicture
