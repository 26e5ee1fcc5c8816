#include "CompressionQueue.h"

#include "FileFailure.h"
#include "ReadFailure.h"
#include "WorkerThreads.h"

#include <fcntl.h>

namespace {

constexpr qint64 mostWhole = 4 << 20;
constexpr qint64 mostAhead = 32 << 20;
constexpr qsizetype testedForText = 4096;

} // namespace

CompressionQueue::CompressionQueue(const std::vector<const SourceFile *> &files,
                                   LineEnds::Conversion conversion, int level)
    : m_files(files)
    , m_conversion(conversion)
    , m_level(level)
    , m_threads(WorkerThreads::start([this] { work(); }))
{}

CompressionQueue::~CompressionQueue()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_forWorkers.notify_all();
    for (std::thread &thread : m_threads)
        thread.join();
}

CompressedPiece CompressionQueue::take(const std::function<void()> &whileWaiting)
{
    const auto isThere = [this] { return !m_slots.empty() && m_slots.front()->isDone; };
    std::unique_lock lock(m_mutex);
    while (!m_forOwner.wait_for(lock, WorkerThreads::longestWait, isThere)) {
        lock.unlock();
        whileWaiting();
        lock.lock();
    }
    const auto slot = std::move(m_slots.front());
    m_slots.pop_front();
    m_ahead -= slot->length;
    lock.unlock();
    m_forWorkers.notify_all();
    if (slot->piece.failure)
        std::rethrow_exception(slot->piece.failure);
    return std::move(slot->piece);
}

void CompressionQueue::work()
{
    PieceCompressor compressor(m_level);
    while (const auto slot = takeSlot()) {
        try {
            compress(compressor, *slot);
        } catch (const FileFailure &failure) {
            slot->piece.failure =
                std::make_exception_ptr(ReadFailure{slot->opened->file->path, failure.error});
        } catch (...) {
            slot->piece.failure = std::current_exception();
        }
        slot->opened.reset();
        {
            const std::lock_guard lock(m_mutex);
            slot->isDone = true;
        }
        m_forOwner.notify_one();
    }
}

/// Null at the end.
std::shared_ptr<CompressionQueue::Slot> CompressionQueue::takeSlot()
{
    std::unique_lock lock(m_mutex);
    m_forWorkers.wait(lock, [this] { return m_isEnding || isAtEnd() || m_ahead < mostAhead; });
    if (m_isEnding || isAtEnd())
        return nullptr;
    auto slot = nextSlot();
    m_ahead += slot->length;
    m_slots.push_back(slot);
    return slot;
}

std::shared_ptr<CompressionQueue::Slot> CompressionQueue::nextSlot()
{
    if (!m_opened)
        open(*m_files[m_nextFile++]);
    Opened &opened = *m_opened;
    auto slot = std::make_shared<Slot>();
    slot->opened = m_opened;
    slot->offset = opened.next;
    slot->piece.file = opened.file;
    slot->piece.isWhole = opened.size <= mostWhole;
    slot->length = slot->piece.isWhole ? opened.size
                                       : qMin<qint64>(PieceCompressor::partSize, opened.size - opened.next);
    opened.next += slot->length;
    slot->piece.isLast = opened.next == opened.size;
    slot->piece.fileSize = opened.conversion == LineEnds::Conversion::None ? opened.size : -1;
    if (slot->piece.isLast)
        m_opened.reset();
    return slot;
}

/// Where it fails, the file's one piece will tell.
void CompressionQueue::open(const SourceFile &file)
{
    m_opened = std::make_shared<Opened>();
    m_opened->file = &file;
    try {
        m_opened->descriptor = FileDescriptor::open(file.path, O_RDONLY | O_NONBLOCK);
        m_opened->size = m_opened->descriptor.size();
        if (m_conversion == LineEnds::Conversion::None)
            return;
        QByteArray beginning(testedForText, Qt::Uninitialized);
        beginning.resize(m_opened->descriptor.readAt(0, beginning.data(), beginning.size()));
        if (LineEnds::isText(beginning))
            m_opened->conversion = m_conversion;
    } catch (const FileFailure &) {
        m_opened->size = 0;
    }
}

void CompressionQueue::compress(PieceCompressor &compressor, Slot &slot) const
{
    const Opened &opened = *slot.opened;
    CompressedPiece &piece = slot.piece;
    QByteArray data(slot.length + 1, Qt::Uninitialized); // and the character behind it
    const qsizetype got = opened.descriptor.readAt(slot.offset, data.data(), data.size());
    const char next = got > slot.length ? data[slot.length] : '\0';
    data.resize(qMin<qsizetype>(got, slot.length));
    if (opened.conversion != LineEnds::Conversion::None)
        data = LineEnds::convert(data, next, opened.conversion);
    piece.size = data.size();
    piece.crc = libdeflate_crc32(0, data.constData(), std::size_t(data.size()));
    if (!piece.isWhole) {
        piece.isDeflated = true;
        piece.bytes = compressor.compressPart(data, piece.isLast);
    } else if (auto stream = compressor.compressWhole(data)) {
        piece.isDeflated = true;
        piece.bytes = std::move(*stream);
    } else {
        piece.bytes = std::move(data);
    }
}
