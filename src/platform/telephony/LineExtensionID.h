#pragma once

#include <QtGlobal>
#include <array>

/// The extension of the line service that a line has; all 0 for none.
using LineExtensionID = std::array<quint32, 4>;
