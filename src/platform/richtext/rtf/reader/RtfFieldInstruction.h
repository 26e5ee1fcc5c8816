#pragma once

#include <QString>

/// What the instruction of a field asks for, as far as a document on screen can do it.
struct RtfFieldInstruction
{
    QString address; ///< where a hyperlink leads: an address, "#" and a bookmark, or both
    int sign = -1;   ///< the place of a sign in \a font
    QString font;
    bool isPageNumber = false; ///< the number of the page, or how many there are

    static RtfFieldInstruction parse(const QString &text);
};
