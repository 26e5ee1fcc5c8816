#pragma once

class QString;
class TreeView;

/// The tree of what the list can show: all contacts, those of each group, city and state, and these tables
/// themselves. The keys of the three heads below the root are also the names of their tables.
namespace BookTree {

/// Reads the tree anew from AddressConnection and opens the root and the groups. Throws RuntimeError with the
/// numbers of DataError; the tree is then as before.
void fill(TreeView &tree);

/// Whether a node is the head of a table, "Groups", "City" or "State".
bool isTable(const QString &key);

} // namespace BookTree
