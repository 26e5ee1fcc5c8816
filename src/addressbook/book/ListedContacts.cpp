#include "ListedContacts.h"

#include "Ask.h"
#include "BookList.h"
#include "ContactRows.h"
#include "ListView.h"

void ListedContacts::setAllChecked(ListView &list, bool checked)
{
    ListItemsModel &items = list.ListItems();
    for (int i = 1; i <= items.Count(); ++i) {
        if (items.isChecked(i) != checked)
            items.setChecked(i, checked);
    }
}

bool ListedContacts::confirmDeletion(const ListItem &item, const QString &title)
{
    const auto style = MsgBoxStyle::YesNo | MsgBoxStyle::Question | MsgBoxStyle::DefaultButton2;
    return Ask(QStringLiteral("Are you sure you want to delete\r") + item.Text + QStringLiteral(" ?"), style,
               title) == MsgBoxReply::Yes;
}

void ListedContacts::deleteChecked(ListView &list)
{
    ListItemsModel &items = list.ListItems();
    const auto refuses = [&](int i) {
        return !items.isChecked(i) || !confirmDeletion(items.Item(i), QStringLiteral("Confirm Deletion..."));
    };
    int i = 0;
    // Intended: a deletion begins again at the first row, so that contacts which the user has refused are
    // asked about once more; deleting the last row of the list ends it.
    do {
        i = 1;
        while (i <= items.Count() && refuses(i))
            ++i;
        if (i <= items.Count()) {
            ContactRows::remove(BookList::contactNumber(items.key(i)));
            items.Remove(i);
        }
    } while (i - 1 != items.Count());
    setAllChecked(list, false);
}
