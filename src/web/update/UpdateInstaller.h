#pragma once

/// The program that puts an unpacked update in place. It is not part of the suite.
namespace UpdateInstaller {

/// Starts "update.exe" of the program's folder and does not wait for it. It has to be a plain file of this
/// user, which others cannot write. Throws RuntimeError 53 where it is missing, 70 where it is of another
/// kind, 75 where it does not start.
void start();

} // namespace UpdateInstaller
