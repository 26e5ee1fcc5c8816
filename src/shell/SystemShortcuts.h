#pragma once

class QString;

/// The menu items that start a tool of the desktop. Most desktops have a tool for most of them.
namespace SystemShortcuts {

/// Starts what stands behind the menu item \a item, and does not wait. Items of the system folder leave the
/// process id in lastAnswer. Throws RuntimeError 53 when no tool is there, unless the item only opens
/// something: then nothing is shown.
void run(const QString &item);

} // namespace SystemShortcuts
