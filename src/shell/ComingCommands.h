#pragma once

/// The commands whose tool is still to come. They say so instead of doing nothing.
namespace ComingCommands {

/// The box that a command shows whose tool is not there.
void announce();

} // namespace ComingCommands
