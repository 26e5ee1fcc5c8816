#include "DialogDriver.h"
#include "FindWords.h"
#include "LiteralLoop.h"
#include "PrintQt.h"
#include "RichTextBox.h"
#include "ScratchHome.h"
#include "clsFindandReplace.h"

#include <QRandomGenerator>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextTable>
#include <gtest/gtest.h>

// Replacing in rich text: formats, undo, tables.

namespace {

struct ReplaceTest : testing::Test
{
    ScratchHome home;
    RichTextBox box;
    clsFindandReplace find;
    DialogDriver dialogs;

    ReplaceTest()
    {
        QObject::connect(&find, &clsFindandReplace::FoundNext, &box,
                         [](bool, int, const QString &, bool &cancel) { cancel = true; }); // no box
    }
    void load(const char *rtf)
    {
        box.setTextRTF(rtf);
        box.setSelStart(0);
    }
    void select(int start, int length)
    {
        box.setSelStart(start);
        box.setSelLength(length);
    }
    void ask(int flags, const QString &text, const QString &by)
    {
        ASSERT_TRUE(find.ShowReplace(box));
        find.Messages_WMArrival({flags, text, by});
    }
    void replaceAll(const char *text, const char *by, int flags = down)
    {
        ask(flags | FindFlag::ReplaceAll, latin(text), latin(by));
    }
    /// What is bold.
    QString bold()
    {
        QString letters;
        for (int i = 0; i < box.Text().size(); ++i) {
            select(i, 1);
            if (box.SelBold() == true)
                letters += box.SelText();
        }
        return letters;
    }
};

/// The format of one character, found by walking its paragraph.
QTextCharFormat formatAt(const QTextDocument &document, int position)
{
    const QTextBlock block = document.findBlock(position);
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        if (part.fragment().contains(position))
            return part.fragment().charFormat();
    }
    return block.charFormat();
}

/// The loop that defines a replace-all, on a control.
void replaceLiterally(RichTextBox &box, const QString &wanted, const QString &replacement, int flags)
{
    while (box.SelLength() > 0) {
        QTextCursor cursor = box.textCursor();
        cursor.insertText(replacement, formatAt(*box.document(), cursor.selectionStart()));
        box.setTextCursor(cursor);
        LiteralLoop loop;
        loop.text = box.Text();
        loop.selStart = box.SelStart();
        loop.selEnd = loop.selStart;
        const auto hit = loop.search(wanted, flags);
        if (loop.text.isEmpty() || !hit.found)
            return;
        cursor.setPosition(hit.position > 0 ? hit.position - 1 : hit.end);
        cursor.setPosition(hit.end, QTextCursor::KeepAnchor);
        box.setTextCursor(cursor);
    }
}

/// One case: a text whose letters are bold here and there, and what to do with it.
struct ReplaceJob
{
    QString text;
    QList<int> bold;
    int start;
    int length;
    QString wanted;
    QString replacement;
    int flags;

    explicit ReplaceJob(QRandomGenerator &random)
    {
        const auto some = [&random](int least, int most) {
            QString result;
            for (int i = least + random.bounded(most - least + 1); i > 0; --i)
                result += QStringLiteral("abbA \n.")[random.bounded(7)];
            return result;
        };
        text = some(1, 30);
        for (int i = 0; i < text.size(); ++i) {
            if (random.bounded(2))
                bold.append(i);
        }
        start = random.bounded(int(text.size()));
        length = 1 + random.bounded(int(text.size()) - start);
        wanted = some(1, 2);
        replacement = some(0, 3);
        flags = random.bounded(8);
    }
    bool ends() const
    {
        LiteralLoop loop;
        loop.text = text;
        loop.selStart = start;
        loop.selEnd = start + length;
        return loop.replaceAll(wanted, replacement, flags, 200);
    }
    void fill(RichTextBox &box) const
    {
        box.setText(text);
        for (const int position : bold) {
            QTextCursor cursor(box.document());
            cursor.setPosition(position);
            cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
            QTextCharFormat format;
            format.setFontWeight(QFont::Bold);
            cursor.mergeCharFormat(format);
        }
        box.document()->clearUndoRedoStacks();
        box.setSelStart(start);
        box.setSelLength(length);
    }
};

} // namespace

