#pragma once

class QWidget;

/// The window that a question belongs to: the modal one in front, else the active one; null without either.
QWidget *promptOwner();
