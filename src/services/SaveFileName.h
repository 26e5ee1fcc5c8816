#pragma once

#include <QString>

class DialogHook;
class QWidget;

/// The arguments of the save dialog in their order; those marked in-out are written back after it was taken.
struct SaveFileName
{
    QString FileName{};  ///< in-out
    QString FileTitle{}; ///< out; the chosen name without its folder
    bool OverwritePrompt = true;
    QString Filter{};    ///< in-out; "|" or ":" between entries; the chosen entry comes back
    int FilterIndex = 1; ///< in-out; from 1
    QString InitDir{};
    QString DlgTitle{};
    QString DefaultExt{};
    QWidget *Owner = nullptr;
    int Flags = 0;              ///< in-out; further bits of the flag word
    DialogHook *Hook = nullptr; ///< cleared after the call
};
