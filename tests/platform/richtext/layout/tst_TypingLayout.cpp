#include "TypingFixture.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTextFrame>

namespace {

const QString manyWords = QStringLiteral("some words that go on ").repeated(5);

class Typing : public TypingFixture
{
protected:
    /// Leaves the layout behind by an edit in view that makes the document longer.
    void fallBehind()
    {
        open();
        scrollTo(500);
        splitAt(below(600) + 1);
        expectBehind();
    }
    void expectBehindAndRight()
    {
        expectBehind();
        expectSameView();
        expectBehind();
    }
    /// That \a question brought everything to its place, before it was answered.
    template<class Answer>
    void expectCaughtUp(const Answer &actual, const Answer &expected)
    {
        EXPECT_EQ(actual, expected);
        EXPECT_FALSE(isBehind());
        expectSameLayout();
    }
    /// One of the first, in the plain view.
    QTextTable &table()
    {
        return *qobject_cast<QTextTable *>(plain.document()->rootFrame()->childFrames().at(6));
    }
    void scrollToTable() { scrollTo(int(plainLayout().frameBoundingRect(&table()).top()) - 100); }
    QAbstractTextDocumentLayout &plainLayout() { return *plain.document()->documentLayout(); }
};

} // namespace

// ---- What is laid out at once

TEST_F(Typing, CharactersAreSeenAtOnce)
{
    open();
    scrollTo(500);
    const int position = below(600);
    type(position, QStringLiteral("x"));
    expectBehindAndRight();
    type(position + 1, manyWords); // comes to more lines
    expectBehindAndRight();
    remove(position, position + 1);
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, ParagraphsSplitAndJoinAtOnce)
{
    open();
    scrollTo(500);
    const int position = below(600);
    splitAt(position + 1);
    expectBehindAndRight();
    splitAt(position);
    expectBehindAndRight();
    remove(position - 1, position);
    expectBehindAndRight();
    remove(position - 1, position);
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, TheFirstParagraphIsSeenAtOnce)
{
    open();
    type(0, QStringLiteral("x"));
    expectBehindAndRight();
    splitAt(0);
    expectBehindAndRight();
    expectSameHit({5, 5});
    expectSameHit({15, 40});
    expectSameLayout();
}

TEST_F(Typing, TheKeyboardTypesAtOnce)
{
    open();
    scrollTo(500);
    const int position = below(600);
    box.setSelStart(position);
    QTextCursor caret = plain.textCursor();
    caret.setPosition(position);
    plain.setTextCursor(caret);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_B, Qt::Key_Backspace, Qt::Key_Delete}) {
        QTest::keyClick(&box, key);
        QTest::keyClick(&plain, key);
        expectBehindAndRight();
    }
    expectSameLayout();
}

TEST_F(Typing, SelectedTextIsPaintedRight)
{
    fallBehind();
    for (QTextEdit *view : {static_cast<QTextEdit *>(&box), &plain}) {
        QTextCursor cursor = view->textCursor();
        cursor.setPosition(below(560));
        cursor.setPosition(below(660) + 2, QTextCursor::KeepAnchor);
        view->setTextCursor(cursor);
    }
    expectBehindAndRight();
}

TEST_F(Typing, EveryPartOfThePageIsPaintedRight)
{
    constexpr int partHeight = 25;
    constexpr int parts = 90;
    const QString narrow(60, u'i');
    const QRect lower(0, 150, 380, 100);
    open(0, QStringLiteral("w "));
    for (int part = 1; part < parts && !HasFailure(); ++part) {
        SCOPED_TRACE(part);
        scrollTo(part * partHeight);
        const int position = below(viewTop() + 20);
        type(position, narrow);
        expectBehindAndRight();
        catchUp();
        remove(position, position + int(narrow.size()));
        EXPECT_EQ(box.viewport()->grab(lower).toImage(), plain.viewport()->grab(lower).toImage());
        expectBehind();
        catchUp();
    }
}

TEST_F(Typing, WhatChangesIsPaintedAnew)
{
    open();
    scrollTo(500);
    const int position = below(600);
    const double edited = layout().blockBoundingRect(box.document()->findBlock(position)).center().y();
    const QSignalSpy updates(&layout(), &QAbstractTextDocumentLayout::update);
    const auto latest = [&] { return updates.constLast().constFirst().toRectF(); };
    type(position, QStringLiteral("x"));
    ASSERT_FALSE(updates.isEmpty());
    EXPECT_TRUE(latest().contains(50, edited));
    EXPECT_FALSE(latest().contains(50, edited + 100));
    splitAt(position);
    EXPECT_TRUE(latest().contains(50, edited + 100));
}

