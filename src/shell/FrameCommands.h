#pragma once

#include <QString>

class frmMain;

/// What the frame's commands run. A command is called by the name of its menu item; the few that only a
/// button has are called by the button's key or by what they do.
namespace FrameCommands {

/// Runs \a name; a name without a command does nothing. What the command throws reaches the caller: the menu
/// lets it end in the default error box, the toolbar ignores it.
void run(const QString &name, frmMain &frame);

/// False for the menu items that nothing happens on.
bool exists(const QString &name);

} // namespace FrameCommands
