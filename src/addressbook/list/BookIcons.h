#pragma once

#include <QIcon>

/// The pictures of the tree's nodes and the list's rows. All rows share them.
namespace BookIcons {

QIcon book();
QIcon contact();
/// For the table of one of the tree's heads, "Groups", "City" or "State".
QIcon ofTable(const QString &table);

} // namespace BookIcons
