#pragma once

#include <QString>

class QWidget;

/// Tells the user by a box with \a text, without a title of its own, what is missing or wrong in \a control,
/// and puts the focus into it.
void AskAgain(QWidget &control, const QString &text);
