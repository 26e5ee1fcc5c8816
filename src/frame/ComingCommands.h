#pragma once

/// The commands whose tool is not part of the suite yet. They say so in a box.
namespace ComingCommands {

/// The box that a command shows whose tool is not there.
void announce();

} // namespace ComingCommands
