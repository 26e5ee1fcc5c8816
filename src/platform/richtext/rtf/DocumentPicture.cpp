#include "DocumentPicture.h"

#include <QBuffer>
#include <QPixmap>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QUrl>

QImage DocumentPicture::image(const QTextDocument &document, const QTextImageFormat &format)
{
    const QVariant resource = document.resource(QTextDocument::ImageResource, QUrl(format.name()));
    switch (resource.typeId()) {
    case QMetaType::QByteArray:
        return QImage::fromData(resource.toByteArray());
    case QMetaType::QPixmap:
        return resource.value<QPixmap>().toImage();
    default:
        return resource.value<QImage>();
    }
}

QSizeF DocumentPicture::shownSize(const QTextImageFormat &format, const QSize &pixels)
{
    const QSizeF asked(format.width(), format.height());
    if (!asked.isEmpty() || pixels.isEmpty())
        return asked;
    if (format.width() > 0)
        return {format.width(), format.width() * pixels.height() / pixels.width()};
    if (format.height() > 0)
        return {format.height() * pixels.width() / pixels.height(), format.height()};
    return pixels;
}

QByteArray DocumentPicture::asPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return image.save(&buffer, "PNG") ? bytes : QByteArray();
}
