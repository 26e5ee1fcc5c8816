#pragma once

class QWidget;

/// The window that a question belongs to: the modal one in front, else the active one; where none is active,
/// the one of the question before, or what that belongs to. Null where none of them is on the screen.
QWidget *promptOwner();
