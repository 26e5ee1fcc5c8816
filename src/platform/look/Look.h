#pragma once

/// The suite's appearance: style, font, colours and icon theme.
namespace Look {

/// Applied once, before the first window. Light and dark follow the desktop from then on.
void apply();

} // namespace Look
