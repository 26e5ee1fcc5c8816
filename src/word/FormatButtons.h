#pragma once

class RichTextBox;
class Toolbar;

/// The pressed look of the toolbar's formatting buttons.
namespace FormatButtons {

/// Shows the formats of the selection of \a text. A mixed state shows as released.
void update(Toolbar &toolbar, const RichTextBox &text);

} // namespace FormatButtons
