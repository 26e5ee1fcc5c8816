#include "FtpReplyReader.h"
#include "PrintQt.h"
#include "TransferError.h"
#include "TransferFailure.h"

#include <QByteArrayList>
#include <gtest/gtest.h>

namespace {

/// The replies that \a bytes hold, handed over \a step bytes at a time.
QByteArrayList repliesIn(const QByteArray &bytes, qsizetype step)
{
    QByteArrayList replies;
    FtpReplyReader reader;
    for (qsizetype at = 0; at < bytes.size(); at += step) {
        reader.add(QByteArrayView(bytes).sliced(at, qMin(step, bytes.size() - at)));
        while (const auto reply = reader.take())
            replies.append(QByteArray::number(reply->code) + '|' + reply->text);
    }
    return replies;
}

int codeFor(const QByteArray &bytes)
{
    FtpReplyReader reader;
    reader.add(bytes);
    try {
        while (reader.take())
            continue;
    } catch (const TransferFailure &failure) {
        return failure.code;
    }
    return 0;
}

} // namespace

TEST(FtpReplyReader, FindsReplies)
{
    const struct
    {
        QByteArray bytes;
        QByteArrayList replies;
    } cases[] = {
        {"220 Hello\r\n", {"220|220 Hello"}},
        {"220\r\n", {"220|220"}},
        {"226 a\n150 b\r\n", {"226|226 a", "150|150 b"}},
        {"220-one\r\n two\r\n220-three\r\n230 no\r\n220 four\r\n",
         {"220|220-one\r\n two\r\n220-three\r\n230 no\r\n220 four"}},
        {"\r\n\r\n230 after blank lines\r\n", {"230|230 after blank lines"}},
        {"230-\r\n\r\n230 end\r\n", {"230|230-\r\n\r\n230 end"}},
        {"SSH-2.0-x\r\n220 y\r\n", {"0|SSH-2.0-x", "220|220 y"}},
        {"2201 four digits\r\n", {"0|2201 four digits"}},
        {"999 too high\r\n099 too low\r\n", {"0|999 too high", "0|099 too low"}},
        {QByteArray("550 a\0b\x1b[2J\xff %s %1\r\n", 20), {QByteArray("550|550 a\0b\x1b[2J\xff %s %1", 22)}},
        {"220 without its line end", {}},
        {"", {}},
    };
    for (const auto &row : cases) {
        for (const qsizetype step : {1, 2, 7, 1000})
            EXPECT_EQ(repliesIn(row.bytes, step), row.replies) << row.bytes.constData() << " by " << step;
    }
}

TEST(FtpReplyReader, KnowsWhatIsStillToBeTaken)
{
    FtpReplyReader reader;
    EXPECT_TRUE(reader.isEmpty());
    reader.add("220 a\r\n220 b\r\n");
    ASSERT_TRUE(reader.take());
    EXPECT_FALSE(reader.isEmpty());
    reader.clear();
    EXPECT_TRUE(reader.isEmpty());
    EXPECT_FALSE(reader.take());
    reader.add("220-begun\r\n");
    EXPECT_FALSE(reader.take());
    reader.clear();
    reader.add("230 other\r\n");
    EXPECT_EQ(reader.take()->text, "230 other");
}

TEST(FtpReplyReader, ALongReplyIsReadAndAFloodRefused)
{
    const QByteArray lines = QByteArray("220-x\r\n").repeated(9000) + "220 end\r\n";
    EXPECT_EQ(repliesIn(lines, 1000).size(), 1);
    EXPECT_EQ(codeFor(QByteArray("220-x\r\n").repeated(10000)), TransferError::InvalidResponse);
    EXPECT_EQ(codeFor("220 " + QByteArray(1 << 20, 'x')), TransferError::InvalidResponse);
    EXPECT_EQ(codeFor("220 " + QByteArray(1 << 20, 'x') + "\r\n"), TransferError::InvalidResponse);
}
