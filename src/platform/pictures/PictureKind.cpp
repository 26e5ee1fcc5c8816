#include "PictureKind.h"

#include "DeviceIndependentBitmap.h"
#include "IconDirectory.h"
#include "TgaReader.h"
#include "WmfReader.h"

PictureKind pictureKindOf(QByteArrayView bytes)
{
    if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a"))
        return PictureKind::Gif;
    if (bytes.startsWith("\xFF\xD8\xFF"))
        return PictureKind::Jpeg;
    if (bytes.startsWith("BM"))
        return PictureKind::Bitmap;
    if (IconDirectory::isIcon(bytes))
        return PictureKind::Icon;
    if (IconDirectory::isCursor(bytes))
        return PictureKind::Cursor;
    if (WmfReader::recognises(bytes))
        return PictureKind::Metafile;
    if (DeviceIndependentBitmap::recognises(bytes))
        return PictureKind::HeaderlessBitmap;
    // The last one, as its files begin with nothing of their own.
    if (TgaReader::recognises(bytes))
        return PictureKind::Targa;
    return PictureKind::None;
}
