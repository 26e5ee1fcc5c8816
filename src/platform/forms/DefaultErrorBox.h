#pragma once

#include <QString>

/// The box of an error that nobody trapped: critical, under the application title.
void showDefaultErrorBox(int number, const QString &description);
