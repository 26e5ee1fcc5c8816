#pragma once

class QAction;
class QMenu;
class QString;

/// The menu items that start a tool of the desktop. Most desktops have a tool for most of them.
namespace SystemShortcuts {

/// Starts the tool of the menu item \a item, and does not wait. Items of the system folder leave the process
/// id in lastAnswer. Where the desktop has no such tool nothing happens. One that cannot be started is
/// RuntimeError 53; those of mnuDefrag, mnuGpEdit, mnuWinEvent and mnuStartup do nothing then.
void run(const QString &item);

/// Disables the items of \a menu whose tool is not installed, each time the menu opens. \a itemOf
/// gives the name of an entry's menu item.
void disableMissing(QMenu &menu, QString (*itemOf)(const QAction &entry));

} // namespace SystemShortcuts
