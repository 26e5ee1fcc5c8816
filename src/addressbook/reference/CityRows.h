#pragma once

#include <QString>

/// The rows of the table City. The functions throw RuntimeError, also where \a state names no state.
///
/// Intended: names go into the statements as they are, so that a single quote in one makes its statement
/// fail.
namespace CityRows {

/// A new row, under the next id.
void add(const QString &name, const QString &state);
void change(qint16 id, const QString &name, const QString &state);

} // namespace CityRows
