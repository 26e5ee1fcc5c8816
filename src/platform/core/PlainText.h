#pragma once

#include <QByteArray>
#include <QString>

/// Plain text files and the suite's Windows-1252 data files.
namespace PlainText {

enum class LineEnd { Lf, CrLf, Cr };

/// \a bytes as text with "\n" line ends: UTF-8 if they are valid UTF-8 (a byte order mark is dropped),
/// UTF-16 if they begin with its mark, else Windows-1252. NUL characters become U+FFFD.
QString decode(const QByteArray &bytes);

/// The line end that most lines of \a bytes have; Lf when there is none.
LineEnd lineEndOf(const QByteArray &bytes);

/// \a text ("\n" line ends) as UTF-8 with the line ends asked for.
QByteArray encode(const QString &text, LineEnd lineEnd);

/// Windows-1252 both ways; a character outside the page becomes "?".
QString fromWindows1252(QByteArrayView bytes);
QByteArray toWindows1252(QStringView text);

} // namespace PlainText
