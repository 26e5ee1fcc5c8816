#include "StartPicture.h"

#include <QPainter>
#include <QSvgRenderer>

QImage StartPicture::make()
{
    QSvgRenderer drawing(QStringLiteral(":/imageviewer-start.svg"));
    QImage picture(drawing.defaultSize(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    return picture;
}
