#pragma once

#include <QString>

/// The contacts of the benchmarks of the address book, with 1,000 cities and 200 states.
namespace ManyContacts {

inline constexpr int count = 32000;

/// A name-like text, the same for the same \a seed.
QString word(int seed);

/// Adds them to the empty database of AddressConnection.
void add();

} // namespace ManyContacts
