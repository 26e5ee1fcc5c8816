#pragma once

/// The program that shows what the computer is made of. The registry names it.
namespace SystemInformation {

/// Starts it and does not wait. Returns false where the registry names none, or none that can be started.
bool start();

} // namespace SystemInformation
