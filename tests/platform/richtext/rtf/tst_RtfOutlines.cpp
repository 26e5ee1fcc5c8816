#include "ReadDocument.h"
#include "RichTextProperties.h"
#include "WrittenBody.h"

#include <QTextDocumentFragment>
#include <QTextList>
#include <gtest/gtest.h>

namespace {

const QByteArray tables =
    "{\\*\\listtable{\\list"
    "{\\listlevel\\levelnfc1\\levelstartat3{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}}"
    "{\\listlevel\\levelnfc0\\levelstartat1{\\leveltext\\'05(\\'00.\\'01);}{\\levelnumbers\\'02\\'04;}}"
    "{\\listlevel\\levelnfc4\\levelstartat1{\\leveltext\\'05\\'00-\\'01-\\'02;}{\\levelnumbers\\'01\\'03\\'"
    "05;}}"
    "\\listid7}}{\\*\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls1}}";

/// An outline of three levels, with each item's level as its text.
struct RtfOutlines : testing::Test
{
    explicit RtfOutlines(const QByteArray &items = "001201")
        : read(framed(tables + paragraphs(items)))
    {}
    static QByteArray paragraphs(const QByteArray &items)
    {
        QByteArray out;
        for (const char level : items)
            out.append("\\pard\\ls1\\ilvl").append(level).append(' ').append(level).append("\\par ");
        return out;
    }
    static std::string marks(const QTextDocument &document)
    {
        QStringList marks;
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            if (const QTextList *list = block.textList())
                marks << list->format().numberPrefix() + u'#' + list->format().numberSuffix();
        }
        return marks.join(u' ').toStdString();
    }
    static int listsIn(const QByteArray &written) { return int(written.count("{\\listoverride\\")); }

    ReadDocument read;
};

} // namespace

TEST_F(RtfOutlines, HaveTheNumbersOfTheLevelsAbove)
{
    EXPECT_EQ(marks(read.document()), "#. #. (IV.#) IV-1-# #. (V.#)");
}

TEST_F(RtfOutlines, BeginWhereLevelsAboveWouldBegin)
{
    ReadDocument deep(framed(tables + paragraphs("2")));
    EXPECT_EQ(marks(deep.document()), "III-1-#");
}

TEST_F(RtfOutlines, ComeBackAsOneList)
{
    const QByteArray written = RtfWriter::write(read.document());
    EXPECT_EQ(listsIn(written), 1) << written.constData();
    EXPECT_TRUE(written.contains("{\\leveltext\\'05(\\'00.\\'01);}{\\levelnumbers\\'02\\'04;}"))
        << written.constData();
    EXPECT_TRUE(written.contains("{\\leveltext\\'05\\'00-\\'01-\\'02;}{\\levelnumbers\\'01\\'03\\'05;}"));
    EXPECT_TRUE(written.contains("{\\listtext IV-1-a\\tab}"));
    ReadDocument again(written);
    EXPECT_EQ(marks(again.document()), marks(read.document()));
    EXPECT_EQ(RtfWriter::write(again.document()).toStdString(), written.toStdString());
}

/// The indents of a level are those of its first item.
TEST_F(RtfOutlines, AreOneListWhateverTheirIndents)
{
    ReadDocument indented(framed(tables +
                                 "\\ls1\\ilvl0\\li100 a\\par\\ilvl1\\li200 b\\par\\ilvl0\\li300 c\\par"
                                 "\\ilvl1\\li400 d\\par"));
    EXPECT_EQ(listsIn(RtfWriter::write(indented.document())), 1);
}

TEST_F(RtfOutlines, CountAnewWherePasted)
{
    QTextCursor cursor(&read.document());
    cursor.select(QTextCursor::Document);
    const QTextDocumentFragment copy = cursor.selection();
    cursor.movePosition(QTextCursor::End);
    cursor.insertBlock(QTextBlockFormat());
    cursor.insertFragment(copy);
    const QByteArray written = RtfWriter::write(read.document());
    EXPECT_EQ(listsIn(written), 2) << written.constData();
    EXPECT_EQ(written.count("{\\listtext IV.\\tab}"), 2);
}

TEST_F(RtfOutlines, AreTwoListsWhereALevelWasChanged)
{
    QTextList *deeper = read.paragraph(5).textList();
    QTextListFormat format = deeper->format();
    format.setStyle(QTextListFormat::ListUpperAlpha);
    deeper->setFormat(format);
    EXPECT_EQ(listsIn(RtfWriter::write(read.document())), 2);
}

TEST(RtfListsOfOneNumberEach, AreListsOfTheirOwn)
{
    const QByteArray simple =
        "{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}}"
        "{\\listlevel\\levelnfc0{\\leveltext\\'02\\'01.;}{\\levelnumbers\\'01;}}\\listid7}}"
        "{\\*\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls1}}";
    ReadDocument read(framed(simple + "\\ls1 a\\par\\ilvl1 b\\par"));
    EXPECT_FALSE(read.paragraph(1).textList()->format().hasProperty(RichTextProperty::ListNumber));
    EXPECT_TRUE(RtfWriter::write(read.document()).contains("\\ls2\\ilvl1"));
}
