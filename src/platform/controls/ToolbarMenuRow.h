#pragma once

/// One entry of the list beside a drop-down button.
struct ToolbarMenuRow
{
    const char *button; ///< the button's key
    const char *text;   ///< nullptr for a separator
    const char *key;    ///< the entry's objectName
    const char *icon;   ///< freedesktop icon name, or nullptr
};
