#pragma once

/// The commands of the Edit menu. Undo, cut, copy and paste are the focused control's own; where the focus is
/// in none that has them, nothing happens. A control that may not be changed is only copied from.
namespace EditCommands {

void mnuEditUndo_Click();
void mnuEditCut_Click();
void mnuEditCopy_Click();
/// Inserts the clipboard's plain text into the active document and then pastes into the focused control.
/// Ignores all errors.
///
/// Intended: where the document has the focus, plain text is pasted twice.
void mnuEditPaste_Click();
void mnupasteimage_Click();

} // namespace EditCommands
