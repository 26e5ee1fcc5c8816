#include "CsvText.h"
#include "PrintQt.h"
#include "RuntimeError.h"

#include <gtest/gtest.h>

namespace {

/// Rows joined by "/", fields by "|".
QString rowsOf(const char *text)
{
    QStringList rows;
    for (const QStringList &row : CsvText::read(QString::fromUtf8(text)))
        rows.append(row.join(u'|'));
    return rows.join(u'/');
}

} // namespace

TEST(CsvText, ReadsFieldsWithAndWithoutQuotes)
{
    EXPECT_EQ(rowsOf("a,b\nc,\"d\"\n"), QStringLiteral("a|b/c|d"));
    EXPECT_EQ(rowsOf("\"a,b\",\"c\"\"d\",\"e\nf\""), QStringLiteral("a,b|c\"d|e\nf"));
    EXPECT_EQ(rowsOf("a,,\n,b,"), QStringLiteral("a||/|b|"));
    EXPECT_EQ(rowsOf("\"\",\"\"\"\",\"\"\"\"\"\""), QStringLiteral("|\"|\"\""));
    EXPECT_EQ(rowsOf("a\n\nb"), QStringLiteral("a/b"));
    EXPECT_EQ(rowsOf(""), QString());
}

TEST(CsvText, FindsTheSeparatorInTheFirstRow)
{
    EXPECT_EQ(rowsOf("a;b\nc,d;e"), QStringLiteral("a|b/c,d|e"));
    EXPECT_EQ(rowsOf("a\tb\tc,d"), QStringLiteral("a|b|c,d"));
    EXPECT_EQ(rowsOf("\"a;b;c;d\",e"), QStringLiteral("a;b;c;d|e"));
}

TEST(CsvText, ReadsDamagedQuotes)
{
    EXPECT_EQ(rowsOf("a\"b,c\"\nd"), QStringLiteral("a\"b|c\"/d"));
    EXPECT_EQ(rowsOf("\"a\"b,c"), QStringLiteral("ab|c"));
}

TEST(CsvText, AQuoteWithoutAnEndIsNoText)
{
    const auto complaintOf = [](const char *text) {
        try {
            rowsOf(text);
        } catch (const RuntimeError &error) {
            return QStringLiteral("%1 %2").arg(error.number()).arg(error.description());
        }
        return QString();
    };
    EXPECT_EQ(complaintOf("\"a,b\nc"), QStringLiteral("321 The quote that begins in line 1 has no end"));
    EXPECT_EQ(complaintOf("a,\"b\nc\"\nd,\"\"\"\ne\n"),
              QStringLiteral("321 The quote that begins in line 3 has no end"));
}

TEST(CsvText, WritesWhatItReads)
{
    const QStringList row = {QStringLiteral("a"),          QString(),
                             QStringLiteral("\"q\""),      QStringLiteral("x,y;z"),
                             QStringLiteral("two\nlines"), QStringLiteral("'")};
    EXPECT_EQ(CsvText::written(row),
              QStringLiteral("\"a\",\"\",\"\"\"q\"\"\",\"x,y;z\",\"two\nlines\",\"'\"\r\n"));
    EXPECT_EQ(CsvText::read(CsvText::written(row).replace(QLatin1String("\r\n"), QLatin1String("\n"))),
              QList<QStringList>({row}));
}
