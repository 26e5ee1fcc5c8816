#pragma once

class frmMain;

/// The commands of the Edit menu. They work by keystrokes to whatever control has the focus, without waiting
/// for their processing.
namespace EditCommands {

void mnuEditUndo_Click();
void mnuEditCut_Click();
void mnuEditCopy_Click();
/// Inserts the clipboard's plain text into the active document and then sends the keystroke, so plain text
/// comes twice. Ignores all errors.
void mnuEditPaste_Click(frmMain &frame);
void mnupasteimage_Click();

} // namespace EditCommands
