#include "ExtractionPool.h"

#include "PlainData.h"
#include "WorkerThreads.h"

namespace {

struct Cancelled
{};

} // namespace

ExtractionPool::ExtractionPool(const FileDescriptor &archive)
    : m_archive(archive)
    , m_threads(WorkerThreads::start([this] { work(); }))
{}

ExtractionPool::~ExtractionPool()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isCancelled = true;
    }
    m_forWorkers.notify_all();
    for (std::thread &thread : m_threads)
        thread.join();
}

void ExtractionPool::add(ExtractionTask task)
{
    {
        const std::lock_guard lock(m_mutex);
        m_slots.push_back(std::make_shared<Slot>(Slot{std::move(task), {}, false}));
    }
    m_forWorkers.notify_one();
}

std::optional<ExtractionPool::Done> ExtractionPool::wait()
{
    std::unique_lock lock(m_mutex);
    const quint64 seen = m_news;
    if (!m_slots.front()->isDone)
        m_forOwner.wait_for(lock, WorkerThreads::longestWait, [&] { return m_news != seen; });
    if (m_failure)
        std::rethrow_exception(m_failure);
    if (!m_slots.front()->isDone)
        return {};
    const auto slot = std::move(m_slots.front());
    m_slots.pop_front();
    --m_taken;
    return Done{std::move(slot->task), slot->failure};
}

/// No exception ends a thread unnoticed.
void ExtractionPool::work()
{
    try {
        extractAll();
    } catch (...) {
        {
            const std::lock_guard lock(m_mutex);
            m_failure = std::current_exception();
        }
        announce(nullptr);
    }
}

void ExtractionPool::extractAll()
{
    EntryExtraction extraction;
    while (const auto slot = takeSlot()) {
        slot->failure = extract(extraction, slot->task);
        announce(slot.get());
    }
}

/// Null at the end.
std::shared_ptr<ExtractionPool::Slot> ExtractionPool::takeSlot()
{
    std::unique_lock lock(m_mutex);
    m_forWorkers.wait(lock, [this] { return m_isCancelled || m_taken < m_slots.size(); });
    return m_isCancelled ? nullptr : m_slots[m_taken++];
}

std::exception_ptr ExtractionPool::extract(EntryExtraction &extraction, const ExtractionTask &task)
{
    const auto betweenPieces = [this] {
        if (m_isCancelled)
            throw Cancelled();
        announce(nullptr);
    };
    try {
        PlainData plain(m_archive, task.dataOffset, qint64(task.entry->packedSize));
        extraction.run(task, task.data ? *task.data : plain, betweenPieces);
        return nullptr;
    } catch (...) {
        return std::current_exception();
    }
}

void ExtractionPool::announce(Slot *done)
{
    {
        const std::lock_guard lock(m_mutex);
        if (done)
            done->isDone = true;
        ++m_news;
    }
    m_forOwner.notify_one();
}
