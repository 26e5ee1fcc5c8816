#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The values of vCards: their escapes, their lists and the folding of their lines.
namespace VCardText {

/// \a text as a value, or as a part of one: line ends, commas, semicolons and backslashes are escaped, other
/// control characters left out.
QString escaped(const QString &text);
QString unescaped(const QString &value);

/// The parts of \a value between separators that are not escaped; the parts themselves are left escaped.
QStringList split(const QString &value, QChar separator);

/// \a line and its end, cut into lines of at most 75 bytes without their ends, never within a character.
QByteArray folded(const QString &line);

/// The lines of \a bytes as they were before they were folded, by blanks or in quoted-printable. Their
/// characters are UTF-8 where \a bytes begin with a mark of UTF-16, else as in \a bytes.
QByteArrayList unfolded(const QByteArray &bytes);

} // namespace VCardText
