#pragma once

/// The bits of the find dialog's flag word: what it searches for, and in a request what it wants done.
namespace FindFlag {

inline constexpr int Down = 1;
inline constexpr int WholeWord = 2;
inline constexpr int MatchCase = 4;
inline constexpr int FindNext = 8;
inline constexpr int Replace = 16;
inline constexpr int ReplaceAll = 32;
inline constexpr int DialogTerm = 64;
inline constexpr int ShowHelp = 128; ///< the dialog has a help button; also the request of that button

} // namespace FindFlag
