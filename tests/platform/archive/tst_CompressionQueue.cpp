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
    FaultyCalls calls;

    CompressionQueueTest()
    {
        scratch.addFile("first", "1");
        first.path = scratch.file("first");
        scratch.addFile("second", "22");
        second.path = scratch.file("second");
    }
    static SourceFiles files(const std::vector<SourceFile> &all)
    {
        return std::make_shared<const std::vector<SourceFile>>(all);
    }
    ReadFailure failureOfFirst() const
    {
        CompressionQueue queue(files({first}), LineEnds::Conversion::None, level);
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
    CompressionQueue queue(files({first}), LineEnds::Conversion::None, level);
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

/// Though a server that does not answer holds up a thread.
TEST_F(CompressionQueueTest, TheCallMayEndTheJob)
{
    struct Ended
    {};
    for (const auto call : {FaultyCalls::Open, FaultyCalls::Read}) {
        calls.hold(call);
        {
            CompressionQueue queue(files({first}), LineEnds::Conversion::None, level);
            EXPECT_THROW(queue.take([&] {
                if (calls.held() > 0)
                    throw Ended();
            }),
                         Ended);
        }
        EXPECT_EQ(calls.held(), 1);
        EXPECT_FALSE(calls.isOverdue());
        calls.release();
    }
}

TEST_F(CompressionQueueTest, SkipsFolders)
{
    SourceFile folder;
    folder.isFolder = true;
    CompressionQueue queue(files({folder, first, folder, second}), LineEnds::Conversion::None, level);
    EXPECT_EQ(queue.take([] {}).size, 1);
    EXPECT_EQ(queue.take([] {}).size, 2);
}

/// As a server can hang, with the file that is next.
TEST_F(CompressionQueueTest, AFileThatIsBeingOpenedHoldsUpNoOther)
{
    calls.hold(FaultyCalls::Open, second.path);
    CompressionQueue queue(files({first, second}), LineEnds::Conversion::None, level);
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
    CompressionQueue queue(files({first}), LineEnds::Conversion::None, noSuchLevel);
    EXPECT_THROW(queue.take([] {}), std::bad_alloc);
}
