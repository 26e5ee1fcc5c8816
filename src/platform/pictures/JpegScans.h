#pragma once

#include <QByteArrayView>

/// The scans of a progressive JPEG file, each of which is a pass over the whole picture: ten in the files of
/// common programs. A small file with thousands of them would keep the reader busy for hours.
namespace JpegScans {

int count(QByteArrayView file);

} // namespace JpegScans
