#pragma once

#include "EntryExtraction.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

/// Two threads that extract entries. They share the archive's file and the tasks with the thread of the job,
/// nothing else; that thread alone talks to the user.
class ExtractionPool
{
public:
    /// What became of a task.
    struct Done
    {
        ExtractionTask task;
        std::exception_ptr failure; ///< null for success
    };

    /// \a archive has to exist for as long as this object.
    explicit ExtractionPool(const FileDescriptor &archive);
    /// Ends the tasks that run, without a file of theirs, and drops all others.
    ~ExtractionPool();
    ExtractionPool(const ExtractionPool &) = delete;
    ExtractionPool &operator=(const ExtractionPool &) = delete;

    bool isEmpty() const { return m_slots.empty(); }
    bool isFull() const { return m_slots.size() >= mostSlots; }
    void add(ExtractionTask task);

    /// Waits a short time until a piece of some task, or the task that was added first, is done. Returns the
    /// latter, so that results come in the order of the tasks. Throws what has ended a thread.
    std::optional<Done> wait();

private:
    static constexpr std::size_t mostSlots = 64;

    struct Slot
    {
        ExtractionTask task;
        std::exception_ptr failure;
        bool isDone = false;
    };

    /// A file that is whole and has still to replace another one.
    struct Gathered
    {
        std::shared_ptr<Slot> slot;
        std::unique_ptr<ExtractedFile> file;
    };

    void work();
    void extractAll();
    std::shared_ptr<Slot> takeSlot();
    std::unique_ptr<ExtractedFile> extractWithRoom(EntryExtraction &extraction, const ExtractionTask &task);
    std::unique_ptr<ExtractedFile> extract(EntryExtraction &extraction, const ExtractionTask &task);
    bool gather(const std::shared_ptr<Slot> &slot, std::unique_ptr<ExtractedFile> file);
    bool isEnoughGathered();
    void publishGathered();
    template<class Step>
    void finish(Slot &slot, Step step);
    void announce(Slot *done);

    const FileDescriptor &m_archive;
    std::atomic<bool> m_isCancelled = false;
    std::atomic<quint64> m_published = 0; ///< the number of files that were gathered
    std::mutex m_publishing;              ///< locked before m_mutex
    std::mutex m_mutex;                   ///< for all below
    std::condition_variable m_forWorkers;
    std::condition_variable m_forOwner;
    std::deque<std::shared_ptr<Slot>> m_slots; ///< only the owner adds and removes
    std::size_t m_taken = 0;                   ///< the number of slots at work or done
    quint64 m_news = 0;
    std::vector<Gathered> m_gathered;
    quint64 m_gatheredBytes = 0;
    std::exception_ptr m_failure; ///< what has ended a thread
    std::vector<std::thread> m_threads;
};