TEST_F(Typing, LinksAreMarkedWhileTyping)
{
    open(0, QStringLiteral("see https://example.org/x now "));
    box.setAutoURLDetection(true);
    scrollTo(500);
    splitAt(below(600));
    const QImage marked = box.viewport()->grab().toImage();
    expectBehind();
    EXPECT_FALSE(box.extraSelections().isEmpty());
    catchUp();
    EXPECT_EQ(marked, box.viewport()->grab().toImage());
}

TEST_F(Typing, AllThatIsInViewIsKnown)
{
    const QString words = QStringLiteral("some words ");
    QTextDocument document;
    QTextCursor cursor(&document);
    for (int i = 0; i < 8; ++i) {
        QTextTable *table = cursor.insertTable(2, 3);
        table->cellAt(i % 2, i % 3).firstCursorPosition().insertText(words.repeated(40));
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(words.repeated(40));
        cursor.insertBlock(); // which the edge of the next table hides
    }
    showBoth(document);
    for (int y = 0; y < box.verticalScrollBar()->maximum(); y += 5) {
        scrollTo(y);
        const auto [first, end] = QuickLayout::stretchInView(*box.document(), box);
        const int bottom = y + box.viewport()->height();
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
            const QRectF area = layout().blockBoundingRect(block);
            const bool isKnown = first <= block.position() && block.position() <= end;
            EXPECT_TRUE(isKnown || area.bottom() <= y || area.top() >= bottom) << y;
        }
    }
}

TEST_F(Typing, TextBesideAPictureIsSeenAtOnce)
{
    open();
    scrollTo(500);
    const int position = below(600);
    edit(position, position, [](QTextCursor &cursor) {
        QTextImageFormat picture;
        picture.setName(QStringLiteral("picture:none"));
        picture.setWidth(40);
        picture.setHeight(30);
        cursor.insertImage(picture);
        cursor.insertText(QStringLiteral("text behind it"));
    });
    expectSameView();
    catchUp();
    type(position, QStringLiteral("x"));
    expectBehindAndRight();
    type(position + 3, manyWords); // the picture stays in its line, text behind it wraps
    expectBehindAndRight();
    type(position, manyWords); // the picture comes to another line
    expectBehindAndRight();
    splitAt(position + 2);
    expectBehindAndRight();
    remove(position, position + 1);
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, APictureWithoutASizeIsLaidOutByQt)
{
    open();
    scrollTo(500);
    const int position = below(600);
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QUrl name(QStringLiteral("picture:own"));
    box.document()->addResource(QTextDocument::ImageResource, name, image);
    plain.document()->addResource(QTextDocument::ImageResource, name, image);
    edit(position, position, [&](QTextCursor &cursor) { cursor.insertImage(name.toString()); });
    catchUp();
    type(position, QStringLiteral("x"));
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, ItemsBelowAreNumberedAnewAtOnce)
{
    open();
    scrollTo(500);
    const int position = below(600);
    edit(position, below(700), [](QTextCursor &cursor) { cursor.createList(QTextListFormat::ListDecimal); });
    expectSameLayout();
    splitAt(position);
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, ACellIsSeenAtOnce)
{
    open(20);
    scrollToTable();
    const int position = table().cellAt(0, 0).firstPosition();
    for (const char *text : {"x", "ii", " "}) {
        type(position, QString::fromLatin1(text));
        expectBehindAndRight();
    }
    remove(position, position + 2);
    expectBehindAndRight();
    catchUp();
    for (int i = 0; i < 2; ++i) {
        type(table().cellAt(0, 1).firstPosition(), QStringLiteral("x"));
        expectBehindAndRight();
    }
    edit(position, position + 2, [](QTextCursor &cursor) {
        QTextCharFormat red;
        red.setForeground(Qt::red);
        cursor.mergeCharFormat(red);
    });
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, ACellAndTheTextAroundIt)
{
    open(20);
    scrollToTable();
    const int above =
        plain.document()->findBlock(table().firstPosition() - 1).previous().previous().position();
    type(above, QStringLiteral("x"));
    expectBehindAndRight();
    type(table().cellAt(0, 0).firstPosition(), QStringLiteral("x"));
    expectBehindAndRight();
    type(plain.document()->findBlock(table().lastPosition() + 1).next().next().position(),
         QStringLiteral("x"));
    expectBehindAndRight();
    remove(above, above + 1);
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, EveryPartOfATableIsPaintedRight)
{
    open(5);
    for (int i = 0; i < 25 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        scrollTo(i * 90);
        const QTextBlock seen = plain.document()->findBlock(below(viewTop() + 100));
        remove(seen.position(), seen.position() + 1);
        expectSameView();
        scrollTo(viewTop() + 120);
        expectSameView();
        scrollTo(viewTop() - 240);
        expectSameView();
    }
    expectSameLayout();
}

