#include "DosRecord.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

constexpr quint32 hiddenAndArchive = 34;

QByteArray record(int version, quint32 attributes)
{
    QByteArray bytes = DosRecord::with(attributes, {}, 0x0102030405060708);
    bytes[2] = char(version);
    return bytes;
}

} // namespace

TEST(DosRecordTest, ANewOneIsAsFileServersWriteIt)
{
    EXPECT_EQ(DosRecord::with(hiddenAndArchive, {}, 0x0102030405060708).toHex(),
              QByteArray("000005000500000011000000220000000807060504030201"));
}

TEST(DosRecordTest, Versions3To5AreRead)
{
    for (const int version : {3, 4, 5})
        EXPECT_EQ(DosRecord::attributesIn(record(version, hiddenAndArchive)), hiddenAndArchive) << version;
    EXPECT_EQ(DosRecord::attributesIn(record(2, hiddenAndArchive)), std::nullopt);
    EXPECT_EQ(DosRecord::attributesIn(record(6, hiddenAndArchive)), std::nullopt);
}

TEST(DosRecordTest, TheTextOfOlderServersIsRead)
{
    EXPECT_EQ(DosRecord::attributesIn("0x22"), hiddenAndArchive);
    EXPECT_EQ(DosRecord::attributesIn(QByteArray("0x22\0", 5)), hiddenAndArchive);
    EXPECT_EQ(DosRecord::attributesIn("0xzz"), std::nullopt);
    EXPECT_EQ(DosRecord::attributesIn("34"), std::nullopt);
}

TEST(DosRecordTest, ADamagedOneHasNone)
{
    const QByteArray whole = record(5, hiddenAndArchive);
    for (qsizetype size = 0; size < 16; ++size)
        EXPECT_EQ(DosRecord::attributesIn(whole.left(size)), std::nullopt) << size;
    EXPECT_EQ(DosRecord::attributesIn('\1' + whole.mid(1)), std::nullopt);
}

TEST(DosRecordTest, TheOtherBytesStay)
{
    const QByteArray old = record(4, hiddenAndArchive).replace(8, 1, "\x10") + "more";
    const QByteArray changed = DosRecord::with(4, old, 99);
    EXPECT_EQ(DosRecord::attributesIn(changed), 4U);
    EXPECT_EQ(changed.mid(16), old.mid(16));
    EXPECT_EQ(changed.left(8), old.left(8));
    EXPECT_EQ(changed[8], 0x11); // it has attributes now
}

TEST(DosRecordTest, WhatIsNotUnderstoodIsReplaced)
{
    EXPECT_EQ(DosRecord::with(4, "0x22", 7), DosRecord::with(4, {}, 7));
    EXPECT_EQ(DosRecord::with(4, record(5, 2).left(20), 7), DosRecord::with(4, {}, 7));
}
