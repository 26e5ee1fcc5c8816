#pragma once

#include "ToolMenuRow.h"
#include "ToolbarRow.h"

#include <QString>
#include <span>

/// The tables of the image window's menus and toolbar.
namespace ImageMenus {

std::span<const ToolMenuRow> menus();
std::span<const ToolbarRow> buttons();

/// The menu item that a key of the toolbar runs.
QString itemOf(const QString &key);

} // namespace ImageMenus
