#pragma once

#include <QString>

/// The code unit at \a first and the one behind it are one character.
inline bool isSurrogatePair(const QString &text, qsizetype first)
{
    return text[first].isHighSurrogate() && first + 1 < text.size() && text[first + 1].isLowSurrogate();
}
