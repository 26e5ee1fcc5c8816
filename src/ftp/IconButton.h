#pragma once

#include <QString>

class QPushButton;
class WindowIcons;

/// A button that shows a picture instead of a caption. Its tool tip is also what a screen reader says. \a
/// icon is a freedesktop name, followed by \a icons.
QPushButton *iconButton(WindowIcons &icons, const char *name, const QString &toolTip, const QString &icon);
