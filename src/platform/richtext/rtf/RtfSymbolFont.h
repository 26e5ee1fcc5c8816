#pragma once

#include <QString>

/// The fonts of signs that put their own pictures on the places of letters.
namespace RtfSymbolFont {

enum class Kind { None, Symbol, Wingdings, Other };

/// \a isSymbolCharset: the font table says that the font has signs in place of letters.
Kind kind(const QString &family, bool isSymbolCharset);

/// The character of place \a place (0x20 to 0xFF, or the same in the private area at U+F000). What has no
/// character of its own stays in the private area, where the font keeps its signs.
char16_t character(Kind kind, char16_t place);

} // namespace RtfSymbolFont
