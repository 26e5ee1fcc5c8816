#include "CompressionQueue.h"

#include "FileDescriptor.h"
#include "FileFailure.h"
#include "PieceCompressor.h"
#include "ReadFailure.h"
#include "WorkerThreads.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace {

constexpr qint64 mostWhole = 4 << 20;
constexpr qint64 mostAhead = 32 << 20;
constexpr qsizetype testedForText = 4096;

} // namespace

/// What the threads and the owner of the queue share.
class CompressionQueue::Work
{
public:
    Work(const SourceFiles &files, LineEnds::Conversion conversion, int level);

    CompressedPiece take(const std::function<void()> &whileWaiting);
    /// What each thread does.
    void run();
    void end();

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

    void compressAll();
    std::shared_ptr<Slot> takeSlot();
    std::shared_ptr<Slot> nextSlot();
    void openNext(std::unique_lock<std::mutex> &lock);
    std::shared_ptr<Opened> open(const SourceFile &file) const;
    void compress(PieceCompressor &compressor, Slot &slot) const;
    bool isAtEnd() const { return m_nextFile == m_files.size() && !m_opened && !m_isOpening; }

    const SourceFiles m_owned; ///< those that m_files has
    std::vector<const SourceFile *> m_files;
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
};

CompressionQueue::CompressionQueue(const SourceFiles &files, LineEnds::Conversion conversion, int level)
    : m_work(std::make_shared<Work>(files, conversion, level))
{
    for (std::thread &thread : WorkerThreads::start([work = m_work] { work->run(); }))
        thread.detach();
}

CompressionQueue::~CompressionQueue()
{
    m_work->end();
}

CompressedPiece CompressionQueue::take(const std::function<void()> &whileWaiting)
{
    return m_work->take(whileWaiting);
}

CompressionQueue::Work::Work(const SourceFiles &files, LineEnds::Conversion conversion, int level)
    : m_owned(files)
    , m_conversion(conversion)
    , m_level(level)
{
    for (const SourceFile &file : *files) {
        if (!file.isFolder)
            m_files.push_back(&file);
    }
}

void CompressionQueue::Work::end()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_forWorkers.notify_all();
}

CompressedPiece CompressionQueue::Work::take(const std::function<void()> &whileWaiting)
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
void CompressionQueue::Work::run()
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

void CompressionQueue::Work::compressAll()
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
std::shared_ptr<CompressionQueue::Work::Slot> CompressionQueue::Work::takeSlot()
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
void CompressionQueue::Work::openNext(std::unique_lock<std::mutex> &lock)
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

std::shared_ptr<CompressionQueue::Work::Slot> CompressionQueue::Work::nextSlot()
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
std::shared_ptr<CompressionQueue::Work::Opened> CompressionQueue::Work::open(const SourceFile &file) const
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

void CompressionQueue::Work::compress(PieceCompressor &compressor, Slot &slot) const
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
