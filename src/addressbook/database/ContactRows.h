#pragma once

#include "BusinessRow.h"
#include "HomeRow.h"
#include "NameRow.h"

#include <QHash>
#include <QStringList>

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

/// The rows of all contacts by their numbers, each table by one statement. A contact may be missing in any.
QHash<qint32, NameRow> names();
QHash<qint32, HomeRow> homes();
QHash<qint32, BusinessRow> businesses();
QHash<qint32, QStringList> allEMails();

/// A group or a city that does not exist is refused, and the row is not written.
void addName(qint32 number, const NameRow &row);
void addEMails(qint32 number, const QStringList &addresses);
void addHome(qint32 number, const HomeRow &row);
void addBusiness(qint32 number, const BusinessRow &row);

/// Removes the rows of all four tables. Does nothing where there is no such contact.
void remove(qint32 number);

} // namespace ContactRows
