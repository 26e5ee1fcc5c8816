#pragma once

#include <QDate>
#include <QString>
#include <optional>

/// The statements that say which contacts the address book's list shows.
namespace ContactQuery {

/// All contacts with a home and its city. Conditions may follow; the fields are those of the list's rows.
QString all();

/// The contacts of the group, city or state that a node of the tree has; nothing where its parent is none of
/// the tree's heads. A contact belongs to its home's city.
std::optional<QString> ofNode(const QString &parentKey, const QString &nodeKey);

/// A condition, to be added to a statement: the name begins with the letter \a index, 0 for "A".
QString letterFilter(int index);

/// A condition: born on this day of this month, in any year.
QString birthdayFilter(QDate date);

/// The whole statement, by name.
QString inOrder(const QString &query, const QString &filter);

} // namespace ContactQuery
