#pragma once

#include <QString>

/// The doors to a question. Each shows the real dialog and returns when it has been answered.

enum class MsgBoxStyle : int {
    Plain = 0,
    YesNo = 4,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64,
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

/// Shows \a text, plain, with the icon and the buttons of \a style (OK alone without YesNo). An empty \a
/// title stands for the application title. Returns a MsgBoxReply; a Yes/No box cannot be left without one of
/// them.
int MsgBox(const QString &text, MsgBoxStyle style = MsgBoxStyle::Plain, const QString &title = {});
