#pragma once

#include "RtfKeywords.h"

#include <QString>

/// What the instruction of a field asks for, as far as a document on screen can do it.
struct RtfFieldInstruction
{
    QString address; ///< where a hyperlink leads: an address, "#" and a bookmark, or both
    int sign = -1;   ///< the place of a sign in \a font
    QString font;
    bool isPageNumber = false; ///< the number of the page, or how many there are

    // What stands for a field without a result
    QString text;                    ///< its own text, or the date or time of now
    RtfWord fact = RtfWord::Unknown; ///< what the information about the document has under this word
    bool isFileName = false;

    static RtfFieldInstruction parse(const QString &text);
};
