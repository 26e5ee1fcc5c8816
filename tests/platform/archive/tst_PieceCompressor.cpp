#include "PieceCompressor.h"
#include "PrintQt.h"
#include "RowName.h"
#include "TestData.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <zlib.h>

namespace {

QByteArray inflated(const QByteArray &stream, qsizetype size)
{
    QByteArray data(size + 1, Qt::Uninitialized);
    z_stream state = {};
    inflateInit2(&state, -MAX_WBITS);
    state.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(stream.constData()));
    state.avail_in = uInt(stream.size());
    state.next_out = reinterpret_cast<Bytef *>(data.data());
    state.avail_out = uInt(data.size());
    EXPECT_EQ(inflate(&state, Z_FINISH), Z_STREAM_END);
    EXPECT_EQ(state.avail_in, 0u);
    data.resize(qsizetype(state.total_out));
    inflateEnd(&state);
    return data;
}

QByteArray words(qsizetype size)
{
    QByteArray data;
    QRandomGenerator random(2);
    while (data.size() < size)
        data += QByteArray::number(random.bounded(1000)) + " words ";
    return data.left(size);
}

struct DataRow
{
    const char *name;
    QByteArray data;
};

void PrintTo(const DataRow &row, std::ostream *out)
{
    *out << row.name;
}

constexpr qsizetype part = PieceCompressor::partSize;

const DataRow dataRows[] = {
    {"OneByte", "x"},
    {"Words", words(part)},
    {"Noise", TestData::noise(part)},
    {"Zeros", QByteArray(part, '\0')},
    {"FewZeros", QByteArray(part - 1, '\0')},
    {"Long", words(3 * part)},
    {"NoiseInWords", words(part / 2) + TestData::noise(part / 2)},
};

struct PieceCompressorTest : testing::TestWithParam<DataRow>
{
    PieceCompressor compressor{6};
};

} // namespace

TEST_P(PieceCompressorTest, JoinsParts)
{
    const QByteArray &data = GetParam().data;
    QByteArray whole;
    QByteArray stream;
    for (const DataRow &other : dataRows) {
        whole += data + other.data;
        stream += compressor.compressPart(data, false) + compressor.compressPart(other.data, false);
    }
    whole += data;
    stream += compressor.compressPart(data, true);
    EXPECT_TRUE(inflated(stream, whole.size()) == whole);
}

INSTANTIATE_TEST_SUITE_P(Data, PieceCompressorTest, testing::ValuesIn(dataRows), RowName());

/// The bit at which the last block ends is different each time.
TEST(PiecesTest, JoinsPartsOfAllLengths)
{
    PieceCompressor compressor(6);
    const QByteArray data = words(300);
    QByteArray whole;
    QByteArray stream;
    for (qsizetype size = 1; size <= data.size(); ++size) {
        whole += data.left(size);
        stream += compressor.compressPart(data.left(size), size == data.size());
    }
    EXPECT_EQ(inflated(stream, whole.size()), whole);
}

TEST(PiecesTest, LeavesDataThatDoesNotShrink)
{
    PieceCompressor compressor(6);
    EXPECT_FALSE(compressor.compressWhole(TestData::noise(1000)));
    EXPECT_FALSE(compressor.compressWhole({}));
    const QByteArray data = words(1000);
    const auto stream = compressor.compressWhole(data);
    ASSERT_TRUE(stream);
    EXPECT_LT(stream->size(), data.size());
    EXPECT_EQ(inflated(*stream, data.size()), data);
}
