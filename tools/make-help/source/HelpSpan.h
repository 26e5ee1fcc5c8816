#pragma once

#include <QString>

/// Text of one look within a paragraph of the help.
struct HelpSpan
{
    enum class Kind {
        Plain,
        Bold, ///< what is on the screen, as it is shown there
        Code, ///< what the reader types
        Link
    };

    Kind kind = Kind::Plain;
    QString text;
    QString target = {}; ///< of a link

    bool operator==(const HelpSpan &) const = default;
};
