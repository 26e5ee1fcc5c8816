#include "PrintQt.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "TextReplacement.h"

#include <QImage>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace {

QString latin(const char *text)
{
    return QString::fromLatin1(text);
}

struct TextReplacementTest : testing::Test
{
    QTextDocument document;

    void load(const QByteArray &rtf)
    {
        RtfReader::read(rtf, document);
        document.clearUndoRedoStacks();
    }
    void replaceEach(const QList<int> &positions, int length, const char *text)
    {
        QTextCursor cursor(&document);
        cursor.beginEditBlock();
        TextReplacement::replaceEach(cursor, positions, length, latin(text));
        cursor.endEditBlock();
    }
    /// The same one by one, in a copy, as rich text.
    QByteArray oneByOne(const QList<int> &positions, int length, const char *text) const
    {
        const std::unique_ptr<QTextDocument> copy(document.clone());
        QTextCursor cursor(copy.get());
        for (const int position : positions) {
            cursor.setPosition(position);
            cursor.setPosition(position + length, QTextCursor::KeepAnchor);
            TextReplacement::replace(cursor, latin(text));
        }
        return RtfWriter::write(*copy);
    }
    void expectAsOneByOne(const QList<int> &positions, int length, const char *text)
    {
        const QByteArray before = RtfWriter::write(document);
        const QByteArray expected = oneByOne(positions, length, text);
        replaceEach(positions, length, text);
        EXPECT_EQ(RtfWriter::write(document), expected);
        document.undo();
        EXPECT_EQ(RtfWriter::write(document), before);
        EXPECT_FALSE(document.isUndoAvailable());
        document.redo();
        EXPECT_EQ(RtfWriter::write(document), expected);
    }
};

/// Edits of all kinds at random places, each a step of undo.
struct TextReplacementAmongEdits : TextReplacementTest
{
    QRandomGenerator random{1};
    QList<QByteArray> states; ///< after each step of undo

    QTextCursor somewhere(int mostCharacters)
    {
        const int last = document.characterCount() - 1;
        QTextCursor cursor(&document);
        cursor.setPosition(random.bounded(last + 1));
        cursor.setPosition(qMin(cursor.position() + random.bounded(mostCharacters + 1), last),
                           QTextCursor::KeepAnchor);
        return cursor;
    }
    void edit()
    {
        QTextCursor cursor = somewhere(6);
        QTextCharFormat bold;
        bold.setFontWeight(random.bounded(2) ? QFont::Bold : QFont::Normal);
        switch (random.bounded(4)) {
        case 0:
            return cursor.insertText(latin("xa\nb").left(random.bounded(5)));
        case 1:
            return cursor.removeSelectedText();
        case 2:
            return cursor.mergeCharFormat(bold);
        default:
            return replaceSome(latin("abab").mid(random.bounded(2), 1 + random.bounded(2)),
                               std::array{"", "x", "ccc"}.at(size_t(random.bounded(3))));
        }
    }
    void replaceSome(const QString &wanted, const char *text)
    {
        const auto length = int(wanted.size());
        replaceEach(everyHit(wanted, int(qstrlen(text)) - length), length, text);
    }
    /// Places as they are when those before are replaced.
    QList<int> everyHit(const QString &wanted, int growth)
    {
        const QString text = document.toPlainText();
        QList<int> hits;
        for (qsizetype i = text.indexOf(wanted); i >= 0; i = text.indexOf(wanted, i + wanted.size()))
            hits.append(int(i));
        if (random.bounded(2)) {
            std::reverse(hits.begin(), hits.end());
            return hits;
        }
        for (int i = 0; i < hits.size(); ++i)
            hits[i] += i * growth;
        return hits;
    }
    void editSome()
    {
        states = {RtfWriter::write(document)};
        for (int i = 0; i < 12; ++i) {
            const int steps = document.availableUndoSteps();
            edit();
            if (document.availableUndoSteps() > steps)
                states.append(RtfWriter::write(document));
        }
    }
};

} // namespace

TEST_F(TextReplacementAmongEdits, IsUndoneAndDoneAgainWithThem)
{
    for (int round = 0; round < 100; ++round) {
        load("{\\rtf1 ab{\\b aab}b\\par b{\\i ab}abc\\par abab}");
        editSome();
        for (int i = int(states.size()) - 1; i > 0; --i) {
            ASSERT_EQ(RtfWriter::write(document), states.at(i)) << round;
            document.undo();
        }
        ASSERT_FALSE(document.isUndoAvailable());
        for (const QByteArray &state : std::as_const(states)) {
            ASSERT_EQ(RtfWriter::write(document), state) << round;
            document.redo();
        }
    }
}

TEST_F(TextReplacementTest, SeveralInOneRun)
{
    load("{\\rtf1 a {\\b cat cat cat} b\\par cat}");
    expectAsOneByOne({2, 8, 14, 22}, 3, "mouse");
    EXPECT_EQ(document.toPlainText(), latin("a mouse mouse mouse b\nmouse"));
}

