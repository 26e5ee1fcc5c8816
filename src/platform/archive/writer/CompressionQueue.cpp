#include "CompressionQueue.h"

#include "FileFailure.h"
#include "ReadFailure.h"
#include "WorkerThreads.h"

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
    const auto isThere = [this] { return m_failure || (!m_slots.empty() && m_slots.front()->isDone); };
    std::unique_lock lock(m_mutex);
    while (!m_forOwner.wait_for(lock, WorkerThreads::longestWait, isThere)) {
        lock.unlock();
        whileWaiting();
        lock.lock();
    }
    if (m_failure)
        std::rethrow_exception(m_failure);
    const auto slot = std::move(m_slots.front());
    m_slots.pop_front();
    m_ahead -= slot->length;
    lock.unlock();
    m_forWorkers.notify_all();
    if (slot->piece.failure)
        std::rethrow_exception(slot->piece.failure);
    return std::move(slot->piece);
}

/// No exception ends a thread unnoticed.
void CompressionQueue::work()
{
    try {
        compressAll();
    } catch (...) {
        const std::lock_guard lock(m_mutex);
        m_failure = std::current_exception();
        m_isEnding = true;
    }
    m_forWorkers.notify_all();
    m_forOwner.notify_one();
}

void CompressionQueue::compressAll()
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
    const auto canGoOn = [this] { return m_isEnding || isAtEnd() || (!m_isOpening && m_ahead < mostAhead); };
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_forWorkers.wait(lock, canGoOn);
        if (m_isEnding || isAtEnd())
            return nullptr;
        if (m_opened)
            break;
        openNext(lock);
    }
    auto slot = nextSlot();
    m_ahead += slot->length;
    m_slots.push_back(slot);
    return slot;
}

/// The disk or server of a file may hang, which is no reason for the others to wait.
void CompressionQueue::openNext(std::unique_lock<std::mutex> &lock)
{
    const SourceFile &file = *m_files[m_nextFile++];
    m_isOpening = true;
    lock.unlock();
    auto opened = open(file);
    lock.lock();
    m_opened = std::move(opened);
    m_isOpening = false;
    m_forWorkers.notify_all();
}

std::shared_ptr<CompressionQueue::Slot> CompressionQueue::nextSlot()
{
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

/// Where it fails, the file's one piece fails.
std::shared_ptr<CompressionQueue::Opened> CompressionQueue::open(const SourceFile &file) const
{
    auto opened = std::make_shared<Opened>();
    opened->file = &file;
    try {
        opened->descriptor = FileDescriptor::openOrdinary(file.path);
        opened->size = opened->descriptor.size();
        if (m_conversion == LineEnds::Conversion::None)
            return opened;
        QByteArray beginning(testedForText, Qt::Uninitialized);
        beginning.resize(opened->descriptor.readAt(0, beginning.data(), beginning.size()));
        if (LineEnds::isText(beginning))
            opened->conversion = m_conversion;
    } catch (const FileFailure &failure) {
        opened->size = 0;
        opened->error = failure.error;
    }
    return opened;
}

void CompressionQueue::compress(PieceCompressor &compressor, Slot &slot) const
{
    const Opened &opened = *slot.opened;
    CompressedPiece &piece = slot.piece;
    if (opened.error != 0)
        throw FileFailure(opened.error);
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
