#pragma once

#include <QByteArrayView>
#include <QImage>

/// Targa files: colours of 15, 16, 24 and 32 bits, colour tables, greys with and without transparency, plain
/// or run-length encoded, with the first pixel in any corner.
namespace TgaReader {

/// Whether \a file may be one. Its files begin with nothing of their own, so all that a header may say and
/// the length of the file are looked at: a file that is cut off, or a small one that says it is huge, is
/// none.
bool recognises(QByteArrayView file);

/// Throws RuntimeError 481 when \a file is none, is damaged, or has a picture of more than \a mostBytes.
QImage read(QByteArrayView file, qint64 mostBytes);

} // namespace TgaReader
