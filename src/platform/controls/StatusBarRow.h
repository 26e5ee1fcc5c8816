#pragma once

#include <Qt>

/// One panel of a status bar's constant table.
struct StatusBarRow
{
    enum class Kind {
        Text,
        Date, ///< today, in the locale's short form
        Time, ///< the time of day, in the locale's short form
    };

    Kind kind;
    int width; ///< twips; a text's panel is narrower in a narrow bar, and takes all that is left where it is
               ///< 0
    const char *text = "";
    const char *toolTip = "";
    Qt::AlignmentFlag alignment = Qt::AlignLeft;
};
