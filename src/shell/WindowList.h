#pragma once

class MdiArea;
class QMenu;

/// The open child windows behind the Window menu's own items.
namespace WindowList {

/// Replaces the list that an earlier call left in \a menu. The active child is checked.
void fill(QMenu &menu, MdiArea &area);

} // namespace WindowList
