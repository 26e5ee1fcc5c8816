#include "Files.h"
#include "PrintQt.h"
#include "RichTextFile.h"
#include "RowName.h"
#include "ScratchHome.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <gtest/gtest.h>

namespace {

struct MakeHelp : testing::Test
{
    MakeHelp() { QDir(home.path()).mkdir(QStringLiteral("pictures")); }

    void addPicture(const QString &name, int width)
    {
        QImage image(width, 30, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "PNG");
        Files::write(home.file(QStringLiteral("pictures/") + name), bytes);
        picture = bytes;
    }
    void make(const QByteArray &text)
    {
        Files::write(source, text);
        QProcess process;
        process.start(QStringLiteral(QUILL_MAKE_HELP), {source, out});
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
        code = process.exitCode();
        complaint = process.readAllStandardError();
    }
    /// What was made.
    void load()
    {
        ASSERT_EQ(complaint, QByteArray());
        ASSERT_EQ(code, 0);
        RichTextFile::load(out, document);
    }
    QTextBlock block(int number) const { return document.findBlockByNumber(number); }
    /// The format of the character \a text begins with.
    QTextCharFormat format(const char *text) const
    {
        QTextCursor found = document.find(QString::fromUtf8(text), 0, QTextDocument::FindCaseSensitively);
        EXPECT_FALSE(found.isNull()) << text;
        found.setPosition(found.selectionStart() + 1);
        return found.charFormat();
    }
    QString mark(int number) const
    {
        const QTextList *list = block(number).textList();
        return list ? list->itemText(block(number)) : QString();
    }

    ScratchHome home;
    QString source = home.file(QStringLiteral("topic.md"));
    QString out = home.file(QStringLiteral("topic.rtf"));
    QTextDocument document;
    QByteArray picture;
    QByteArray complaint;
    int code = -1;
};

struct RefusedRow
{
    const char *name;
    const char *text;
    int line;
};

void PrintTo(const RefusedRow &row, std::ostream *stream)
{
    *stream << row.name;
}

struct MakeHelpRefuses : MakeHelp, testing::WithParamInterface<RefusedRow>
{};

} // namespace

TEST_F(MakeHelp, MakesTitleHeadingsAndParagraphs)
{
    make("# The title\n<!-- windows: frmFTP frmMain -->\n\nOne line\nand the next.\n\n## A "
         "heading\n\nCaf\xC3\xA9 < x > & 3 < 4.\n");
    load();
    EXPECT_EQ(document.toPlainText(),
              QString::fromUtf8("The title\nOne line and the next.\nA heading\nCaf\xC3\xA9 < x > & 3 < 4."));
    EXPECT_EQ(format("The title").fontWeight(), QFont::Bold);
    EXPECT_EQ(format("A heading").fontWeight(), QFont::Bold);
    EXPECT_GT(format("The title").fontPointSize(), format("A heading").fontPointSize());
    EXPECT_GT(format("A heading").fontPointSize(), format("One line").fontPointSize());
    EXPECT_NE(format("One line").fontWeight(), QFont::Bold);
}

TEST_F(MakeHelp, TextHasNoColorOfItsOwn)
{
    make("# T\n<!-- windows: frmMain -->\n\nPlain **bold** `code` and [a link](https://www.example.org/).\n");
    load();
    EXPECT_FALSE(Files::read(out).contains("\\colortbl"));
    EXPECT_EQ(format("Plain").foreground().style(), Qt::NoBrush);
}

TEST_F(MakeHelp, BoldCodeAndLinksHaveTheirLook)
{
    make("# T\n<!-- windows: frmMain -->\n\nPress **File > Open...** or `Ctrl+*`, see [the "
         "page](https://www.example.org/a?b=c).\n");
    load();
    EXPECT_EQ(block(1).text(), QStringLiteral("Press File > Open... or Ctrl+*, see the page."));
    EXPECT_EQ(format("File > Open").fontWeight(), QFont::Bold);
    EXPECT_NE(format("Press").fontWeight(), QFont::Bold);
    EXPECT_EQ(format("Ctrl").fontFamilies().toStringList(), QStringList(QStringLiteral("Liberation Mono")));
    EXPECT_EQ(format("Press").fontFamilies().toStringList(), QStringList(QStringLiteral("Liberation Sans")));
    EXPECT_EQ(format("the page").anchorHref(), QStringLiteral("https://www.example.org/a?b=c"));
    EXPECT_FALSE(format("Press").isAnchor());
}

TEST_F(MakeHelp, StepsAreNumberedAndGoOnBehindAPicture)
{
    addPicture(QStringLiteral("frmMain.png"), 40);
    make("# T\n\n1. one\n2. two,\n   over two lines\n\n![The frame](pictures/frmMain.png)\n\n3. three\n\n## "
         "H\n\n1. again\n");
    load();
    EXPECT_EQ(block(2).text(), QStringLiteral("two, over two lines"));
    EXPECT_EQ((QStringList{mark(1), mark(2), mark(4), mark(6)}),
              QStringList(
                  {QStringLiteral("1."), QStringLiteral("2."), QStringLiteral("3."), QStringLiteral("1.")}));
}