TEST_F(Typing, ALineMoreInACellMakesItHigher)
{
    open(20);
    scrollToTable();
    const int position = table().cellAt(0, 0).firstPosition();
    type(position, manyWords);
    expectBehindAndRight();
    expectSameLayout();
    remove(position, position + int(manyWords.size()));
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, AParagraphMoreInACellMakesItHigher)
{
    open(20);
    scrollToTable();
    const int position = table().cellAt(0, 0).firstPosition();
    splitAt(position);
    expectBehindAndRight();
    expectSameLayout();
    remove(position, position + 1);
    expectBehindAndRight();
    expectSameLayout();
    edit(position, position + 4, [](QTextCursor &cursor) {
        QTextCharFormat large;
        large.setFontPointSize(20);
        cursor.mergeCharFormat(large);
    });
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, EditsBesideTablesAreSeenAtOnce)
{
    open(20);
    scrollToTable();
    const QList<int> places = {table().firstPosition() - 2, table().firstPosition() - 1,
                               table().lastPosition() + 2, table().lastPosition() + 1};
    for (const int position : places) {
        type(position, QStringLiteral("x"));
        expectBehindAndRight();
        remove(position, position + 1);
        expectBehindAndRight();
        splitAt(position);
        expectBehindAndRight();
        type(position, manyWords);
        expectBehindAndRight();
        remove(position, position + 1);
        expectBehindAndRight();
        expectSameLayout();
    }
}

TEST_F(Typing, ALineMoreAboveATableMovesIt)
{
    open(20);
    QTextFrame *table = plain.document()->rootFrame()->childFrames().at(2);
    scrollTo(int(plainLayout().frameBoundingRect(table).top()) - 200);
    splitAt(below(viewTop() + 50));
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, AParagraphMoreInMergedCellsMakesThemHigher)
{
    open(20);
    scrollToTable();
    edit(table().firstPosition(), table().firstPosition(),
         [](QTextCursor &cursor) { cursor.currentTable()->mergeCells(0, 0, 2, 2); });
    catchUp();
    splitAt(table().cellAt(1, 1).lastPosition());
    expectBehindAndRight();
    splitAt(table().cellAt(0, 2).firstPosition());
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, CellsOfAnotherLookGrowWithTheirText)
{
    open(20);
    scrollToTable();
    const int position = table().cellAt(0, 0).firstPosition();
    edit(position, position, [](QTextCursor &cursor) {
        QTextTableCellFormat format;
        format.setPadding(9);
        cursor.currentTable()->cellAt(0, 0).setFormat(format);
    });
    catchUp();
    splitAt(position);
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, ACellBelowAHiddenParagraphIsInItsPlace)
{
    open(20);
    scrollToTable();
    splitAt(table().firstPosition() - 1); // the empty one is hidden in the edge of the table
    const int hidden = table().firstPosition() - 1;
    edit(hidden - 1, hidden, [](QTextCursor &cursor) {
        QTextBlockFormat spaced;
        spaced.setTopMargin(7);
        spaced.setBottomMargin(9);
        cursor.mergeBlockFormat(spaced);
    });
    catchUp();
    splitAt(table().cellAt(0, 0).firstPosition());
    expectBehindAndRight();
    expectSameLayout();
}

TEST_F(Typing, ALineBreakBehindATableTakesNoHeight)
{
    open(20);
    scrollToTable();
    const int position = table().lastPosition() + 1;
    type(position, QString(QChar::LineSeparator));
    catchUp();
    type(position, QStringLiteral("x")); // now it does
    expectBehindAndRight();
    remove(position, position + 1);
    expectBehindAndRight();
    catchUp();
    type(plain.document()->findBlock(position).next().position(), QStringLiteral("x"));
    expectBehind();
    const QRectF area = plainLayout().frameBoundingRect(&table());
    for (int y = int(area.top()); y < area.bottom() + 40; y += 3)
        expectSameHit(QPointF(15, y));
    expectSameLayout();
}

