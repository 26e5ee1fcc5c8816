#pragma once

#include <functional>

/// Calls of the system that a slow disk or a server can make last.
namespace DiskCall {

/// Runs \a call on a thread of its own, and calls \a whileWaiting again and again until it is over. What
/// \a call throws reaches the caller. What \a whileWaiting throws does so at once: \a call then goes on
/// alone, so it has to own all that it uses. Throws std::system_error where no thread can be started.
void run(std::function<void()> call, const std::function<void()> &whileWaiting);

} // namespace DiskCall
