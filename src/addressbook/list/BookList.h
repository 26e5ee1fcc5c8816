#pragma once

#include <QtGlobal>

class ListView;
class QString;

/// The list's two views: contacts with check boxes, or the rows of a table. Which one is shown is read from
/// the first column's caption, "Name" for contacts.
///
/// The functions that fill it read from AddressConnection and throw RuntimeError with the numbers of
/// DataError.
namespace BookList {

/// Shows the contacts that \a statement gives, in its order, none of them checked. A NULL in a text is
/// RuntimeError 94.
void showContacts(ListView &list, const QString &statement);

/// Shows the ids and names of a table, by name: "Groups", "City" or "State".
void showTable(ListView &list, const QString &table);

/// False in an empty list, which has no columns yet.
bool hasContacts(const ListView &list);

/// The number of the contact whose row has \a key.
qint32 contactNumber(const QString &key);

} // namespace BookList
