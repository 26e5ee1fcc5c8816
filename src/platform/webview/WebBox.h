#pragma once

#include <QString>

/// A message box that a page asks for, and the answer to it. The texts come from the page and may be
/// anything.
struct WebBox
{
    enum class Kind { Alert, Confirm, Prompt };

    Kind kind = Kind::Alert;
    QString host; ///< whose page asks; empty for a file
    QString text;
    QString value;           ///< Prompt: what is in the field, and what was typed
    bool isAccepted = false; ///< OK was pressed
};