TEST_F(Typing, AKeyRightAboveWhatIsLeftBehindMovesNothing)
{
    open();
    for (int y = 1000; y < 1400; y += 20) {
        SCOPED_TRACE(y);
        scrollTo(500);
        splitAt(below(600) + 1);
        expectBehind();
        scrollTo(900);
        const int position = below(y);
        remove(position, position + 1);
        expectSameView();
        catchUp();
    }
}

// ---- What is left to Qt

TEST_F(Typing, ATableWithinATableGrows)
{
    open(20);
    scrollToTable();
    const int position = table().cellAt(0, 0).firstPosition();
    edit(position, position, [](QTextCursor &cursor) { cursor.insertTable(1, 1); });
    catchUp();
    for (const int place : {position + 1, position, table().cellAt(0, 1).firstPosition()}) {
        splitAt(place);
        EXPECT_FALSE(isBehind());
        expectSameView();
        expectSameLayout();
    }
}

TEST_F(Typing, ATableOfManyCellsGrows)
{
    open(20);
    scrollToTable();
    const int position = table().firstPosition();
    edit(position, position, [](QTextCursor &cursor) { cursor.currentTable()->appendRows(30); });
    catchUp();
    splitAt(position);
    EXPECT_FALSE(isBehind());
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, AWideWordWidensItsColumn)
{
    open(20);
    scrollToTable();
    const int position = table().cellAt(0, 0).firstPosition();
    const QString word(25, u'w');
    edit(position, position, [&](QTextCursor &cursor) {
        QTextBlockFormat format;
        format.setNonBreakableLines(true);
        cursor.mergeBlockFormat(format);
    });
    type(position, word);
    expectSameView();
    expectSameLayout();
    remove(position, position + 1); // the column shrinks with it
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, AColumnWithoutAWidthGrowsWithItsText)
{
    open(20);
    scrollToTable();
    for (const QList<QTextLength> &widths : {QList<QTextLength>(), QList<QTextLength>(3, QTextLength())}) {
        edit(table().firstPosition(), table().firstPosition(), [&](QTextCursor &cursor) {
            QTextTableFormat format = cursor.currentTable()->format();
            format.setColumnWidthConstraints(widths);
            cursor.currentTable()->setFormat(format);
        });
        const int position = table().cellAt(0, 0).firstPosition();
        type(position, QStringLiteral("words "));
        expectSameView();
        expectSameLayout();
        remove(position, position + 3);
        expectSameView();
        expectSameLayout();
    }
}

TEST_F(Typing, KeysBesideATableAreSeenAtOnce)
{
    open(20);
    scrollToTable();
    const QTextTable &shown = table();
    const QList<int> places = {shown.firstPosition() - 1, shown.lastPosition() + 1};
    for (const int position : places) {
        type(position, QStringLiteral("x")); // where the paragraph was empty Qt hid it
        expectSameView();
        catchUp();
        type(position, QStringLiteral("y"));
        expectBehindAndRight();
        expectSameHit({15, 150});
        remove(position, position + 1);
        expectBehindAndRight();
        expectSameLayout();
    }
}

TEST_F(Typing, ATableAboveAnEmptyParagraphAndTheEditIsHit)
{
    open(20);
    scrollToTable();
    const QRectF area = plainLayout().frameBoundingRect(&table());
    const int hidden = table().lastPosition() + 1; // an empty paragraph
    edit(hidden, hidden, [](QTextCursor &cursor) {
        QTextTableFormat format;
        format.setColumnWidthConstraints({QTextLength(QTextLength::FixedLength, 100)});
        cursor.insertTable(1, 1, format);
    });
    const int inNextTable = hidden + 1;
    const int behindNextTable = hidden + 4; // with the key in the table
    for (const int position : {inNextTable, behindNextTable}) {
        catchUp();
        type(position, QStringLiteral("x"));
        expectBehind();
        for (int y = int(area.top()); y < area.bottom() + 40; y += 3) {
            for (const int x : {15, 190, 320})
                expectSameHit(QPointF(x, y));
        }
        expectSameView();
        expectSameLayout();
    }
}