TEST_F(MakeHelp, BulletsAreOneList)
{
    make("# T\n\n- one\n- two\n\nText\n\n- three\n");
    load();
    EXPECT_EQ(block(1).textList()->format().style(), QTextListFormat::ListDisc);
    EXPECT_EQ(block(1).textList(), block(2).textList());
    EXPECT_EQ(block(3).textList(), nullptr);
    EXPECT_NE(block(4).textList(), nullptr);
}

TEST_F(MakeHelp, PicturesAreInTheDocument)
{
    addPicture(QStringLiteral("frmMain-menu.png"), 540);
    make("# T\n\n![The frame](pictures/frmMain-menu.png)\n");
    load();
    EXPECT_TRUE(Files::read(out).contains("\\pngblip\\picw540\\pich30\\picwgoal8100\\pichgoal450 " +
                                          picture.toHex()));
}

TEST_F(MakeHelp, MakesTheSameOfTheSame)
{
    const QByteArray text = "# T\n\n1. one\n\n- two\n\n`three`\n";
    make(text);
    const QByteArray first = Files::read(out);
    make(text);
    EXPECT_EQ(Files::read(out), first);
}

TEST_P(MakeHelpRefuses, WhatIsOutsideOfTheConvention)
{
    addPicture(QStringLiteral("wide.png"), 541);
    Files::write(home.file(QStringLiteral("pictures/text.png")), "no picture");
    Files::write(out, "old");
    make(GetParam().text);
    EXPECT_EQ(code, 1);
    const QByteArray where = source.toUtf8() + ':' + QByteArray::number(GetParam().line) + ": ";
    EXPECT_TRUE(complaint.startsWith(where)) << complaint.constData();
    EXPECT_GT(complaint.size(), where.size() + 5);
    EXPECT_EQ(Files::read(out), QByteArray("old"));
}

constexpr RefusedRow refusedRows[] = {
    {"NoTitle", "Text\n", 1},
    {"AnEmptyFile", "", 1},
    {"AnEmptyFirstLine", "\n# T\n", 1},
    {"TwoTitles", "# T\n\n# U\n", 3},
    {"ASmallHeading", "# T\n\n### H\n", 3},
    {"AHeadingWithoutABlank", "# T\n\n##H\n", 3},
    {"WindowsInALaterLine", "# T\n\n<!-- windows: frmMain -->\n", 3},
    {"AnotherComment", "# T\n<!-- frmMain -->\n", 2},
    {"Html", "# T\n\ntext <b>x</b>\n", 3},
    {"HtmlAtTheStart", "# T\n\n<p>\n", 3},
    {"ATable", "# T\n\n| a | b |\n", 3},
    {"AQuote", "# T\n\n> a\n", 3},
    {"AFence", "# T\n\n```\n", 3},
    {"ARule", "# T\n\n---\n", 3},
    {"AStar", "# T\n\n* a\n", 3},
    {"ANestedBullet", "# T\n\n- a\n  - b\n", 4},
    {"ANestedStep", "# T\n\n1. a\n   1. b\n", 4},
    {"AnIndentedParagraph", "# T\n\n    code\n", 3},
    {"ATab", "# T\n\na\tb\n", 3},
    {"ACarriageReturn", "# T\r\n\nText\n", 1},
    {"AStepThatIsMissing", "# T\n\n1. a\n3. b\n", 4},
    {"ItalicText", "# T\n\nthis *is* it\n", 3},
    {"BoldWithoutItsEnd", "# T\n<!-- windows: frmMain -->\n\na **b\n", 4},
    {"BoldWithATrailingBlank", "# T\n<!-- windows: frmMain -->\n\na **b ** c\n", 4},
    {"EmptyBold", "# T\n<!-- windows: frmMain -->\n\na **** c\n", 4},
    {"BoldWithoutAWindow", "# T\n\na **b** c\n", 3},
    {"CodeWithoutItsEnd", "# T\n\na `b\n", 3},
    {"ALinkToTheDisk", "# T\n\n[a](file:///etc)\n", 3},
    {"ALinkWithoutItsTarget", "# T\n\nsee [a] there\n", 3},
    {"APictureInALine", "# T\n\ntext ![a](pictures/wide.png)\n", 3},
    {"APictureFromElsewhere", "# T\n\n![a](../wide.png)\n", 3},
    {"APictureWithoutDescription", "# T\n\n![](pictures/wide.png)\n", 3},
    {"AWidePicture", "# T\n\n![a](pictures/wide.png)\n", 3},
    {"AMissingPicture", "# T\n\n![a](pictures/none.png)\n", 3},
    {"ADamagedPicture", "# T\n\n![a](pictures/text.png)\n", 3},
};

INSTANTIATE_TEST_SUITE_P(Rows, MakeHelpRefuses, testing::ValuesIn(refusedRows), RowName());

TEST_F(MakeHelp, ComplainsOfAMissingSource)
{
    QProcess process;
    process.start(QStringLiteral(QUILL_MAKE_HELP), {source, out});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError(), source.toUtf8() + ": File not found\n");
}

TEST_F(MakeHelp, PrintsItsUsage)
{
    QProcess process;
    process.start(QStringLiteral(QUILL_MAKE_HELP), QStringList{source});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 2);
    EXPECT_EQ(process.readAllStandardError(), QByteArray("make-help SOURCE OUT\n"));
}
