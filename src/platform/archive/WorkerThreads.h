#pragma once

#include <chrono>
#include <functional>
#include <thread>
#include <vector>

/// The threads that share the work of a job: two, or one where the system gives no second.
namespace WorkerThreads {

/// Whoever waits for the threads calls the service function that often, whatever they do.
inline constexpr std::chrono::milliseconds longestWait{20};

/// Throws std::system_error where there is not even one.
std::vector<std::thread> start(const std::function<void()> &work);

} // namespace WorkerThreads
