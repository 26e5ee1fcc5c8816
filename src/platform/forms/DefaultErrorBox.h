#pragma once

#include <QString>

/// The box of an error that no handler caught: critical, under the application title.
void showDefaultErrorBox(int number, const QString &description);
