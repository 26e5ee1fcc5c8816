#pragma once

#include "ContactList.h"

/// Adds contacts to the database of AddressConnection.
namespace ContactImport {

/// Adds all contacts of \a list under the lowest free numbers, with the groups, cities and states that are
/// missing, in one transaction: after a failure the database is as it was. Returns the remarks of the list
/// and what had to be cut or found no room.
///
/// Throws RuntimeError 6 where there are not enough free numbers up to 32,767, and with the numbers of
/// DataError.
QStringList add(const ContactList &list);

} // namespace ContactImport
