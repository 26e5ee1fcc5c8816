#include "AtReader.h"

#include "AtResult.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

/// The items, events in brackets.
QByteArray items(AtReader &reader, const QByteArray &bytes)
{
    QByteArrayList texts;
    for (const AtReader::Item &item : reader.add(bytes))
        texts.append(item.isEvent ? '<' + item.text + '>' : item.text);
    return texts.join('|');
}

} // namespace

TEST(AtReaderTest, CutsLinesWhateverTheirEnd)
{
    AtReader reader;
    EXPECT_EQ(items(reader, "\r\nOK\r\n\r\n NO CARRIER \nBUS"), "OK|NO CARRIER");
    EXPECT_EQ(items(reader, "Y\r"), "BUSY");
}

TEST(AtReaderTest, FindsEventsInLines)
{
    AtReader reader;
    EXPECT_EQ(items(reader, "O\x10"), "");
    EXPECT_EQ(items(reader, "bK\r\x10\x10\x10h"), "<b>|OK|<\x10>|<h>");
}

TEST(AtReaderTest, KeepsTheBeginningOfAnEndlessLine)
{
    AtReader reader;
    EXPECT_EQ(items(reader, QByteArray(1 << 20, 'x')), "");
    EXPECT_EQ(items(reader, "\r"), QByteArray(256, 'x'));
    EXPECT_EQ(items(reader, "OK\r"), "OK");
}

TEST(AtResultTest, KnowsTheResults)
{
    EXPECT_EQ(atResult("OK"), AtResult::Ok);
    EXPECT_EQ(atResult("CONNECT 9600"), AtResult::Connected);
    EXPECT_EQ(atResult("VCON"), AtResult::Connected);
    EXPECT_EQ(atResult("+CME ERROR: 10"), AtResult::Error);
    EXPECT_EQ(atResult("DELAYED 00:10"), AtResult::Busy);
    for (const char *line : {"OKAY", "RING", "ATDT1", "NO", "", "BUSYBODY", "xOK"})
        EXPECT_EQ(atResult(line), AtResult::None) << line;
}
