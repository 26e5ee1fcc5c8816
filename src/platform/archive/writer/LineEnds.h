#pragma once

#include <QByteArray>

/// The line ends of text files, converted on the way into an archive.
namespace LineEnds {

enum class Conversion { None, ToLf, ToCrLf };

/// True where \a beginning has no NUL.
bool isText(QByteArrayView beginning);

/// \a text with other line ends; \a next is the character behind it. ToLf drops each CR before an LF, ToCrLf
/// puts one before each LF.
QByteArray convert(QByteArrayView text, char next, Conversion conversion);

} // namespace LineEnds
