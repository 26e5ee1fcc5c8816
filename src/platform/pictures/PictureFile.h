#pragma once

#include "LoadedPicture.h"
#include "PictureLimit.h"

#include <QByteArray>
#include <QString>

/// Pictures in files: GIF (the first picture of an animation), JPEG, BMP, DIB, ICO and CUR (the largest
/// picture), WMF and TGA. What a file is follows from its content alone; its name and ending say nothing. The
/// functions run on the user-interface thread alone: Qt's limit for pictures is one for the whole process.
namespace PictureFile {

/// The picture in the regular file \a path, which may be replaced or removed as soon as this returns.
/// Throws RuntimeError: 481 when it is no picture of these kinds, damaged so that nothing can be shown, or
/// larger than \a mostBytes on the disk or, by four bytes to the pixel, in memory; 53 when it is missing, 70
/// when it may not be read, 75 when it is a folder, a device or a pipe, 57 or 7 when reading fails.
LoadedPicture read(const QString &path, qint64 mostBytes = PictureLimit::ofThisComputer());

/// The picture that \a bytes are the file of. Throws RuntimeError 481 as read does.
LoadedPicture decode(const QByteArray &bytes, qint64 mostBytes = PictureLimit::ofThisComputer());

/// Writes \a image as a bitmap file to \a path, whatever its ending. It may be the file that the picture was
/// read from, or a link to it. Where the picture is transparent, the bitmap is white. After any failure the
/// old file is unchanged and nothing is left beside it. Throws RuntimeError: 481 for a null image, 6 for one
/// larger than a bitmap file can be (2 GiB), 61 on a full disk, 70 without permission, 76 when the folder is
/// missing, 75 when \a path is a folder or a device.
void saveBitmap(const QImage &image, const QString &path);

} // namespace PictureFile
