#pragma once

#include "CommandRow.h"

#include <QWidget>
#include <functional>
#include <initializer_list>
#include <type_traits>

/// Binds what can be chosen in a window to its handlers. One table serves the window's menus, its toolbar and
/// its buttons:
///
///     WindowCommands::bind(*this, {{"mnuOpen", &frmTool::mnuOpen_Click},
///                                  {"cmddigit", &frmTool::cmddigit_Click}}); // cmddigit_0, cmddigit_1 ...
namespace WindowCommands {

/// Binds \a run to every menu item, button and toolbar key of \a window that is called \a name. Throws
/// RuntimeError 438 when there is none.
void bindCommand(QWidget &window, const char *name, const std::function<void()> &run);
/// Binds \a run to the buttons of the control array \a array. Throws RuntimeError 438 when there is none.
void bindArray(QWidget &window, const char *array, const std::function<void(int index)> &run);

/// Binds each of \a rows. The window's items and buttons are there already.
template<class Window>
void bind(Window &window, std::initializer_list<CommandRow<std::type_identity_t<Window>>> rows)
{
    for (const CommandRow<Window> &row : rows) {
        if (row.runMember)
            bindArray(window, row.name, [&window, run = row.runMember](int index) { (window.*run)(index); });
        else
            bindCommand(window, row.name, [&window, run = row.run] { (window.*run)(); });
    }
}

} // namespace WindowCommands
