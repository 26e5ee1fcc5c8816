#pragma once

#include "Contact.h"

#include <QList>

/// Reads contacts from the database of AddressConnection.
namespace ContactExport {

/// All contacts in the order of their names. Where a contact has no row of its home or its business, these
/// parts are empty. They are of one state of the database. Throws RuntimeError with the numbers of DataError.
QList<Contact> all();

} // namespace ContactExport
