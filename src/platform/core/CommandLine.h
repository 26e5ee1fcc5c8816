#pragma once

#include <QString>

/// What the program was started with.
namespace CommandLine {

/// The arguments, joined by blanks, with the quotes that are in them; names as FileNames has them. Empty
/// before take().
QString text();

/// Keeps the arguments that follow the program's name.
void take(int argc, const char *const *argv);

} // namespace CommandLine
