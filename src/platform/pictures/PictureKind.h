#pragma once

#include <QByteArrayView>

/// The kinds of picture files that are read.
enum class PictureKind { None, Gif, Jpeg, Bitmap, HeaderlessBitmap, Icon, Cursor, Metafile, Targa };

/// What the file \a bytes is, by its content. A file of another kind is None, whatever reads it elsewhere.
PictureKind pictureKindOf(QByteArrayView bytes);