TEST_F(ReplaceTest, LeavesWhatTheLoopLeavesAndIsOneUndoStep)
{
    QRandomGenerator random(1);
    RichTextBox literal;
    int compared = 0;
    for (int i = 0; i < 1500; ++i) {
        const ReplaceJob job(random);
        if (!job.ends())
            continue;
        SCOPED_TRACE(testing::PrintToString(QStringList{job.text, job.wanted, job.replacement}));
        job.fill(literal);
        replaceLiterally(literal, job.wanted, job.replacement, job.flags);
        job.fill(box);
        const QByteArray before = box.TextRTF();
        ask(job.flags | FindFlag::ReplaceAll, job.wanted, job.replacement);
        ASSERT_EQ(box.TextRTF(), literal.TextRTF());
        ASSERT_EQ(box.SelStart(), literal.SelStart());
        ASSERT_EQ(box.SelLength(), 0);
        box.undo();
        ASSERT_EQ(box.TextRTF(), before);
        ASSERT_FALSE(box.document()->isUndoAvailable());
        ++compared;
    }
    EXPECT_GT(compared, 500);
}

TEST_F(ReplaceTest, TakesTheFormatAtTheStartOfTheSelection)
{
    load("{\\rtf1 o{\\b n}e {\\b t}wo}");
    select(0, 3);
    ask(down | FindFlag::Replace, latin("two"), latin("xyz"));
    EXPECT_EQ(bold(), latin("t"));
    select(4, 3);
    ask(down | FindFlag::Replace, latin("two"), latin("2"));
    EXPECT_EQ(box.Text(), latin("xyz 2"));
    EXPECT_EQ(bold(), latin("2"));
}

TEST_F(ReplaceTest, EachHitKeepsTheFormatOfItsFirstCharacter)
{
    load("{\\rtf1 cat {\\b cat} c{\\b at} {\\b c}at}");
    select(0, 3);
    replaceAll("cat", "dog");
    EXPECT_EQ(box.Text(), latin("dog dog dog dog"));
    EXPECT_EQ(bold(), latin("dogdog"));
}

TEST_F(ReplaceTest, AReplacedLineEndHasTheFormatOfItsParagraph)
{
    load("{\\rtf1 {\\b one\\par}two}");
    select(3, 1);
    ask(down | FindFlag::Replace, latin("x"), latin("-"));
    EXPECT_EQ(box.Text(), latin("one-two"));
    EXPECT_EQ(bold(), latin("one-"));
}

TEST_F(ReplaceTest, ALinkStaysALink)
{
    load("{\\rtf1 see {\\field{\\*\\fldinst HYPERLINK \"http://a.example/\"}{\\fldrslt a page}} now}");
    select(6, 4);
    replaceAll("page", "place");
    EXPECT_EQ(box.Text(), latin("see a place now"));
    EXPECT_EQ(formatAt(*box.document(), 10).anchorHref(), latin("http://a.example/"));
    EXPECT_FALSE(formatAt(*box.document(), 11).isAnchor());
}

TEST_F(ReplaceTest, TextInPlaceOfAPictureIsText)
{
    box.setText(latin("ab"));
    QTextCursor cursor(box.document());
    cursor.setPosition(1);
    box.document()->addResource(QTextDocument::ImageResource, QUrl(latin("data:p")),
                                QImage(4, 4, QImage::Format_RGB32));
    cursor.insertImage(latin("data:p"));
    select(1, 1);
    ask(down | FindFlag::Replace, latin("x"), latin("-"));
    EXPECT_EQ(box.Text(), latin("a-b"));
    EXPECT_FALSE(formatAt(*box.document(), 1).isImageFormat());
}

TEST_F(ReplaceTest, OneChangeSignalIsEmittedForAll)
{
    box.setText(latin("one one one one"));
    select(0, 3);
    int changes = 0;
    QObject::connect(&box, &RichTextBox::Change, &box, [&changes] { ++changes; });
    replaceAll("one", "two");
    EXPECT_EQ(changes, 1);
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), latin("one one one one"));
    QTest::keyClick(&box, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), latin("two two two two"));
}

TEST_F(ReplaceTest, WhatStoodBeforeIsUndoneByItself)
{
    QTest::keyClicks(&box, latin("one-one"));
    select(0, 3);
    replaceAll("one", "two");
    box.undo();
    EXPECT_EQ(box.Text(), latin("one-one"));
    box.undo();
    EXPECT_EQ(box.Text(), QString());
}

TEST_F(ReplaceTest, LineEndsInTheReplacementBecomeParagraphs)
{
    box.setText(latin("a;b;c"));
    select(1, 1);
    ask(down | FindFlag::ReplaceAll, latin(";"), latin("\r\n"));
    EXPECT_EQ(box.Text(), latin("a\nb\nc"));
    EXPECT_EQ(box.document()->blockCount(), 3);
    select(1, 1);
    ask(down | FindFlag::ReplaceAll, latin("\n"), latin("|"));
    EXPECT_EQ(box.Text(), latin("a|b|c"));
}

