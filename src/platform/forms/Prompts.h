#pragma once

#include <QString>

/// Message boxes. Each shows the real dialog and returns when it has been answered.

/// One kind of buttons, one icon, and which button is the default, joined by "|".
enum class MsgBoxStyle : int {
    Plain = 0, ///< OK alone, no icon, the first button is the default
    OkCancel = 1,
    YesNo = 4,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64,
    DefaultButton2 = 256,
};

constexpr MsgBoxStyle operator|(MsgBoxStyle a, MsgBoxStyle b)
{
    return MsgBoxStyle(int(a) | int(b));
}

namespace MsgBoxReply {
inline constexpr int Ok = 1;
inline constexpr int Cancel = 2;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
} // namespace MsgBoxReply

/// Shows \a text, plain, with the icon and the buttons of \a style. An empty \a title means the
/// application title. Returns a MsgBoxReply; Escape and the window system leave an OK box by OK and an
/// OK/Cancel box by Cancel, a Yes/No box not at all.
int MsgBox(const QString &text, MsgBoxStyle style = MsgBoxStyle::Plain, const QString &title = {});
