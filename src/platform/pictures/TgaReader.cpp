#include "TgaReader.h"

#include "PictureLimit.h"
#include "RuntimeError.h"
#include "TgaPixels.h"

namespace {

void fill(QImage &image, TgaPixels &pixels, const TgaHeader &header)
{
    for (int row = 0; row < header.height; ++row) {
        const int y = header.beginsTop ? row : header.height - 1 - row;
        QRgb *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int column = 0; column < header.width; ++column)
            line[header.beginsRight ? header.width - 1 - column : column] = pixels.next();
    }
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
    QImage image(header->width, header->height, QImage::Format_ARGB32);
    if (image.isNull())
        throw RuntimeError(ErrorNumber::OutOfMemory);
    TgaPixels pixels(file, *header);
    fill(image, pixels, *header);
    return image;
}
