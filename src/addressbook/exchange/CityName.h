#pragma once

#include <QString>

/// The names of cities are unique, though several states may have a city of the same name: one of them is
/// then stored with its state, as "Springfield (Illinois)". A state without a city is stored as "(Illinois)".
namespace CityName {

/// At most 50 characters; what is too long loses its end, the state last.
QString withState(const QString &city, const QString &state);

/// The name without its state.
QString withoutState(const QString &name, const QString &state);

} // namespace CityName
