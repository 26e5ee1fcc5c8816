#pragma once

/// One button of a toolbar's constant table.
struct ToolbarRow
{
    enum class Style {
        Button,
        DropDown, ///< a button with a list beside it
        Group,    ///< of neighbouring ones a click presses one and releases the others
    };

    int position;        ///< from 1; positions without a row are free
    const char *key;     ///< the button's objectName; nullptr for a separator
    const char *toolTip; ///< also the accessible name
    const char *icon;    ///< freedesktop icon name
    Style style = Style::Button;
};
