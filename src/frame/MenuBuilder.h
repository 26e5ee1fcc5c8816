#pragma once

#include "MenuRow.h"

#include <QList>
#include <QMenu>
#include <span>

/// Menus from the rows of a table, whose icons follow the palette from light to dark and back. It binds no
/// command: the owner finds each item by its name.
namespace MenuBuilder {

/// The menus of level 0, owned by \a owner, each item (and each menu's own action) under its name.
QList<QMenu *> build(std::span<const MenuRow> rows, QWidget &owner);

} // namespace MenuBuilder
