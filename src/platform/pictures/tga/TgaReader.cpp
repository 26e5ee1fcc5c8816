#include "TgaReader.h"

#include "PictureLimit.h"
#include "RuntimeError.h"
#include "TgaPixels.h"

#include <algorithm>

namespace {

constexpr QRgb opaque = 0xFF000000;

QImage filled(TgaPixels &pixels, const TgaHeader &header)
{
    QImage image(header.width, header.height, QImage::Format_ARGB32);
    if (image.isNull())
        throw RuntimeError(ErrorNumber::OutOfMemory);
    for (int row = 0; row < header.height; ++row) {
        const int y = header.beginsTop ? row : header.height - 1 - row;
        QRgb *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int column = 0; column < header.width; ++column)
            line[header.beginsRight ? header.width - 1 - column : column] = pixels.next();
    }
    return image;
}

template<class Step>
void forEachPixel(QImage &image, Step step)
{
    for (int y = 0; y < image.height(); ++y) {
        QRgb *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::for_each(line, line + image.width(), step);
    }
}

/// No colour may be brighter than its pixel is opaque.
void limitToAlpha(QRgb &pixel)
{
    const int alpha = qAlpha(pixel);
    pixel = qRgba(qMin(qRed(pixel), alpha), qMin(qGreen(pixel), alpha), qMin(qBlue(pixel), alpha), alpha);
}

/// Many programs write a transparency that is zero everywhere and mean none.
QImage withTransparency(QImage image, TgaHeader::Transparency transparency)
{
    QRgb any = 0;
    QRgb all = opaque;
    forEachPixel(image, [&](QRgb pixel) {
        any |= pixel;
        all &= pixel;
    });
    if (transparency == TgaHeader::Transparency::None || !(any & opaque) || all == opaque) {
        forEachPixel(image, [](QRgb &pixel) { pixel |= opaque; });
        image.reinterpretAsFormat(QImage::Format_RGB32);
    } else if (transparency == TgaHeader::Transparency::Premultiplied) {
        forEachPixel(image, limitToAlpha);
        image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    }
    return image;
}

} // namespace

bool TgaReader::recognises(QByteArrayView file)
{
    return TgaHeader::of(file).has_value();
}

QImage TgaReader::read(QByteArrayView file, qint64 mostBytes)
{
    const std::optional<TgaHeader> header = TgaHeader::of(file);
    if (!header)
        throw RuntimeError(ErrorNumber::InvalidPicture);
    if (header->pixelCount() > mostBytes / qint64(sizeof(QRgb)))
        throw PictureLimit::exceeded();
    TgaPixels pixels(file, *header);
    return withTransparency(filled(pixels, *header), header->transparency);
}
