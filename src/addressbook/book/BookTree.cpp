#include "BookTree.h"

#include "AddressDatabase.h"
#include "BookIcons.h"
#include "Recordset.h"
#include "TreeView.h"

#include <algorithm>

namespace {

const QString root = QStringLiteral("Root");

struct Head
{
    QString key;
    QString text;
    QString statement;
    QString idField;
    QString nameField;
    QString rowKey; ///< what precedes the id in the key of a row's node
};

const Head heads[] = {
    {QStringLiteral("Groups"), QStringLiteral("Groups"),
     QStringLiteral("Select * from groups order by groupName"), QStringLiteral("GroupID"),
     QStringLiteral("GroupName"), QStringLiteral("Group")},
    {QStringLiteral("City"), QStringLiteral("City/Town"),
     QStringLiteral("Select * from City order by CityName"), QStringLiteral("CityID"),
     QStringLiteral("CityName"), QStringLiteral("City")},
    {QStringLiteral("State"), QStringLiteral("County/State/Province"),
     QStringLiteral("Select * from State order by stateName"), QStringLiteral("StateID"),
     QStringLiteral("StateName"), QStringLiteral("State")},
};

void add(TreeView &tree, const Head &head)
{
    const QIcon icon = BookIcons::ofTable(head.key);
    tree.Add({head.key, head.text, root, icon});
    Recordset rows;
    for (rows.open(head.statement, AddressConnection); !rows.eof(); rows.moveNext())
        tree.Add({head.rowKey + rows.field(head.idField).text(), rows.field(head.nameField).text(), head.key,
                  icon});
}

} // namespace

void BookTree::fill(TreeView &tree)
{
    tree.Clear();
    tree.Add({root, QStringLiteral("Address Book"), {}, BookIcons::book()});
    for (const Head &head : heads)
        add(tree, head);
    tree.setExpanded(root, true);
    tree.setExpanded(heads[0].key, true);
}

bool BookTree::isTable(const QString &key)
{
    return std::ranges::any_of(heads, [&](const Head &head) { return head.key == key; });
}