TEST_F(TextReplacementTest, FromBehind)
{
    load("{\\rtf1 a {\\i cat cat} {\\b cat} b}");
    expectAsOneByOne({10, 6, 2}, 3, "x");
    EXPECT_EQ(document.toPlainText(), latin("a cat cat cat b").replace(latin("cat"), latin("x")));
}

TEST_F(TextReplacementTest, WhatWasPutInMakesTheNextHit)
{
    load("{\\rtf1 abbb}");
    expectAsOneByOne({0, 0, 0}, 2, "a");
}

TEST_F(TextReplacementTest, AcrossTheEdgesOfRuns)
{
    load("{\\rtf1 c{\\b at} {\\b c}at {\\i c}{\\b a}t{\\b cat}}");
    expectAsOneByOne({0, 6, 12, 17}, 3, "mouse");
}

TEST_F(TextReplacementTest, NothingIsPutIn)
{
    load("{\\rtf1 {\\b cat}{\\i cat} cat\\par cat\\par}");
    expectAsOneByOne({0, 0, 1, 2}, 3, "");
    EXPECT_EQ(document.toPlainText(), latin(" \n"));
}

TEST_F(TextReplacementTest, LineEndsCome)
{
    load("{\\rtf1 {\\b one;two;three}\\par\\pard\\qc four;five}");
    expectAsOneByOne({3, 7, 18}, 1, "\n");
    EXPECT_EQ(document.blockCount(), 5);
}

TEST_F(TextReplacementTest, LineEndsGo)
{
    load("{\\rtf1 {\\b one\\par}\\qc two\\par three}");
    expectAsOneByOne({3, 7}, 1, "-");
}

TEST_F(TextReplacementTest, ALongRun)
{
    document.setPlainText(latin("some cat ").repeated(1000));
    QList<int> positions;
    for (int i = 0; i < 1000; ++i)
        positions.append(5 + 11 * i);
    expectAsOneByOne(positions, 3, "mouse");
}

TEST_F(TextReplacementTest, WhatWasTypedLast)
{
    QTextCursor(&document).insertText(latin("a cat"), QTextCharFormat());
    document.clearUndoRedoStacks();
    expectAsOneByOne({2}, 3, "mouse");
}

TEST_F(TextReplacementTest, APicture)
{
    document.addResource(QTextDocument::ImageResource, QUrl(latin("data:p")),
                         QImage(4, 4, QImage::Format_RGB32));
    QTextCursor(&document).insertImage(latin("data:p"));
    replaceEach({0}, 1, "text");
    EXPECT_EQ(document.toPlainText(), latin("text"));
    EXPECT_FALSE(document.begin().begin().fragment().charFormat().isImageFormat());
}

TEST_F(TextReplacementTest, OtherCursorsStayInTheText)
{
    document.setPlainText(latin("one cat more"));
    QTextCursor inside(&document);
    inside.setPosition(6);
    QTextCursor atTheEnd(&document);
    atTheEnd.movePosition(QTextCursor::End);
    replaceEach({4}, 3, "mouse");
    EXPECT_LE(inside.position(), 14);
    EXPECT_EQ(atTheEnd.position(), 14);
}

TEST_F(TextReplacementTest, ReportsOneChangeThatReachesFromTheFirstToTheLast)
{
    load("{\\rtf1 a cat {\\b cat}\\par more cat and more}");
    ASSERT_TRUE(document.documentLayout()); // without one nothing is reported
    QSignalSpy changes(&document, &QTextDocument::contentsChange);
    replaceEach({2, 8, 19}, 3, "mouse");
    ASSERT_EQ(changes.size(), 1);
    const int from = changes.at(0).at(0).toInt();
    const int removed = changes.at(0).at(1).toInt();
    EXPECT_LE(from, 2);
    EXPECT_GE(from + removed, 18);
    EXPECT_LE(from + removed, 27);
    EXPECT_EQ(changes.at(0).at(2).toInt(), removed + 6);
}

TEST_F(TextReplacementTest, IsLaidOutAnew)
{
    document.setPlainText(latin("one cat\n").repeated(20));
    document.setTextWidth(120);
    const QSizeF before = document.size();
    QList<int> positions;
    for (int i = 0; i < 20; ++i)
        positions.append(4 + 33 * i);
    replaceEach(positions, 3, "mouse that takes a line more");
    const std::unique_ptr<QTextDocument> copy(document.clone());
    copy->setTextWidth(120);
    EXPECT_EQ(document.size(), copy->size());
    EXPECT_GT(document.size().height(), before.height());
    document.undo();
    EXPECT_EQ(document.size(), before);
}

TEST_F(TextReplacementTest, WordsAreThoseOfTheNewTextBeforeItIsLaidOut)
{
    document.setPlainText(latin("one cat\ncat"));
    document.setTextWidth(120);
    document.setLayoutEnabled(false);
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::NextWord);
    replaceEach({4, 15}, 3, "mouse more");
    cursor.setPosition(4);
    cursor.movePosition(QTextCursor::NextWord);
    EXPECT_EQ(cursor.position(), 10);
}
