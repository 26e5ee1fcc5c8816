#pragma once

#include "HelpSpan.h"

#include <QList>

/// The text of a paragraph, in pieces of one look each.
namespace HelpSpans {

/// Reads **bold**, `code` and [text](https://...). Throws HelpError, with \a line, for marks that do not end,
/// that are empty, or that are none of these.
QList<HelpSpan> read(const QString &text, int line);

} // namespace HelpSpans
