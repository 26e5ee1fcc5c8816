#pragma once

#include "ToolMenuRow.h"
#include "ToolbarMenuRow.h"
#include "ToolbarRow.h"

#include <span>

/// The address book's menus and toolbar.
namespace BookMenus {

/// "mnuPopup" is hidden in the menu bar and comes up over the list.
std::span<const ToolMenuRow> menus();

std::span<const ToolbarRow> buttons();
std::span<const ToolbarMenuRow> lists();

} // namespace BookMenus
