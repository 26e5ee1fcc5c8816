#pragma once

#include <QIcon>

/// Icons by their freedesktop names: the desktop theme's, or our own drawing of an icon that themes draw too
/// dark for a dark window.
namespace ThemeIcon {

/// The icon \a name: our own drawing, the theme's, or the one of the packaged theme that suits a light or a
/// dark palette, also where the platform knows no theme folders; an empty icon when none has it. After the
/// palette has turned the same name may give another icon. On a disabled control or a selected row the
/// theme's symbols take the color of the text.
QIcon named(const QString &name);

} // namespace ThemeIcon
