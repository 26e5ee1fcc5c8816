#include "WorkerThreads.h"

#include <system_error>

std::vector<std::thread> WorkerThreads::start(const std::function<void()> &work)
{
    std::vector<std::thread> threads;
    threads.reserve(2);
    threads.emplace_back(work);
    try {
        threads.emplace_back(work);
    } catch (const std::system_error &) {
        return threads;
    }
    return threads;
}
