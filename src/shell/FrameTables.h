#pragma once

#include "MenuRow.h"
#include "ToolbarRow.h"

#include <span>

class frmMain;

/// The frame's menus and buttons as constant rows, and what each item and key runs.
namespace FrameTables {

using Command = void (*)(frmMain &frame);

struct Binding
{
    const char *name; ///< a menu item's name, or a button's key
    Command command;
};

std::span<const MenuRow> menuRows();
std::span<const ToolbarRow> toolbarRows();
std::span<const Binding> menuBindings();
std::span<const Binding> toolbarBindings();

/// The last button of the word-processing group, which begins at 1.
inline constexpr int lastWordButton = 24;
/// The first button of that group that goes when no document is open.
inline constexpr int firstDocumentButton = 3;

} // namespace FrameTables