TEST_F(Typing, AKeyInTheLastRowIsPaintedWhole)
{
    open(20);
    scrollToTable();
    const QSignalSpy painted(&layout(), &QAbstractTextDocumentLayout::update);
    const int position = table().lastPosition();
    type(position, QStringLiteral("x"));
    expectBehind();
    ASSERT_FALSE(painted.isEmpty());
    const QTextBlock cell = plain.document()->findBlock(position);
    EXPECT_GE(painted.last().at(0).toRectF().bottom(), plainLayout().blockBoundingRect(cell).bottom());
}

TEST_F(Typing, AFormatOfACellOrBesideATableIsLaidOut)
{
    open(20);
    scrollToTable();
    const QTextTable &shown = table();
    const QList<int> places = {shown.firstPosition() - 1, shown.firstPosition(), shown.lastPosition() + 1};
    for (const int position : places) {
        type(position, QStringLiteral("some words"));
        edit(position, position, [](QTextCursor &cursor) {
            QTextBlockFormat format;
            format.setLeftMargin(30);
            cursor.mergeBlockFormat(format);
        });
        expectSameView();
        expectSameLayout();
    }
}

TEST_F(Typing, ALineThatDoesNotWrapWidensTheDocument)
{
    open();
    edit(5, 5, [](QTextCursor &cursor) {
        QTextBlockFormat format;
        format.setNonBreakableLines(true);
        cursor.mergeBlockFormat(format);
    });
    type(5, manyWords);
    expectSameView();
    remove(5, 5 + int(manyWords.size()));
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, TheWidestLineOfAnEnlargedDocumentNarrowsItAgain)
{
    open();
    for (int i = 0; i < 9; ++i) // to 400 percent
        QTest::keyClick(&box, Qt::Key_Plus, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    edit(5, 5, [](QTextCursor &cursor) {
        QTextBlockFormat format;
        format.setNonBreakableLines(true);
        cursor.mergeBlockFormat(format);
    });
    type(5, manyWords);
    catchUp();
    ASSERT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    const int before = box.horizontalScrollBar()->maximum();
    ASSERT_GT(before, 0);
    const int end = 5 + int(manyWords.size());
    remove(end - 5, end);
    const int after = box.horizontalScrollBar()->maximum();
    EXPECT_LT(after, before - 50);
    box.document()->markContentsDirty(0, box.document()->characterCount());
    EXPECT_EQ(box.horizontalScrollBar()->maximum(), after);
}

TEST_F(Typing, AFloatIsFlownAround)
{
    open();
    edit(0, 0, [](QTextCursor &cursor) {
        QTextFrameFormat format;
        format.setPosition(QTextFrameFormat::FloatRight);
        format.setWidth(150);
        format.setHeight(400);
        cursor.insertFrame(format);
    });
    box.document()->markContentsDirty(0, box.document()->characterCount());
    layOutPlain();
    type(below(100), manyWords);
    expectSameView();
}

// ---- What makes it catch up

TEST_F(Typing, APauseCatchesUp)
{
    fallBehind();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isBehind(); }));
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, TheSizeIsRight)
{
    fallBehind();
    expectCaughtUp(box.document()->size(), plain.document()->size());
}

TEST_F(Typing, ThePageCountIsRight)
{
    fallBehind();
    expectCaughtUp(layout().pageCount(), plainLayout().pageCount());
}

TEST_F(Typing, AParagraphFarBelowIsFound)
{
    fallBehind();
    expectCaughtUp(layout().blockBoundingRect(box.document()->lastBlock()),
                   plainLayout().blockBoundingRect(plain.document()->lastBlock()));
}

TEST_F(Typing, ATableFarBelowIsFound)
{
    open(1000);
    splitAt(5);
    expectBehind();
    const auto root = [](QTextEdit &view) { return view.document()->rootFrame(); };
    EXPECT_EQ(layout().frameBoundingRect(root(box)), plainLayout().frameBoundingRect(root(plain)));
    expectBehind(); // every selection asks
    expectCaughtUp(layout().frameBoundingRect(root(box)->childFrames().constLast()),
                   plainLayout().frameBoundingRect(root(plain)->childFrames().constLast()));
}

TEST_F(Typing, APointFarBelowIsHit)
{
    fallBehind();
    const QPointF far(50, plain.verticalScrollBar()->maximum() / 2);
    expectCaughtUp(layout().hitTest(far, Qt::FuzzyHit), plainLayout().hitTest(far, Qt::FuzzyHit));
}

