#include "IconFile.h"

#include "Files.h"
#include "Paths.h"
#include "RuntimeError.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixmap>

QIcon IconFile::read(const QString &name)
{
    const QString path = Paths::native(Paths::appPath() + name);
    QByteArray bytes = Files::read(path);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "ico");
    QIcon icon;
    do {
        if (const QImage image = reader.read(); !image.isNull())
            icon.addPixmap(QPixmap::fromImage(image));
    } while (reader.jumpToNextImage());
    if (icon.isNull())
        throw RuntimeError(ErrorNumber::InvalidPicture, {}, path);
    return icon;
}
