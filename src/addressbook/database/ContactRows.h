#pragma once

#include "BusinessRow.h"
#include "HomeRow.h"
#include "NameRow.h"

#include <QStringList>

class Recordset;

/// The rows of one contact in the tables Names, EMails, Home and Business, by its number. All work on
/// AddressConnection and throw RuntimeError with the numbers of DataError.
///
/// Each function is a step by itself, since what fails in the middle of a save leaves the steps before it. A
/// save has one Transaction around all its steps, so that a crash leaves the old contact or the new one:
///
///     Transaction save(AddressConnection, Transaction::Unfinished::Keep);
///     ContactRows::remove(number);
///     ContactRows::addName(number, ...);
///     ...
///     save.commit();
namespace ContactRows {

/// DataError::NoCurrentRow where the contact has no such row. A NULL is read as an empty text, but in
/// Salutation and Name it is RuntimeError 94.
NameRow name(qint32 number);
HomeRow home(qint32 number);
BusinessRow business(qint32 number);
/// Empty where there is none.
QStringList eMails(qint32 number);

/// The current row of a recordset that has all columns of the table.
NameRow nameIn(const Recordset &row);
HomeRow homeIn(const Recordset &row);
BusinessRow businessIn(const Recordset &row);

/// A group or a city that does not exist is refused, and the row is not written.
void addName(qint32 number, const NameRow &row);
void addEMails(qint32 number, const QStringList &addresses);
void addHome(qint32 number, const HomeRow &row);
void addBusiness(qint32 number, const BusinessRow &row);

/// Removes the rows of all four tables. Does nothing where there is no such contact.
void remove(qint32 number);

} // namespace ContactRows
