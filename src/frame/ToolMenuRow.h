#pragma once

#include "MenuRow.h"

/// One item of a tool window's constant menu table.
struct ToolMenuRow
{
    /// What an item of the standard tool menu asks of the frame; Own is bound by the window itself.
    enum class Runs {
        Own,
        NewDocument,
        CloseWindow,
        ExitTools,
        WindowMenu, ///< the menu that ends in the list of open windows
        Cascade,
        TileHorizontal,
        TileVertical,
        ArrangeIcons
    };

    MenuRow item;
    Runs runs = Runs::Own;
};

/// \a row with a name and a caption of the window's own.
constexpr ToolMenuRow renamed(ToolMenuRow row, const char *name, const char *caption)
{
    row.item.name = name;
    row.item.caption = caption;
    return row;
}
