#pragma once

/// How many characters the fields of the database have room for. Fields without a limit are not here.
namespace FieldLimits {

inline constexpr int name = 50;     ///< of contacts, groups, cities, states, companies, posts and departments
inline constexpr int address = 100; ///< a line end is one character
inline constexpr int comment = 255;

} // namespace FieldLimits
