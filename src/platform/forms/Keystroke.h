#pragma once

#include <Qt>

namespace Keystroke {

/// Sends Ctrl+\a key to whatever control has the focus, as if typed, without waiting for what it does. It
/// goes past the menus, whose items have such keys of their own. Without a focus nothing happens.
void sendControl(Qt::Key key);

} // namespace Keystroke
