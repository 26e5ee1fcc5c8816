#pragma once

#include <QByteArrayView>
#include <QImage>

/// Windows metafiles: pictures that are lists of drawing commands. They are drawn on white, as large as they
/// say they are at 96 pixels to the inch, but with no side longer than 4,096 pixels.
namespace WmfReader {

/// Whether \a file begins as a metafile does, with the header that gives its place and size, or without.
bool recognises(QByteArrayView file);

/// A file that is damaged is drawn up to there, and one that takes longer than a second or two up to where it
/// was. Throws RuntimeError 481 when \a file is no metafile, is damaged before it draws anything, or has a
/// picture of more than \a mostBytes.
QImage read(QByteArrayView file, qint64 mostBytes);

} // namespace WmfReader
