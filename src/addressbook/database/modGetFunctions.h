#pragma once

#include <QString>

// Lookups between the ids and the names of groups, cities and states, and new ids. All work on
// AddressConnection.
//
// Intended: a name goes into its statement as it is, so that a single quote in it makes the statement fail.
//
// The functions throw RuntimeError with the numbers of DataError.

/// The name of a group. DataError::NoCurrentRow where there is no such row.
QString GetGroupName(qint16 id);
/// The id of the group of this name; 0 where there is none. Case does not count.
quint8 GetGroupId(const QString &name);

/// The same for cities; \a id is decimal text.
QString GetCityName(const QString &id);
qint16 GetCityId(const QString &name);

/// The same for states.
QString GetStateName(const QString &id);
quint8 GetStateId(const QString &name);

/// The name of the state that a city is in. DataError::NoCurrentRow where there is no such city.
QString GetStateOfCity(qint16 cityId);

/// One more than the highest id, or 1 in an empty table. RuntimeError 6 past 255, of cities past 32,767.
quint8 NextGroupId();
qint16 NextCityId();
quint8 NextStateId();

/// The lowest contact number from 1 on that is free. RuntimeError 6 when all up to 32,767 are taken.
qint32 NextSrNo();
