#include "BadArchive.h"
#include "EntryReader.h"
#include "PrintQt.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

/// So many bytes of a pattern.
class RepeatedData : public PackedData
{
public:
    RepeatedData(const QByteArray &beginning, const QByteArray &pattern, qint64 size)
        : m_beginning(beginning)
        , m_pattern(pattern)
        , m_size(size)
    {}
    qsizetype read(char *to, qsizetype size) override
    {
        const qsizetype got = qMin<qint64>(size, m_size - m_at);
        for (qsizetype i = 0; i < got; ++i, ++m_at)
            to[i] = m_at < m_beginning.size() ? m_beginning[m_at]
                                              : m_pattern[(m_at - m_beginning.size()) % m_pattern.size()];
        return got;
    }

private:
    QByteArray m_beginning;
    QByteArray m_pattern;
    qint64 m_size;
    qint64 m_at = 0;
};

struct EntryReaderTest : testing::Test
{
    static constexpr qint64 size = 10 << 20; // too large to be unpacked at once
    struct Ended
    {};
    EntryReader reader;
    ArchiveEntry entry;
    int calls = 0;
    std::function<void()> count = [this] { ++calls; };

    EntryReaderTest()
    {
        entry.method = ArchiveEntry::Deflated;
        entry.packedSize = size;
        entry.size = 1;
    }
};

} // namespace

TEST_F(EntryReaderTest, CallsWhileBlocksAreEmpty)
{
    RepeatedData data({}, QByteArray("\0\0\0\xff\xff", 5), size);
    reader.start(data, entry, false, count);
    EXPECT_THROW(reader.next(), BadArchive); // the data ends without a last block
    EXPECT_GT(calls, 30);
}

TEST_F(EntryReaderTest, CallsWhileThereIsDataBehindTheEnd)
{
    RepeatedData data(QByteArray("\1\1\0\xfe\xffx", 6), "y", size);
    entry.crc = libdeflate_crc32(0, "x", 1);
    reader.start(data, entry, false, count);
    EXPECT_EQ(reader.next(), QByteArrayView("x"));
    EXPECT_GT(calls, 30);
}

TEST_F(EntryReaderTest, TheCallMayEndIt)
{
    RepeatedData data({}, QByteArray("\0\0\0\xff\xff", 5), size);
    const std::function<void()> end = [] { throw Ended(); };
    reader.start(data, entry, false, end);
    EXPECT_THROW(reader.next(), Ended);
}
