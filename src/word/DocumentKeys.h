#pragma once

class QWidget;
class RichTextBox;
class Toolbar;
class clsFindandReplace;

/// The keys that a document's text has beside those of the frame's menus.
namespace DocumentKeys {

/// Gives \a text its keys: Ctrl+F, F3 and Shift+F3 search by \a find; Ctrl+S saves and reports a failure,
/// which the button does not; Ctrl+P, Ctrl+B and Ctrl+U press the buttons of \a toolbar, which have to be
/// enabled; Ctrl+Y restores what was undone.
void bind(RichTextBox &text, clsFindandReplace &find, Toolbar &toolbar);

using Opening = bool (clsFindandReplace::*)(RichTextBox &control);

/// Gives \a place, and all that is in it, the keys of a search of \a text; Ctrl+F opens the dialog by \a
/// open.
void bindSearch(QWidget &place, RichTextBox &text, clsFindandReplace &find, Opening open);

} // namespace DocumentKeys
