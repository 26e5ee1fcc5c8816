#include "LoadedPicture.h"

#include <QColorSpace>
#include <QTransform>

namespace {

QImage turned(const QImage &pixels, QImageIOHandler::Transformations turning)
{
    const bool isMirrored = turning & QImageIOHandler::TransformationMirror;
    const bool isFlipped = turning & QImageIOHandler::TransformationFlip;
    const QImage image = isMirrored || isFlipped ? pixels.mirrored(isMirrored, isFlipped) : pixels;
    constexpr double quarter = 90; // degrees, clockwise
    return turning & QImageIOHandler::TransformationRotate90 ? image.transformed(QTransform().rotate(quarter))
                                                             : image;
}

QImage inScreenColors(const QImage &image)
{
    const QColorSpace screen(QColorSpace::SRgb);
    if (!image.colorSpace().isValid() || image.colorSpace() == screen)
        return image;
    const QImage converted = image.convertedToColorSpace(screen);
    return converted.isNull() ? image : converted;
}

} // namespace

LoadedPicture::LoadedPicture(const QImage &image, QImageIOHandler::Transformations turning)
    : pixels(turned(image, turning))
    , shown(inScreenColors(pixels))
{}
