#include "CompressionQueue.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TestData.h"

#include <gtest/gtest.h>

namespace {

struct CompressionQueueTest : testing::Test
{
    static constexpr qint64 size = 4 << 20; ///< one piece, for which a processor needs some time
    ScratchFolder scratch;
    SourceFile file;
    std::vector<const SourceFile *> files = {&file};

    CompressionQueueTest()
    {
        scratch.addFile("noise", TestData::noise(size));
        file.path = scratch.file("noise");
        file.size = size;
    }
};

} // namespace

TEST_F(CompressionQueueTest, CallsWhileItWaits)
{
    CompressionQueue queue(files, LineEnds::Conversion::None, 9);
    int calls = 0;
    const CompressedPiece piece = queue.take([&calls] { ++calls; });
    EXPECT_EQ(piece.size, size);
    EXPECT_TRUE(piece.isLast);
    EXPECT_GT(calls, 0);
}

TEST_F(CompressionQueueTest, TheCallMayEndTheJob)
{
    struct Ended
    {};
    CompressionQueue queue(files, LineEnds::Conversion::None, 9);
    EXPECT_THROW(queue.take([] { throw Ended(); }), Ended);
}
