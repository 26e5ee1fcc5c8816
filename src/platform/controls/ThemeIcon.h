#pragma once

#include <QIcon>

/// Icons of the desktop's theme by their freedesktop names.
namespace ThemeIcon {

/// Chooses the packaged fallback theme that suits a light or a dark palette, also where the platform knows no
/// theme folders. Called once, before the first icon, and again when the palette turns.
void setUp();

/// The icon \a name of the theme; an empty icon when no theme has it.
QIcon named(const QString &name);

} // namespace ThemeIcon
