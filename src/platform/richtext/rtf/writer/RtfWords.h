#pragma once

#include <QByteArray>
#include <QStringView>

/// The small pieces that rich text is written of.
namespace RtfWords {

/// A control word without a number, or with one.
void append(QByteArray &out, const char *word);
void append(QByteArray &out, const char *word, int number);

/// A control word with a length, in whichever unit it has; beyond the largest that the format knows, with
/// that.
inline constexpr int largestLength = 32767;
void appendLength(QByteArray &out, const char *word, int length);

/// \a text in ASCII: every character that means something to the format, or is outside ASCII, escaped. The
/// text must not follow a control word that is still open.
void appendText(QByteArray &out, QStringView text);

} // namespace RtfWords
