#pragma once

#include "CompressedPiece.h"
#include "FileDescriptor.h"
#include "LineEnds.h"
#include "PieceCompressor.h"
#include "SourceFile.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

/// Two threads that read and compress files ahead of the one that writes the archive. Small files are one
/// piece, larger ones many, so that no wait for a piece is long. What is ahead is limited to 32 MiB.
class CompressionQueue
{
public:
    /// \a files has to exist for as long as this object. Folders among them are skipped. \a level is 1 to 9.
    CompressionQueue(const std::vector<const SourceFile *> &files, LineEnds::Conversion conversion,
                     int level);
    ~CompressionQueue();
    CompressionQueue(const CompressionQueue &) = delete;
    CompressionQueue &operator=(const CompressionQueue &) = delete;

    /// The next piece, in the order of the files. Calls \a whileWaiting again and again until it is there.
    /// Throws ReadFailure, what \a whileWaiting throws, and std::bad_alloc, also for the threads.
    CompressedPiece take(const std::function<void()> &whileWaiting);

private:
    /// A file while its pieces are being handed out.
    struct Opened
    {
        const SourceFile *file = nullptr;
        FileDescriptor descriptor;
        qint64 size = 0;
        qint64 next = 0; ///< where the next piece begins
        int error = 0;   ///< of opening it; a value of errno
        LineEnds::Conversion conversion = LineEnds::Conversion::None;
    };

    struct Slot
    {
        std::shared_ptr<Opened> opened;
        qint64 offset = 0;
        qint64 length = 0;
        CompressedPiece piece;
        bool isDone = false;
    };

    void work();
    void compressAll();
    std::shared_ptr<Slot> takeSlot();
    std::shared_ptr<Slot> nextSlot();
    void openNext(std::unique_lock<std::mutex> &lock);
    std::shared_ptr<Opened> open(const SourceFile &file) const;
    void compress(PieceCompressor &compressor, Slot &slot) const;
    bool isAtEnd() const { return m_nextFile == m_files.size() && !m_opened && !m_isOpening; }

    const std::vector<const SourceFile *> &m_files;
    const LineEnds::Conversion m_conversion;
    const int m_level;
    std::mutex m_mutex; ///< for all below
    std::condition_variable m_forWorkers;
    std::condition_variable m_forOwner;
    std::deque<std::shared_ptr<Slot>> m_slots;
    std::shared_ptr<Opened> m_opened; ///< the file whose pieces are handed out
    std::size_t m_nextFile = 0;
    bool m_isOpening = false; ///< a thread opens a file
    qint64 m_ahead = 0;       ///< bytes in m_slots
    bool m_isEnding = false;
    std::exception_ptr m_failure; ///< what has ended a thread
    std::vector<std::thread> m_threads;
};
