#include "ExtractionPool.h"

#include "FileFailure.h"
#include "WorkerThreads.h"

namespace {

struct Cancelled
{};

constexpr std::size_t mostGathered = 32; // each is an open file
constexpr quint64 mostGatheredBytes = 64 << 20;

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
    EntryExtraction extraction(m_archive);
    while (!m_isCancelled) {
        const auto slot = takeSlot();
        if (slot)
            finish(*slot, [&] {
                auto file = extractWithRoom(extraction, slot->task);
                if (file && file->replaces())
                    return gather(slot, std::move(file));
                if (file)
                    file->publish();
                return true;
            });
        if (!slot || isEnoughGathered())
            publishGathered();
    }
}

/// Null at the end, and where no task is left but files are gathered.
std::shared_ptr<ExtractionPool::Slot> ExtractionPool::takeSlot()
{
    std::unique_lock lock(m_mutex);
    if (m_gathered.empty())
        m_forWorkers.wait(lock, [this] { return m_isCancelled || m_taken < m_slots.size(); });
    return m_isCancelled || m_taken == m_slots.size() ? nullptr : m_slots[m_taken++];
}

/// Files that are gathered take up room beside those that they replace. Where the disk is full they are
/// published first.
std::unique_ptr<ExtractedFile> ExtractionPool::extractWithRoom(EntryExtraction &extraction,
                                                               const ExtractionTask &task)
{
    for (;;) {
        const quint64 before = m_published;
        try {
            return extract(extraction, task);
        } catch (const FileFailure &failure) {
            if (!failure.isFullDisk())
                throw;
            publishGathered();
            const bool isReadOnce = task.data != nullptr;
            if (isReadOnce || m_published == before)
                throw;
        }
    }
}

std::unique_ptr<ExtractedFile> ExtractionPool::extract(EntryExtraction &extraction,
                                                       const ExtractionTask &task)
{
    const auto betweenPieces = [this] {
        if (m_isCancelled)
            throw Cancelled();
        announce(nullptr);
    };
    return extraction.run(task, betweenPieces);
}

/// Returns false: the task is not done yet.
bool ExtractionPool::gather(const std::shared_ptr<Slot> &slot, std::unique_ptr<ExtractedFile> file)
{
    const std::lock_guard lock(m_mutex);
    m_gathered.push_back({slot, std::move(file)});
    m_gatheredBytes += slot->task.entry->size;
    return false;
}

bool ExtractionPool::isEnoughGathered()
{
    const std::lock_guard lock(m_mutex);
    return m_gathered.size() >= mostGathered || m_gatheredBytes >= mostGatheredBytes;
}

/// Also waits for another thread that does so.
void ExtractionPool::publishGathered()
{
    const std::lock_guard publishing(m_publishing);
    std::vector<Gathered> files;
    {
        const std::lock_guard lock(m_mutex);
        files.swap(m_gathered);
        m_gatheredBytes = 0;
    }
    for (Gathered &gathered : files) {
        if (m_isCancelled)
            break;
        finish(*gathered.slot, [&] {
            // Gone before the task is done: it shares the task's data, which the job's thread uses again
            // then.
            const auto file = std::move(gathered.file);
            file->publish();
            ++m_published;
            return true;
        });
    }
}

/// Runs \a step, which returns whether the task is done. A step that throws is done, too.
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
