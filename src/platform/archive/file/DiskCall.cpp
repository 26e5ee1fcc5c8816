#include "DiskCall.h"

#include "WorkerThreads.h"

#include <future>

void DiskCall::run(std::function<void()> call, const std::function<void()> &whileWaiting)
{
    std::packaged_task<void()> task(std::move(call));
    std::future<void> result = task.get_future();
    std::thread(std::move(task)).detach();
    while (result.wait_for(WorkerThreads::longestWait) != std::future_status::ready)
        whileWaiting();
    result.get();
}
