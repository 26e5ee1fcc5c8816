#pragma once

#include "CompressedPiece.h"
#include "LineEnds.h"
#include "SourceFile.h"

#include <functional>
#include <memory>

/// Two threads that read and compress files ahead of the one that writes the archive. Small files are one
/// piece, larger ones many, so that no wait for a piece is long. What is ahead is limited to 32 MiB.
class CompressionQueue
{
public:
    /// Folders among \a files are skipped. \a level is 1 to 9.
    CompressionQueue(const SourceFiles &files, LineEnds::Conversion conversion, int level);
    /// Does not wait: a thread that a disk or a server holds up, in the middle of a call, ends later, alone.
    ~CompressionQueue();
    CompressionQueue(const CompressionQueue &) = delete;
    CompressionQueue &operator=(const CompressionQueue &) = delete;

    /// The next piece, in the order of the files. Calls \a whileWaiting again and again until it is there.
    /// Throws ReadFailure, what \a whileWaiting throws, and std::bad_alloc, also for the threads.
    CompressedPiece take(const std::function<void()> &whileWaiting);

private:
    class Work;
    const std::shared_ptr<Work> m_work; ///< the threads have it too
};
