#pragma once

#include <QPalette>

/// The two palettes of the suite.
namespace Palettes {

QPalette light();
QPalette dark();

} // namespace Palettes
