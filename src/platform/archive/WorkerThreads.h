#pragma once

#include <functional>
#include <thread>
#include <vector>

/// The threads that share the work of a job: two, or one where the system gives no second.
namespace WorkerThreads {

/// Throws std::system_error where there is not even one.
std::vector<std::thread> start(const std::function<void()> &work);

} // namespace WorkerThreads
