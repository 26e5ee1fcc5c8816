#pragma once

#include <QString>

class DialogHook;
class QWidget;

/// The arguments of the open dialog in their order; those marked in-out are written back after it was taken.
struct OpenFileName
{
    QString FileName{};  ///< in-out; of several chosen files the folder and the names, a NUL between each two
    QString FileTitle{}; ///< out; the chosen name without its folder; empty for several ones
    bool FileMustExist = true;
    bool MultiSelect = false;
    bool ReadOnly = false;    ///< in-out
    bool HideReadOnly = true; ///< no window of the suite cares for the box
    QString Filter{};         ///< in-out; "|" or ":" between entries; the chosen entry comes back
    int FilterIndex = 1;      ///< in-out; from 1
    QString InitDir{};
    QString DlgTitle{};
    QString DefaultExt{};
    QWidget *Owner = nullptr;
    int Flags = 0;              ///< in-out; further bits of the flag word
    DialogHook *Hook = nullptr; ///< cleared after the call
};
