#pragma once

#include "RtfKeywordList.h"

#include <QByteArrayView>

/// The control words that the reader knows.
enum class RtfWord : quint16 {
    Unknown,
#define RTF_WORD(spelling, name, subject) name,
    RTF_KEYWORDS(RTF_WORD)
#undef RTF_WORD
};

/// What a control word is about, which is also who acts on it.
enum class RtfSubject : quint8 {
    None,
    Document,    ///< code page, defaults
    Destination, ///< begins a group of its own kind
    Skipped,     ///< begins a group that says nothing to a reader
    Kept,        ///< begins a group that shows nothing and is written back
    Character,
    Paragraph,
    Row,
    Border, ///< lines of a paragraph, or of the row that is being described
    Page,
    Sign,  ///< is text or ends a paragraph
    Detail ///< understood inside one destination only
};

namespace RtfKeywords {

RtfWord find(QByteArrayView spelling);

RtfSubject subject(RtfWord word);

/// Without its backslash.
QByteArrayView spelling(RtfWord word);

} // namespace RtfKeywords
