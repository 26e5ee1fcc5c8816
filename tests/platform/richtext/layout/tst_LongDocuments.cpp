#include "RichTextFixture.h"

#include <QAbstractTextDocumentLayout>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTextTable>

namespace {

class LongDocument : public RichTextFixture
{
protected:
    void open(int paragraphs, const QString &text)
    {
        box.setText((text + u'\n').repeated(paragraphs));
        show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    }
    static constexpr int longestWait = 60000; // milliseconds; of a busy machine
    bool isLaidOut() { return box.document()->lastBlock().layout()->lineCount() > 0; }

    /// Every paragraph is where Qt lays it out in a document of the same content.
    void expectPlainLayout()
    {
        const std::unique_ptr<QTextDocument> plain(box.document()->clone());
        QTextOption option = plain->defaultTextOption();
        option.setTextDirection(Qt::LayoutDirectionAuto);
        plain->setDefaultTextOption(option);
        plain->documentLayout()->setPaintDevice(box.viewport());
        plain->setPageSize(box.document()->pageSize());
        EXPECT_EQ(box.document()->size(), plain->size());
        QTextBlock block = box.document()->begin();
        for (QTextBlock other = plain->begin(); other.isValid(); other = other.next(), block = block.next()) {
            ASSERT_TRUE(block.isValid());
            ASSERT_EQ(box.document()->documentLayout()->blockBoundingRect(block),
                      plain->documentLayout()->blockBoundingRect(other))
                << "paragraph " << block.blockNumber();
        }
    }

