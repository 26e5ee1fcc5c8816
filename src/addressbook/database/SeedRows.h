#pragma once

#include <QString>

/// The rows that the database has from the beginning, one in each of the tables Groups, City and State. A
/// contact without a group, a city or a state has these.
namespace SeedRows {

inline constexpr int id = 1; ///< in all three tables
inline const QString group = QStringLiteral("Default");
inline const QString place = QStringLiteral(".."); ///< the city and the state

} // namespace SeedRows
