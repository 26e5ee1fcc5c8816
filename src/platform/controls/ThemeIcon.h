#pragma once

#include <QIcon>

/// Icons of the desktop's theme by their freedesktop names.
namespace ThemeIcon {

/// The icon \a name of the theme, or of the packaged one that suits a light or a dark palette, also where the
/// platform knows no theme folders; an empty icon when none has it. After the palette has turned the same
/// name gives another icon.
QIcon named(const QString &name);

} // namespace ThemeIcon
