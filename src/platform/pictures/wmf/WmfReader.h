#pragma once

#include <QByteArrayView>
#include <QImage>

/// Windows metafiles: pictures that are lists of drawing commands.
namespace WmfReader {

/// Whether \a file begins as a metafile does, with the header that gives its place and size, or without.
bool recognises(QByteArrayView file);

} // namespace WmfReader
