#pragma once

#include "MenuRow.h"

#include <span>

/// The frame's whole menu tree as constant rows. A command is called by its item's name.
namespace FrameMenus {

std::span<const MenuRow> rows();

} // namespace FrameMenus