TEST_F(Typing, ScrollingFarShowsTheRightText)
{
    fallBehind();
    scrollTo(plain.verticalScrollBar()->maximum() / 2);
    expectSameView();
    expectSameLayout();
    splitAt(below(viewTop() + 50));
    expectBehind();
    scrollTo(0); // all above is in its place
    expectBehindAndRight();
    scrollTo(plain.verticalScrollBar()->maximum());
    expectSameView();
}

TEST_F(Typing, EverythingIsPaintedRight)
{
    fallBehind();
    const auto paint = [](QTextDocument &document) {
        QImage image(400, 3000, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        document.drawContents(&painter);
        return image;
    };
    expectCaughtUp(paint(*box.document()), paint(*plain.document()));
}

TEST_F(Typing, ALowerViewKeepsItsRange)
{
    fallBehind();
    for (QTextEdit *view : {static_cast<QTextEdit *>(&box), &plain})
        view->resize(400, 200);
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, AnotherWidthIsLaidOutAnew)
{
    fallBehind();
    for (QTextEdit *view : {static_cast<QTextEdit *>(&box), &plain})
        view->resize(300, 300);
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, TheEndOfTheBackgroundLayoutKeepsTheRange)
{
    open();
    box.setTextRTF(box.TextRTF());
    layout().hitTest({0, 1e6}, Qt::FuzzyHit); // lays out all of it; the size is reported later
    ASSERT_TRUE(isLaidOut());
    splitAt(5);
    expectBehind();
    QCoreApplication::processEvents();
    EXPECT_TRUE(haveSameRange());
    expectSameLayout();
}

TEST_F(Typing, EditsElsewhereAreLaidOut)
{
    fallBehind();
    splitAt(below(20000)); // below
    expectSameView();
    expectSameLayout();

    scrollTo(20000);
    splitAt(below(20100));
    expectBehind();
    splitAt(5); // above
    expectSameView();
    expectSameLayout();

    const int position = below(20100);
    splitAt(position);
    expectBehind();
    remove(position - 500, position + 500); // across
    expectSameView();
    expectSameLayout();

    const int among = below(20100);
    type(among, manyWords);
    type(among, manyWords);
    expectBehind();
    remove(among + 50, among + 50 + 3 * int(manyWords.size()));
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, QuestionsInTheMidstOfAnEditDoNoHarm)
{
    fallBehind();
    const int last = plain.document()->characterCount() - 1;
    edit(0, last - 5, [](QTextCursor &cursor) {
        cursor.beginEditBlock();
        cursor.removeSelectedText();
        cursor.insertTable(2, 2);
        const QAbstractTextDocumentLayout &layout = *cursor.document()->documentLayout();
        layout.hitTest({50, 100}, Qt::FuzzyHit);
        layout.blockBoundingRect(cursor.document()->lastBlock());
        cursor.endEditBlock();
    });
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, FormatsAreSeenAtOnce)
{
    fallBehind();
    edit(below(550), below(650), [](QTextCursor &cursor) {
        QTextCharFormat large;
        large.setFontPointSize(20);
        cursor.mergeCharFormat(large);
    });
    expectSameView();
    const int position = below(560);
    edit(position, position, [](QTextCursor &cursor) {
        QTextBlockFormat spaced;
        spaced.setTopMargin(15);
        spaced.setBottomMargin(25);
        cursor.mergeBlockFormat(spaced);
    });
    expectSameView();
    expectSameLayout();
}

TEST_F(Typing, UndoneTextIsSeenAtOnce)
{
    if (!QuickLayout::isAvailable())
        GTEST_SKIP() << "Qt's own layout leaves out a paragraph when a removal across paragraphs is undone";
    fallBehind();
    edit(0, below(20000), [](QTextCursor &cursor) { cursor.removeSelectedText(); });
    expectSameView();
    for (int i = 0; i < 2; ++i) {
        undo();
        expectSameView();
    }
    expectSameLayout();
}

TEST_F(Typing, AnotherDocumentTakesItsPlace)
{
    fallBehind();
    const QPointer<QTextDocument> left = box.document();
    box.setText(QStringLiteral("x"));
    EXPECT_FALSE(left);
    EXPECT_FALSE(isBehind());
    EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
}
