#pragma once

#include <QString>

/// What a help source has that the convention does not know, or lacks.
struct HelpError
{
    int line; ///< from 1
    QString text;
};
