#pragma once

#include "QuickLayout.h"
#include "RichTextFixture.h"
#include "RtfWriter.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextList>
#include <QTextTable>
#include <functional>

/// A long document in the control, and the same in a plain text view that lays out each edit at once. Edits
/// and scrolling go to both.
class TypingFixture : public RichTextFixture
{
protected:
    using Edit = std::function<void(QTextCursor &)>;

    /// Paragraphs of several looks and lengths; a table of \a columns after each \a perTable of them.
    void open(int perTable = 0, const QString &word = QStringLiteral("some words "))
    {
        constexpr int paragraphs = 2500;
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText(QStringLiteral("The first words"));
        for (int i = 0; i < paragraphs; ++i) {
            if (perTable > 0 && i % perTable == perTable - 1)
                insertTable(cursor, i);
            insertParagraph(cursor, i, word);
        }
        showBoth(document);
    }

    void showBoth(const QTextDocument &document)
    {
        box.setTextRTF(RtfWriter::write(document));
        show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
        QTextDocument *copy = box.document()->clone(&plain);
        copy->clearUndoRedoStacks();
        plain.setPalette(box.palette());
        plain.setDocument(copy);
        plain.resize(box.size());
        plain.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&plain));
        copy->size(); // lays out all of it
        ASSERT_TRUE(QTest::qWaitFor([&] { return haveSameRange(); }, longestWait));
    }

    QAbstractTextDocumentLayout &layout() { return *box.document()->documentLayout(); }
    bool isLaidOut() { return box.document()->lastBlock().layout()->lineCount() > 0; }
    bool isBehind() { return QuickLayout::isBehind(*box.document()); }
    void catchUp() { QuickLayout::catchUp(*box.document()); }
    /// Built without Qt's private headers the layout is Qt's own, which is never behind.
    void expectBehind() { EXPECT_EQ(isBehind(), QuickLayout::isAvailable()); }
    int viewTop() { return plain.verticalScrollBar()->value(); }

    void scrollTo(int y)
    {
        box.verticalScrollBar()->setValue(y);
        plain.verticalScrollBar()->setValue(y);
    }
    void edit(int first, int end, const Edit &edit)
    {
        for (QTextEdit *view : {static_cast<QTextEdit *>(&box), &plain}) {
            QTextCursor cursor(view->document());
            cursor.setPosition(first);
            cursor.setPosition(end, QTextCursor::KeepAnchor);
            edit(cursor);
        }
    }
    void type(int position, const QString &text)
    {
        edit(position, position, [&](QTextCursor &cursor) { cursor.insertText(text); });
    }
    void splitAt(int position)
    {
        edit(position, position, [](QTextCursor &cursor) { cursor.insertBlock(); });
    }
    void remove(int first, int end)
    {
        edit(first, end, [](QTextCursor &cursor) { cursor.removeSelectedText(); });
    }
    void undo()
    {
        box.undo();
        plain.undo();
        layOutPlain(); // Qt itself forgets paragraphs, and then scrolls elsewhere
        scrollTo(box.verticalScrollBar()->value());
    }
    void redo()
    {
        box.redo();
        plain.redo();
        layOutPlain();
        scrollTo(box.verticalScrollBar()->value());
    }
    void layOutPlain() { plain.document()->markContentsDirty(0, plain.document()->characterCount()); }
    /// The start of the first paragraph below \a y.
    int below(int y)
    {
        QTextBlock block = plain.document()->begin();
        while (plain.document()->documentLayout()->blockBoundingRect(block).top() < y)
            block = block.next();
        return block.position();
    }

    bool haveSameRange()
    {
        return box.verticalScrollBar()->maximum() == plain.verticalScrollBar()->maximum() &&
               box.horizontalScrollBar()->maximum() == plain.horizontalScrollBar()->maximum();
    }
    /// What is seen is what the plain view shows.
    void expectSameView()
    {
        EXPECT_EQ(box.verticalScrollBar()->value(), plain.verticalScrollBar()->value());
        EXPECT_EQ(box.verticalScrollBar()->maximum(), plain.verticalScrollBar()->maximum());
        EXPECT_EQ(box.horizontalScrollBar()->maximum(), plain.horizontalScrollBar()->maximum());
        EXPECT_EQ(box.viewport()->grab().toImage(), plain.viewport()->grab().toImage());
    }
    /// Asking about points in view hits the same characters.
    void expectSameHit(const QPointF &point)
    {
        for (const Qt::HitTestAccuracy accuracy : {Qt::ExactHit, Qt::FuzzyHit})
            EXPECT_EQ(layout().hitTest(point, accuracy),
                      plain.document()->documentLayout()->hitTest(point, accuracy))
                << point.x() << ' ' << point.y();
    }
    void expectSameCaret(int position)
    {
        QTextCursor caret(box.document());
        caret.setPosition(position);
        QTextCursor other(plain.document());
        other.setPosition(position);
        EXPECT_EQ(box.cursorRect(caret), plain.cursorRect(other)) << position;
    }
    /// Every paragraph is where it is when everything is laid out from the start.
    void expectSameLayout()
    {
        layOutPlain();
        EXPECT_EQ(box.document()->size(), plain.document()->size());
        ASSERT_EQ(box.document()->blockCount(), plain.document()->blockCount());
        QTextBlock other = plain.document()->begin();
        for (QTextBlock block = box.document()->begin(); block.isValid();
             block = block.next(), other = other.next())
            ASSERT_EQ(layout().blockBoundingRect(block),
                      plain.document()->documentLayout()->blockBoundingRect(other))
                << "paragraph " << block.blockNumber();
        EXPECT_FALSE(isBehind());
    }

    static constexpr int longestWait = 60000; // milliseconds; of a busy machine
    QTextEdit plain;

private:
    static void insertTable(QTextCursor &cursor, int number)
    {
        QTextTableFormat format;
        constexpr int width = 100;
        const QTextLength column(QTextLength::FixedLength, width);
        format.setColumnWidthConstraints({column, column, column});
        QTextTable *table = cursor.insertTable(2, 3, format);
        table->cellAt(0, 0).firstCursorPosition().insertText(QStringLiteral("cell %1").arg(number));
        table->cellAt(1, 2).firstCursorPosition().insertText(QStringLiteral("a cell whose text is long"));
        cursor.movePosition(QTextCursor::End);
    }
    static void insertParagraph(QTextCursor &cursor, int number, const QString &word)
    {
        QTextBlockFormat paragraph;
        QTextCharFormat look;
        if (number % 5 == 1)
            paragraph.setAlignment(Qt::AlignHCenter);
        if (number % 7 == 2)
            paragraph.setLeftMargin(20);
        if (number % 7 == 3)
            look.setFontPointSize(14);
        if (number % 11 == 4)
            paragraph.setTopMargin(6);
        cursor.insertBlock(paragraph, look);
        if (number % 9 == 5)
            cursor.createList(QTextListFormat::ListDecimal);
        constexpr int fewestWords = 12;
        const int words = number % 13 == 6 ? 0 : number % 10 == 7 ? 3 * fewestWords : number % 4;
        cursor.insertText(word.repeated(words), look);
    }
};
