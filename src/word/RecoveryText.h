#pragma once

#include "PlainText.h"

#include <optional>

/// What a recovery copy holds: a document's content and what it is called.
struct RecoveryText
{
    QString caption;
    PlainText::LineEnd lineEnd = PlainText::LineEnd::Lf; ///< of the plain file that it was loaded from
    QByteArray rtf;

    /// One line of JSON, then the rich text.
    QByteArray toBytes() const;
    /// Nothing for bytes that toBytes() has not made.
    static std::optional<RecoveryText> fromBytes(const QByteArray &bytes);
};