TEST_F(ReplaceTest, AForcedLineEndIsFoundAsOne)
{
    load("{\\rtf1 a\\line b\\line c}");
    select(1, 1);
    replaceAll("\n", " ");
    EXPECT_EQ(box.Text(), latin("a b c"));
}

TEST_F(ReplaceTest, CellsAreReplacedInOneByOne)
{
    load("{\\rtf1 cat\\par\\trowd\\cellx1000\\cellx2000\\intbl cat\\cell the cat\\cell\\row\\pard cat}");
    const QString before = box.Text();
    select(0, 3);
    replaceAll("cat", "mouse");
    EXPECT_EQ(box.Text(), QString(before).replace(latin("cat"), latin("mouse")));
    EXPECT_EQ(box.document()->rootFrame()->childFrames().size(), 1);
}

TEST_F(ReplaceTest, ALineEndInTheFindTextDoesNotReachIntoAnotherCell)
{
    load("{\\rtf1 a\\par a\\par\\trowd\\cellx1000\\cellx2000\\intbl a\\cell a\\par a\\cell\\row\\pard a\\par "
         "a}");
    const auto *table = qobject_cast<QTextTable *>(box.document()->rootFrame()->childFrames().value(0));
    ASSERT_TRUE(table);
    select(0, 2); // "a" and its line end
    replaceAll("a\n", "b");
    EXPECT_EQ(table->rows(), 1);
    EXPECT_EQ(table->columns(), 2);
    EXPECT_EQ(table->cellAt(0, 0).lastPosition() - table->cellAt(0, 0).firstPosition(), 1);
    EXPECT_EQ(table->cellAt(0, 1).lastPosition() - table->cellAt(0, 1).firstPosition(), 2); // "ba"
    EXPECT_TRUE(box.Text().endsWith(latin("ba"))) << testing::PrintToString(box.Text());
}

TEST_F(ReplaceTest, CellsThatAreSelectedAreReplacedAndSoIsTheRest)
{
    load("{\\rtf1 \\trowd\\cellx1000\\cellx2000\\intbl x\\cell y\\cell\\row\\pard cat and cat}");
    const auto *table = qobject_cast<QTextTable *>(box.document()->rootFrame()->childFrames().value(0));
    ASSERT_TRUE(table);
    QTextCursor cells = table->cellAt(0, 0).firstCursorPosition();
    cells.setPosition(table->cellAt(0, 1).lastPosition(), QTextCursor::KeepAnchor);
    ASSERT_TRUE(cells.hasComplexSelection());
    box.setTextCursor(cells);
    const QByteArray before = box.TextRTF();
    replaceAll("cat", "dog");
    EXPECT_TRUE(box.Text().endsWith(latin("dog and dog")));
    EXPECT_EQ(table->columns(), 2);
    box.undo();
    EXPECT_EQ(box.TextRTF(), before);
}

TEST_F(ReplaceTest, TheViewStaysWhereALongTextIsStillToBeLaidOut)
{
    QWidget window;
    auto *shown = new RichTextBox(&window);
    shown->resize(400, 300);
    shown->setText(latin("some words and one hit of them\n").repeated(20000));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    shown->setSelStart(15);
    shown->setSelLength(3);
    ASSERT_TRUE(find.ShowReplace(*shown));
    constexpr int scrolled = 60;
    shown->verticalScrollBar()->setValue(scrolled);
    find.Messages_WMArrival({down | FindFlag::ReplaceAll, latin("one"), latin("another")});
    EXPECT_EQ(shown->Text().count(latin("another")), 20000);
    EXPECT_EQ(shown->SelStart(), shown->Text().lastIndexOf(latin("another")) + 7);
    EXPECT_EQ(shown->document()->lastBlock().layout()->lineCount(), 0) << "it was laid out at once";
    EXPECT_EQ(shown->verticalScrollBar()->value(), scrolled);
    QTest::keyClick(shown, Qt::Key_Right); // which scrolls to the caret
    EXPECT_GT(shown->verticalScrollBar()->value(), 1000);
}

TEST_F(ReplaceTest, TheViewScrollsToTheCaretInAnOrdinaryText)
{
    box.resize(400, 300);
    box.show();
    box.setText(latin("some words and one hit of them\n").repeated(200));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    select(15, 3);
    replaceAll("one", "another");
    EXPECT_TRUE(box.viewport()->rect().contains(box.cursorRect().center()));
    EXPECT_GT(box.verticalScrollBar()->value(), 0);
}
