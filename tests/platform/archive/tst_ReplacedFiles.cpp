#include "ArchiveMaker.h"
#include "ExtractionPool.h"
#include "FaultyCalls.h"
#include "FolderContent.h"
#include "PackedData.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "SmallDisk.h"
#include "UnzipRun.h"

#include <QSemaphore>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int longestGate = 10000; // milliseconds

/// Files that replace others. One of the pool's two threads is kept busy until the first gate opens, so that
/// the other one does all that is added before begin(), in turn.
struct ReplacedFilesTest : testing::Test
{
    ScratchFolder scratch;
    TargetFolder::Folder folder =
        std::make_shared<const FileDescriptor>(FileDescriptor::openFolderOf(scratch.file("x")));
    FileDescriptor archive = makeArchive();
    QSemaphore begun;
    QSemaphore firstGate;
    QSemaphore secondGate;
    QSemaphore lastGate;
    ArchiveEntry empty = entryOf({});
    ArchiveEntry letter = entryOf("x");
    std::optional<ExtractionPool> pool;

    ReplacedFilesTest()
    {
        pool.emplace(archive);
        for (QSemaphore *gate : {&firstGate, &secondGate})
            addGate(*gate);
        begun.tryAcquire(2, longestGate);
    }
    ~ReplacedFilesTest() override
    {
        for (QSemaphore *gate : {&firstGate, &secondGate, &lastGate})
            gate->release();
    }
    void begin() { secondGate.release(); }

    FileDescriptor makeArchive() const
    {
        scratch.addFile("archive");
        return FileDescriptor::open(scratch.file("archive"), O_RDWR);
    }
    static ArchiveEntry entryOf(const QByteArray &data)
    {
        ArchiveEntry entry;
        entry.size = entry.packedSize = quint64(data.size());
        entry.crc = libdeflate_crc32(0, data.constData(), std::size_t(data.size()));
        return entry;
    }
    void addGate(QSemaphore &gate)
    {
        QSemaphore &announced = begun;
        ExtractionTask task;
        task.entry = &letter;
        task.output = [&announced, &gate](QByteArrayView) {
            announced.release();
            gate.tryAcquire(1, longestGate);
        };
        task.data = std::make_shared<Letter>();
        pool->add(std::move(task));
    }
    void addReplacement(const QByteArray &name, const ArchiveEntry &entry,
                        const std::shared_ptr<PackedData> &data = {})
    {
        scratch.addFile(name, "old");
        ExtractionTask task;
        task.entry = &entry;
        task.name = task.path = name;
        task.folder = folder;
        task.existing = PendingFile::Existing::Replace;
        task.data = data;
        pool->add(std::move(task));
    }
    ExtractionPool::Done next()
    {
        for (;;)
            if (auto done = pool->wait())
                return std::move(*done);
    }
    qint64 sizeOf(const QByteArray &name) const
    {
        struct stat state = {};
        EXPECT_EQ(::stat(scratch.file(name).constData(), &state), 0);
        return state.st_size;
    }

    struct Letter : PackedData
    {
        bool isRead = false;
        qsizetype read(char *to, qsizetype) override
        {
            *to = 'x';
            return std::exchange(isRead, true) ? 0 : 1;
        }
    };
};

} // namespace

/// libzip's data among it belongs to the caller's thread again.
TEST_F(ReplacedFilesTest, NothingSharesTheDataOfATaskThatIsDone)
{
    const FaultyCalls calls;
    calls.hold(FaultyCalls::Rename, "b");
    addReplacement("a", letter, std::make_shared<Letter>());
    addReplacement("b", empty);
    begin();
    calls.waitUntilHeld();
    firstGate.release();
    next();
    next();
    EXPECT_EQ(next().task.data.use_count(), 1);
    EXPECT_EQ(sizeOf("a"), 1);
    EXPECT_FALSE(calls.isOverdue());
}

TEST_F(ReplacedFilesTest, LargeOnesAppearBeforeTheNextTask)
{
    constexpr qint64 size = 33 << 20; // two are more than are gathered
    ASSERT_EQ(::ftruncate(archive.get(), size), 0);
    const ArchiveEntry large = entryOf(QByteArray(size, '\0'));
    addReplacement("a", large);
    addReplacement("b", large);
    addGate(lastGate);
    begin();
    ASSERT_TRUE(begun.tryAcquire(1, longestGate));
    EXPECT_EQ(sizeOf("a"), size);
    EXPECT_EQ(sizeOf("b"), size);
}

/// The old files and the new ones do not have room together.
TEST(ReplacedFiles, NeedNoRoomForAllOfThem)
{
    constexpr qsizetype size = 2 << 20;
    constexpr int count = 8;
    const SmallDisk disk((count + 3) * size); // one for each thread, and the folders
    if (!disk.isMounted())
        GTEST_SKIP() << "this user may not mount a file system";
    const ScratchFolder scratch;
    QList<MadeEntry> entries;
    for (int i = 0; i < count; ++i) {
        MadeEntry entry;
        entry.name = QByteArray::number(i);
        entry.data.fill('a', size);
        entries.append(entry);
    }
    scratch.addFile("a.zip", ArchiveMaker::make(entries));
    const QByteArray target = disk.path().toUtf8() + "/target";
    UnzipRun job;
    job.options.noflag = 1;
    ASSERT_EQ(job.extract(scratch.file("a.zip"), target), UnzipResult::Success);
    for (MadeEntry &entry : entries)
        entry.data.fill('z');
    scratch.addFile("a.zip", ArchiveMaker::make(entries));
    EXPECT_EQ(job.extract(scratch.file("a.zip"), target), UnzipResult::Success);
    const auto files = FolderContent::filesOf(target);
    EXPECT_EQ(files.size(), count);
    for (const QByteArray &bytes : files)
        EXPECT_TRUE(bytes == QByteArray(size, 'z'));
}
