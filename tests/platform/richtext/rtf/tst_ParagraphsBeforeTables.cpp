#include "ReadDocument.h"
#include "WrittenBody.h"

#include <QRegularExpression>
#include <QTextFrame>
#include <gtest/gtest.h>

namespace {

const std::string table = "\\trowd\\cellx5000\n\\pard\\intbl a\\cell\n\\row\n";

/// What is written without fonts and sizes.
std::string structure(const QTextDocument &document)
{
    static const QRegularExpression looks(QStringLiteral("[{}]|\\\\fs?\\d+"));
    return QString::fromLatin1(bodyOf(document)).remove(looks).toStdString();
}

struct ParagraphsBeforeTables : testing::Test
{
    ReadDocument read{framed("\\trowd\\cellx5000\\intbl a\\cell\\row\\pard b")};
    QTextCursor cursor{&read.document()};
};

} // namespace

TEST_F(ParagraphsBeforeTables, AreNotWrittenWhereTheFileHasNone)
{
    EXPECT_EQ(structure(read.document()), table + "\\pard b\\par\n");
}

TEST_F(ParagraphsBeforeTables, AreWrittenWithWhatIsWrittenIntoThem)
{
    cursor.insertText(QStringLiteral("x"));
    EXPECT_EQ(structure(read.document()), " x\\par\n" + table + "\\pard b\\par\n");
}

TEST(ParagraphsBeforeTablesOf, InnerTablesTakeTextInTheirFontToo)
{
    ReadDocument read(
        framed("{\\f0\\b c\\par}\\trowd\\cellx5000\\intbl\\itap2{\\f1 a\\nestcell}"
               "{\\*\\nesttableprops\\trowd\\cellx3000\\nestrow}\\pard\\intbl\\cell\\row\\pard b"));
    QTextCursor cursor(read.paragraph(1));
    cursor.insertText(QStringLiteral("x"));
    EXPECT_EQ(read.formatOf(QStringLiteral("x")).fontFamilies(),
              read.formatOf(QStringLiteral("a")).fontFamilies());
    EXPECT_NE(read.formatOf(QStringLiteral("x")).fontFamilies(),
              read.formatOf(QStringLiteral("c")).fontFamilies());
}

TEST_F(ParagraphsBeforeTables, TakeTextInTheFontOfTheTable)
{
    cursor.insertText(QStringLiteral("x"));
    EXPECT_EQ(read.formatOf(QStringLiteral("x")), read.formatOf(QStringLiteral("a")));
}

TEST_F(ParagraphsBeforeTables, AreWrittenAllButTheLastAfterReturn)
{
    cursor.insertBlock();
    EXPECT_EQ(structure(read.document()), "\\par\n" + table + "\\pard b\\par\n");
}

TEST_F(ParagraphsBeforeTables, AreWrittenOnceTheTableIsGone)
{
    cursor.movePosition(QTextCursor::NextBlock);
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.setPosition(0, QTextCursor::MoveAnchor);
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    EXPECT_EQ(structure(read.document()).find("trowd"), std::string::npos);
    EXPECT_EQ(read.text(), "b");
}

TEST(ParagraphsBeforeTablesOf, TheFileAreWritten)
{
    ReadDocument read(framed("\\par\\trowd\\cellx5000\\intbl a\\cell\\row\\pard b"));
    EXPECT_EQ(structure(read.document()), "\\par\n" + table + "\\pard b\\par\n");
}

TEST(ParagraphsBeforeTablesOf, CellsAreNotWrittenEither)
{
    ReadDocument read(
        framed("\\trowd\\cellx5000\\intbl\\itap2 a\\nestcell"
               "{\\*\\nesttableprops\\trowd\\cellx3000\\nestrow}\\pard\\intbl\\cell\\row\\pard b"));
    EXPECT_EQ(structure(read.document()).find("\\trowd\\cellx5000\n\\pard\\intbl\\itap2 a\\nestcell"), 0);
}

/// Of two tables the file cannot say otherwise that they are two.
TEST(ParagraphsBeforeTablesOf, TablesThatFollowATableAreWritten)
{
    ReadDocument read(framed(
        "\\trowd\\cellx900\\intbl a\\cell\\row\\pard{\\shp{\\*\\shpinst{\\shptxt\\trowd\\cellx900\\intbl b"
        "\\cell\\row}}}\\pard e"));
    EXPECT_EQ(read.document().rootFrame()->childFrames().size(), 2);
    EXPECT_NE(structure(read.document()).find("\\row\n\\pard\\par\n\\trowd"), std::string::npos)
        << structure(read.document());
}

/// Rows that share no edges become two tables when they have too many.
TEST(ParagraphsBeforeTablesOf, RowsInBetweenAreNotWritten)
{
    const auto row = [](int first) {
        constexpr int count = 60;
        QByteArray edges = "\\trowd";
        for (int i = 0; i < count; ++i)
            edges += "\\cellx" + QByteArray::number(first + i * 100);
        return edges + "\\pard\\intbl " + QByteArray("\\cell").repeated(count) + "\\row";
    };
    QByteArray rows;
    for (int i = 0; i < 10; ++i)
        rows += row(100 + i * 10);
    ReadDocument read(framed(rows + "\\pard e"));
    EXPECT_EQ(read.document().rootFrame()->childFrames().size(), 2);
    EXPECT_EQ(bodyOf(read.document()).count("\\par\n"), 0);
    EXPECT_EQ(bodyOf(read.document()).count("\\par}"), 1);
}
