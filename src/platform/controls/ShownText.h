#pragma once

#include <QString>

/// \a text as a person may see it on one line: each control character (line feeds and tabs too), line
/// separator and mark that turns the direction of writing is replaced by U+FFFD, so that no name can hide or
/// reorder a part of itself. The joiners that scripts and emoji need stay. The result is plain text, not
/// markup.
QString shownText(const QString &text);
