#pragma once

/// Whether \a character is "0" to "9", whatever the locale.
constexpr bool isAsciiDigit(char character)
{
    return character >= '0' && character <= '9';
}
