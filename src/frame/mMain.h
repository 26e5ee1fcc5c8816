#pragma once

#include <QString>

/// The folder of the system's own programs without a trailing separator, or an empty text where there is
/// none.
QString SystemDirectory();

/// The name of this computer.
QString GetThisComputerName();

/// Unloads every open window whose name is exactly \a name.
void CloseFormByName(const QString &name);

// What the standard tool menu asks of the frame.
void CascadeChildren();
void TileChildrenHorizontal();
void TileChildrenVertical();
void ArrangeChildIcons();

/// Opens the dialler with \a PhoneNumber in its field, and dials nothing: the user does that. A dialler that
/// is open already gets the number as it is, in its mode, and comes to the front. What its load throws
/// reaches the caller.
void AutoDial(const QString &PhoneNumber);
