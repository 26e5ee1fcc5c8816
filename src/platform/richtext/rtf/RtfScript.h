#pragma once

#include <QChar>

/// The scripts that the format keeps formats of their own for. Which text is in one of these is decided by
/// its characters; blanks and punctuation belong to all.
namespace RtfScript {

/// No character before it is in any of them.
constexpr char16_t first = 0x0590;

/// Letters of scripts that run from right to left or join, from Hebrew to Mongolian.
constexpr bool isComplex(char16_t c)
{
    return (c >= first && c < 0x10A0) || (c >= 0x1780 && c < 0x18B0) || (c >= 0xFB1D && c < 0xFE00) ||
           (c >= 0xFE70 && c < QChar::ByteOrderMark);
}

/// Letters and signs of Chinese, Japanese and Korean, and all that takes two code units, such as emoji.
constexpr bool isEastAsian(char16_t c)
{
    return (c >= 0x1100 && c < 0x1200) || (c >= 0x2E80 && c < 0xE000) || (c >= 0xF900 && c < 0xFB00) ||
           (c >= 0xFE30 && c < 0xFE50) || (c >= 0xFF00 && c < 0xFFF0);
}

} // namespace RtfScript
