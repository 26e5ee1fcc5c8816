#pragma once

#include "WrittenColours.h"
#include "WrittenFonts.h"
#include "WrittenLists.h"

/// What stands before the text of a document being written; the text fills it and it is written last.
struct RtfHeader
{
    explicit RtfHeader(const QString &standardFont)
        : fonts(standardFont)
    {}
    QByteArray bytes() const;

    WrittenFonts fonts;
    WrittenColours colours;
    WrittenLists lists;
};
