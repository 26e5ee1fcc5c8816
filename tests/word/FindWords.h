#pragma once

#include "FindFlag.h"

#include <QString>

/// What the tests of searches write often.

inline constexpr int up = 0;
inline constexpr int down = FindFlag::Down;
inline constexpr int matchCase = FindFlag::MatchCase;
inline constexpr int wholeWord = FindFlag::WholeWord;

inline QString latin(const char *text)
{
    return QString::fromLatin1(text);
}
