#pragma once

class QWidget;

/// The window that a question belongs to: the modal one in front, else the active one; where none is active,
/// as between two boxes or while another program is used, that of the newest form on the screen, else a main
/// window. Null where none is on the screen.
QWidget *promptOwner();
