#include "CompressionQueue.h"
#include "FaultyCalls.h"
#include "PrintQt.h"
#include "ReadFailure.h"
#include "ScratchFolder.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <new>
#include <sys/stat.h>

namespace {

struct CompressionQueueTest : testing::Test
{
    static constexpr int level = 6;
    ScratchFolder scratch;
    SourceFile first;
    SourceFile second;
    std::vector<const SourceFile *> files = {&first};
    FaultyCalls calls;

    CompressionQueueTest()
    {
        scratch.addFile("first", "1");
        first.path = scratch.file("first");
        scratch.addFile("second", "22");
        second.path = scratch.file("second");
    }
    ReadFailure failureOfFirst() const
    {
        CompressionQueue queue(files, LineEnds::Conversion::None, level);
        try {
            queue.take([] {});
        } catch (const ReadFailure &failure) {
            return failure;
        }
        return {};
    }
};

} // namespace

TEST_F(CompressionQueueTest, CallsWhileItWaits)
{
    calls.hold(FaultyCalls::Open);
    CompressionQueue queue(files, LineEnds::Conversion::None, level);
    int waits = 0;
    const CompressedPiece piece = queue.take([&] {
        if (++waits == 3)
            calls.release();
    });
    EXPECT_GE(waits, 3);
    EXPECT_FALSE(calls.isOverdue());
    EXPECT_EQ(piece.size, 1);
    EXPECT_TRUE(piece.isLast);
}

TEST_F(CompressionQueueTest, TheCallMayEndTheJob)
{
    struct Ended
    {};
    calls.hold(FaultyCalls::Open);
    CompressionQueue queue(files, LineEnds::Conversion::None, level);
    EXPECT_THROW(queue.take([] { throw Ended(); }), Ended);
    EXPECT_FALSE(calls.isOverdue());
    calls.release();
}

/// As a server can hang, with the file that is next.
TEST_F(CompressionQueueTest, AFileThatIsBeingOpenedHoldsUpNoOther)
{
    files = {&first, &second};
    calls.hold(FaultyCalls::Open, second.path);
    CompressionQueue queue(files, LineEnds::Conversion::None, level);
    calls.waitUntilHeld();
    EXPECT_EQ(queue.take([] {}).size, 1);
    EXPECT_FALSE(calls.isOverdue());
    EXPECT_EQ(calls.held(), 1);
    calls.release();
    EXPECT_EQ(queue.take([] {}).size, 2);
}

TEST_F(CompressionQueueTest, NeverWaitsForAPipe)
{
    ASSERT_EQ(::mkfifo(scratch.file("pipe").constData(), 0600), 0);
    first.path = scratch.file("pipe"); // it was a file when it was found
    EXPECT_EQ(failureOfFirst().error, ENOTSUP);
}

TEST_F(CompressionQueueTest, FailsAsOpeningTheFileDid)
{
    calls.fail(FaultyCalls::Open, EMFILE);
    const ReadFailure failure = failureOfFirst();
    EXPECT_EQ(failure.error, EMFILE);
    EXPECT_EQ(failure.path, first.path);
}

TEST_F(CompressionQueueTest, WhatEndsAThreadReachesTheCaller)
{
    constexpr int noSuchLevel = 99;
    CompressionQueue queue(files, LineEnds::Conversion::None, noSuchLevel);
    EXPECT_THROW(queue.take([] {}), std::bad_alloc);
}
