#pragma once

#include "RtfLexer.h"

/// A group that is no text of the document, and all groups inside it: it hears what they hold, piece by
/// piece.
class RtfPart
{
public:
    virtual ~RtfPart() = default;

    virtual void open() {}  ///< a group inside the part's own begins
    virtual void close() {} ///< it ends; not called for the part's own group
    virtual void word(const RtfToken &) {}
    virtual void bytes(QByteArrayView) {}
    virtual void character(char16_t) {}
    virtual void binary(QByteArrayView) {}
};
