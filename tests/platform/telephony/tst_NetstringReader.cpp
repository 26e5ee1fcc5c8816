#include "NetstringReader.h"

#include "PrintQt.h"

#include <gtest/gtest.h>

TEST(NetstringReaderTest, ReadsPiecesOfAnySize)
{
    const QByteArray stream = "5:hello,0:,3:a,b,";
    NetstringReader whole;
    EXPECT_EQ(whole.add(stream).join('|'), "hello||a,b");
    NetstringReader byBytes;
    QByteArrayList found;
    for (const char byte : stream)
        found += byBytes.add(QByteArray(1, byte));
    EXPECT_EQ(found.join('|'), "hello||a,b");
    EXPECT_FALSE(byBytes.isBroken());
}

TEST(NetstringReaderTest, StopsAtWhatIsNoNetstring)
{
    for (const char *stream :
         {"x:1,", "3:abcd", ":", "-1:", "123456", "99999:", "65537:", " 1:a,", "GET / HTTP"}) {
        NetstringReader reader;
        EXPECT_EQ(reader.add(stream), QByteArrayList()) << stream;
        EXPECT_TRUE(reader.isBroken()) << stream;
        EXPECT_EQ(reader.add("1:a,"), QByteArrayList()) << stream;
    }
}

TEST(NetstringReaderTest, TakesTheLongest)
{
    NetstringReader reader;
    EXPECT_EQ(reader.add("65536:" + QByteArray(65536, 'x') + ',').value(0).size(), 65536);
}
