#pragma once

class Form;
class RichTextBox;

/// The text control of the active window, reached by name, whatever kind of window is active.
namespace DocumentText {

inline constexpr auto name = "rtfTextBox";

/// The text of \a form. Throws RuntimeError 438 when it has none.
RichTextBox &of(const Form &form);

/// The text of the frame's active window. Throws RuntimeError 91 when none is active.
RichTextBox &ofActiveForm();

/// Throws RuntimeError 70 when \a text is locked.
void requireUnlocked(const RichTextBox &text);

/// Loaded windows that hold a text.
int openDocuments();

} // namespace DocumentText
