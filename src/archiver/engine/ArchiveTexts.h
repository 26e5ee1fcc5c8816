#pragma once

#include <QByteArray>
#include <QString>
#include <span>

/// Texts between the archive libraries and the classes: bytes there, texts with "\" in paths here.
namespace ArchiveTexts {

/// The libraries' callbacks leave texts of one byte, or of 1,024 and more, alone.
bool isHeard(QByteArrayView text);

/// \a bytes up to the first NUL.
QByteArray untilNul(QByteArrayView bytes);

/// As FileNames has the bytes.
QString text(QByteArrayView bytes);

/// Each "/" as "\".
QString withBackslashes(const QString &text);

/// Each "/" as "\", from left to right; ends where the next "/" is the first character of the text, so that a
/// text that begins with "/" stays as it is.
QString withBackslashesUnlessFirst(const QString &text);

/// The first \a most bytes of \a bytes, UTF-8, without half of a character at their end.
QByteArray cut(const QByteArray &bytes, qsizetype most);

/// Fills all of \a buffer: \a bytes as far as they go, then NUL.
void fill(std::span<char> buffer, QByteArrayView bytes);

} // namespace ArchiveTexts
