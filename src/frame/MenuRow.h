#pragma once

/// One item of a constant menu table, in the order of the menu.
struct MenuRow
{
    enum Flag {
        None = 0,
        Separator = 1,
        Hidden = 2,
        Disabled = 4,
        Checked = 8,
        DocumentMenu = 16, ///< shown only while a document is open
        Command = 32,      ///< of the bar: it runs a command and opens no menu
    };

    int level;            ///< 0 for a menu of the bar
    const char *name;     ///< the item's objectName
    const char *caption;  ///< with its mnemonic
    const char *shortcut; ///< portable key sequence, or nullptr
    int flags;            ///< bitwise OR of Flag
    const char *icon;     ///< freedesktop icon name, or nullptr
};
