#pragma once

#include <QString>

/// Text from outside (file names, messages of servers) as it may be shown: every character that is not seen
/// itself but changes how the rest is read (control characters, direction marks, halves of surrogate pairs)
/// becomes U+FFFD.
namespace ShownText {

/// \a text on one line: its line ends and tabs become marks too.
QString line(const QString &text);

/// \a text with its line ends, of whatever kind, as "\n", and its tabs.
QString lines(const QString &text);

/// \a text as a tool tip that shows it letter by letter, also where it looks like markup.
QString toolTip(const QString &text);

} // namespace ShownText
