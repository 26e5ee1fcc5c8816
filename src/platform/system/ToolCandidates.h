#pragma once

/// Where a tool of the desktop may be found, a column for each desktop. A column is a list separated by " |
/// ", the best one first, or nullptr; each candidate begins with its kind:
///   "d:" the desktop file of that id
///   "c:" a command
///   "t:" a command in a terminal
///   "w:" a command in a terminal that stays until a key is pressed, since the command ends by itself
struct ToolCandidates
{
    const char *gnome;
    const char *kde;
    const char *xfce;
    const char *fallback;
};
