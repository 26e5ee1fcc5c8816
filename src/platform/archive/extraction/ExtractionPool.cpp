#include "ExtractionPool.h"

#include "PlainData.h"
#include "WorkerThreads.h"

namespace {

struct Cancelled
{};

constexpr std::size_t mostUnpublished = 32; // each is an open file

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
    std::vector<Unpublished> unpublished;
    while (!m_isCancelled) {
        const auto slot = takeSlot(unpublished.empty());
        if (slot)
            finish(*slot, [&] {
                auto file = extract(extraction, slot->task);
                if (file && file->replaces())
                    unpublished.push_back({slot, std::move(file)});
                else if (file)
                    file->publish();
                return unpublished.empty() || unpublished.back().slot != slot;
            });
        if (!slot || unpublished.size() >= mostUnpublished)
            publishAll(unpublished);
    }
}

/// Null at the end, and where no task is left unless the thread \a waits for one.
std::shared_ptr<ExtractionPool::Slot> ExtractionPool::takeSlot(bool waits)
{
    std::unique_lock lock(m_mutex);
    if (waits)
        m_forWorkers.wait(lock, [this] { return m_isCancelled || m_taken < m_slots.size(); });
    return m_isCancelled || m_taken == m_slots.size() ? nullptr : m_slots[m_taken++];
}

std::unique_ptr<ExtractedFile> ExtractionPool::extract(EntryExtraction &extraction,
                                                       const ExtractionTask &task)
{
    const auto betweenPieces = [this] {
        if (m_isCancelled)
            throw Cancelled();
        announce(nullptr);
    };
    PlainData plain(m_archive, task.dataOffset, qint64(task.entry->packedSize));
    return extraction.run(task, task.data ? *task.data : plain, betweenPieces);
}

void ExtractionPool::publishAll(std::vector<Unpublished> &files)
{
    for (Unpublished &unpublished : files) {
        if (m_isCancelled)
            break;
        finish(*unpublished.slot, [&] {
            unpublished.file->publish();
            return true;
        });
    }
    files.clear();
}

/// Runs \a step, which returns whether the task is done. It also is where the step fails.
template<class Step>
void ExtractionPool::finish(Slot &slot, Step step)
{
    bool isDone = true;
    try {
        isDone = step();
    } catch (...) {
        slot.failure = std::current_exception();
    }
    if (isDone)
        announce(&slot);
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
