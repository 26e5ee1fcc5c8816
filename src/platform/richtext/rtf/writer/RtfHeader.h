#pragma once

#include "WrittenColours.h"
#include "WrittenFonts.h"
#include "WrittenLists.h"
#include "WrittenStyles.h"

#include <QFont>

/// What precedes the text of a document being written; the text fills it and it is written last.
struct RtfHeader
{
    explicit RtfHeader(const QFont &standardFont)
        : standard(standardFont)
        , fonts(standardFont.family())
    {}
    QByteArray bytes() const;

    const QFont standard; ///< of text whose format does not name its own
    WrittenFonts fonts;
    WrittenColours colours;
    WrittenStyles styles;
    WrittenLists lists;
};