    void editAtRandom(QRandomGenerator &random, const QStringList &texts)
    {
        QTextCursor cursor(box.document());
        const int last = box.document()->characterCount() - 1;
        cursor.setPosition(random.bounded(last + 1));
        switch (random.bounded(6)) {
        case 0:
            cursor.setPosition(qMin(last, cursor.position() + random.bounded(200)), QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
            break;
        case 1:
            cursor.insertBlock();
            break;
        case 2:
            box.setTextCursor(cursor);
            box.setSelBullet(random.bounded(2) == 0);
            break;
        case 3:
            box.undo();
            break;
        case 4:
            cursor.insertTable(2, 2);
            break;
        default:
            cursor.insertText(texts.at(random.bounded(int(texts.size()))));
            break;
        }
    }
};

const QString hebrew = QStringLiteral("\u05E9\u05DC\u05D5\u05DD");

} // namespace

TEST_F(LongDocument, IsNotLaidOutBeforeItIsSeen)
{
    box.setText(QStringLiteral("one two"));
    box.setSelStart(2);
    box.resize(box.size() + QSize(10, 10));
    EXPECT_FALSE(isLaidOut());
    show();
    EXPECT_TRUE(isLaidOut());
    expectPlainLayout();
    box.setText(QStringLiteral("three"));
    EXPECT_TRUE(isLaidOut());
    box.hide();
    box.setText(QStringLiteral("four"));
    EXPECT_FALSE(isLaidOut());
    box.setSelText(QStringLiteral("and "));
    EXPECT_TRUE(isLaidOut());
    expectPlainLayout();
}

TEST_F(LongDocument, EditsAtRandomAreLaidOutAsQtDoes)
{
    const QStringList texts = {QStringLiteral("x"), QStringLiteral("a longer text that wraps ").repeated(10),
                               QStringLiteral("one\ntwo\n"), QStringLiteral("1.2 %")};
    open(200, QStringLiteral("some words"));
    QRandomGenerator random(1);
    for (int i = 0; i < 200; ++i)
        editAtRandom(random, texts);
    expectPlainLayout();
}

TEST_F(LongDocument, EditsAtRandomWithTextFromTheRightAreLaidOutAsQtDoes)
{
    const QStringList texts = {QStringLiteral("x "), hebrew, hebrew + QStringLiteral("\nx")};
    open(100, QStringLiteral("some words"));
    QRandomGenerator random(2);
    for (int i = 0; i < 100; ++i) {
        editAtRandom(random, texts);
        if (i % 20 == 0)
            expectPlainLayout();
    }
    expectPlainLayout();
}

TEST_F(LongDocument, TextFromTheRightIsLaidOutWhenTyped)
{
    open(3, QStringLiteral("words"));
    box.setSelStart(0);
    EXPECT_EQ(paragraph(0).textDirection(), Qt::LeftToRight);
    box.setSelText(hebrew);
    EXPECT_EQ(paragraph(0).textDirection(), Qt::RightToLeft);
    EXPECT_EQ(paragraph(1).textDirection(), Qt::LeftToRight);
    expectPlainLayout();
}

TEST_F(LongDocument, TextFromTheRightIsLaidOutWhenLoadedOrUndone)
{
    open(1, hebrew);
    EXPECT_EQ(paragraph(0).textDirection(), Qt::RightToLeft);
    select(0, 4);
    box.setSelText(QStringLiteral("x"));
    EXPECT_EQ(paragraph(0).textDirection(), Qt::LeftToRight);
    box.undo();
    EXPECT_EQ(paragraph(0).textDirection(), Qt::RightToLeft);
    box.setText(QStringLiteral("x"));
    EXPECT_EQ(paragraph(0).textDirection(), Qt::LeftToRight);
    box.setText(QString::fromUcs4(U"\U0001E900")); // of a script beyond 16 bits
    EXPECT_EQ(paragraph(0).textDirection(), Qt::RightToLeft);
}

/// For each line that it fills Qt would read such a word to its end.
TEST_F(LongDocument, LinesAreBrokenAnywhereWhereAWordIsVeryLong)
{
    const auto wrapMode = [&] { return box.document()->defaultTextOption().wrapMode(); };
    box.setText(QStringLiteral("prose ").repeated(5000) + u'\n' + QString(3999, u'w') + u'\n' +
                QString(3999, u'w'));
    EXPECT_EQ(wrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    box.setText(QString(300000, u'w'));
    EXPECT_EQ(wrapMode(), QTextOption::WrapAnywhere);
    show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    expectPlainLayout();
    box.setText(QStringLiteral("prose"));
    EXPECT_EQ(wrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    EXPECT_EQ(box.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST_F(LongDocument, IsNotLaidOutAgainWhenAnotherTakesItsPlace)
{
    open(1000, QStringLiteral("some words"));
    QSignalSpy sizes(box.document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged);
    QSignalSpy updates(box.document()->documentLayout(), &QAbstractTextDocumentLayout::update);
    box.setText(QString(10000, u'x'));
    EXPECT_EQ(sizes.size() + updates.size(), 0);
    EXPECT_GT(box.document()->begin().layout()->lineCount(), 1);
}

TEST_F(LongDocument, AWordThatGrowsVeryLongIsBrokenAnywhereFromThenOn)
{
    open(100, QStringLiteral("prose and prose"));
    QTextCursor cursor(box.document());
    cursor.insertText(QString(2500, u'w'));
    EXPECT_EQ(box.document()->defaultTextOption().wrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    cursor.insertText(QString(2500, u'w'));
    EXPECT_EQ(box.document()->defaultTextOption().wrapMode(), QTextOption::WrapAnywhere);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    expectPlainLayout();
}

TEST_F(LongDocument, WithoutItsLongWordLinesEndBetweenWordsAgain)
{
    const auto wrapMode = [&] { return box.document()->defaultTextOption().wrapMode(); };
    open(100, QStringLiteral("prose and prose"));
    QTextCursor cursor(box.document());
    cursor.insertText(QString(5000, u'w') + u'\n' + QString(6000, u'w'));
    EXPECT_EQ(wrapMode(), QTextOption::WrapAnywhere);
    cursor.setPosition(0);
    cursor.setPosition(5000, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    EXPECT_EQ(wrapMode(), QTextOption::WrapAnywhere);
    box.undo();
    box.undo();
    EXPECT_EQ(wrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    EXPECT_EQ(box.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    expectPlainLayout();
}

TEST_F(LongDocument, AFormatOfEverythingLeavesTheViewWhereItIs)
{
    open(8000, QStringLiteral("Some words that make a paragraph"));
    QScrollBar &bar = *box.verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const int place = bar.value();
    const QSignalSpy changes(&box, &RichTextBox::Change);
    QTextCursor all(box.document());
    all.select(QTextCursor::Document);
    QTextCharFormat italic;
    italic.setFontItalic(true);
    all.mergeCharFormat(italic);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(bar.value(), place);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    EXPECT_EQ(bar.value(), place);
    expectPlainLayout();
    box.undo();
    EXPECT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    expectPlainLayout();
}

TEST_F(LongDocument, RemovingNearlyEverythingLaysOutTheRest)
{
    open(8000, QStringLiteral("Some words that make a paragraph"));
    select(20, int(box.Text().size()));
    box.setSelText(QStringLiteral("x"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    expectPlainLayout();
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.verticalScrollBar()->maximum() == 0; }));
    box.undo();
    EXPECT_TRUE(QTest::qWaitFor([&] { return isLaidOut(); }, longestWait));
    expectPlainLayout();
}
