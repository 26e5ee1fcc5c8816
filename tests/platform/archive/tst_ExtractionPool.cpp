#include "ExtractionPool.h"
#include "FaultyCalls.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <QSemaphore>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <new>

/// Whoever waits can do something else meanwhile, however long a piece takes.
TEST(ExtractionPoolTest, WaitsAShortTimeOnly)
{
    constexpr int mostMilliseconds = 10000;
    const ScratchFolder scratch;
    scratch.addFile("data", "abc");
    const FileDescriptor archive = FileDescriptor::open(scratch.file("data"), O_RDONLY);
    ArchiveEntry entry;
    entry.size = entry.packedSize = 3;
    entry.crc = libdeflate_crc32(0, "abc", 3);
    QSemaphore isReleased;
    ExtractionTask task;
    task.entry = &entry;
    task.output = [&isReleased](QByteArrayView) { isReleased.tryAcquire(1, mostMilliseconds); };
    ExtractionPool pool(archive);
    pool.add(std::move(task));
    for (int i = 0; i < 5; ++i)
        ASSERT_FALSE(pool.wait());
    isReleased.release(2);
    std::optional<ExtractionPool::Done> done;
    while (!done)
        done = pool.wait();
    EXPECT_FALSE(done->failure);
    EXPECT_TRUE(pool.isEmpty());
}

TEST(ExtractionPoolTest, WhatEndsAThreadReachesTheCaller)
{
    const FaultyCalls calls;
    calls.fail(FaultyCalls::AllocateDecompressor, ENOMEM);
    const FileDescriptor archive;
    const ArchiveEntry entry;
    ExtractionTask task;
    task.entry = &entry;
    ExtractionPool pool(archive);
    pool.add(std::move(task));
    EXPECT_THROW(while (!pool.wait()) continue, std::bad_alloc);
}
