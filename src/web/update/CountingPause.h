#pragma once

/// A wait that keeps the thread busy: it counts, and lets no event run.
namespace CountingPause {

inline constexpr int designedLength = 100'000'000; ///< counts; a few hundredths of a second

void run();

/// Counts to \a length from now on, for tests.
void setLength(int length);

} // namespace CountingPause
