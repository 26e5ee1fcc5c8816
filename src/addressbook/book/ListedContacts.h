#pragma once

class ListView;
class QString;
struct ListItem;

/// What is done with the contacts of the list. The list shows contacts.
namespace ListedContacts {

void setAllChecked(ListView &list, bool checked);

/// Asks in a box with \a title whether the contact of a row may be deleted.
bool confirmDeletion(const ListItem &item, const QString &title);

/// Asks about each checked contact, deletes those that the user agrees to, and unchecks the others. Throws
/// where the database refuses; what was deleted before stays deleted.
void deleteChecked(ListView &list);

} // namespace ListedContacts
