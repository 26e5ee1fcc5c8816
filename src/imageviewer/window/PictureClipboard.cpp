#include "PictureClipboard.h"

#include "RuntimeError.h"

#include <QClipboard>
#include <QGuiApplication>

void PictureClipboard::put(const QImage &picture)
{
    QGuiApplication::clipboard()->clear();
    if (picture.isNull())
        throw RuntimeError(ErrorNumber::InvalidPicture);
    QGuiApplication::clipboard()->setImage(picture);
}

QImage PictureClipboard::get()
{
    const QImage picture = QGuiApplication::clipboard()->image();
    if (picture.isNull())
        throw RuntimeError(ErrorNumber::InvalidPicture);
    return picture;
}
