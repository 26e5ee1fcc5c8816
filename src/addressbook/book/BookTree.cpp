#include "BookTree.h"

#include "AddressDatabase.h"
#include "BookIcons.h"
#include "BookTable.h"
#include "Recordset.h"
#include "TreeView.h"

#include <vector>

namespace {

const QString root = QStringLiteral("Root");

void add(TreeView &tree, const BookTable &table, Recordset &rows)
{
    const QIcon icon = BookIcons::ofTable(table.key);
    tree.Add({table.key, table.caption, root, icon});
    for (; !rows.eof(); rows.moveNext())
        tree.Add({table.rowKey + rows.field(table.idField).text(), rows.field(table.nameField).text(),
                  table.key, icon});
}

} // namespace

void BookTree::fill(TreeView &tree)
{
    const auto tables = BookTable::all();
    std::vector<Recordset> rows(tables.size());
    for (std::size_t i = 0; i < tables.size(); ++i)
        rows[i].open(tables[i].statement, AddressConnection);
    tree.Clear();
    tree.Add({root, QStringLiteral("Address Book"), {}, BookIcons::book()});
    for (std::size_t i = 0; i < tables.size(); ++i)
        add(tree, tables[i], rows[i]);
    tree.setExpanded(root, true);
    tree.setExpanded(tables.front().key, true);
}

bool BookTree::isTable(const QString &key)
{
    const BookTable *table = BookTable::of(key);
    return table && table->key == key;
}
