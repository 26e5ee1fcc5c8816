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
        Cascade,
        TileHorizontal,
        TileVertical,
        ArrangeIcons
    };

    MenuRow item;
    Runs runs = Runs::Own;
};
