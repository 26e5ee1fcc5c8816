#pragma once

/// The base of how the suite looks: style, font, colours and icon theme.
namespace Look {

/// Applied once, before the first window. Light and dark follow the desktop from then on.
void apply();

} // namespace Look
