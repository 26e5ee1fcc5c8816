#include "PrintQt.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "TextReplacement.h"

#include <QImage>
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

} // namespace

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
    expectAsOneByOne({0, 4, 8, 11}, 3, "dog");
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
