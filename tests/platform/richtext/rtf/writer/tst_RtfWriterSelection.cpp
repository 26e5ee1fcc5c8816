#include "WrittenBody.h"

#include <QTextBlock>
#include <QTextList>
#include <gtest/gtest.h>

namespace {

/// "one", a centred "two" with a bold "w", and an item "three".
struct RtfWriterSelection : testing::Test
{
    RtfWriterSelection()
    {
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        QTextCursor cursor(&document);
        cursor.insertText(QStringLiteral("one"));
        cursor.insertBlock(centred);
        cursor.insertText(QStringLiteral("t"));
        cursor.insertText(QStringLiteral("w"), bold);
        cursor.insertText(QStringLiteral("o"), QTextCharFormat());
        cursor.insertBlock(QTextBlockFormat());
        QTextListFormat format;
        format.setIndent(0);
        cursor.createList(format);
        cursor.insertText(QStringLiteral("three"));
    }

    QByteArray selected(int from, int to) const
    {
        QTextCursor cursor(document.rootFrame()->firstCursorPosition());
        cursor.setPosition(to);
        cursor.setPosition(from, QTextCursor::KeepAnchor);
        return bodyOf(RtfWriter::writeSelection(cursor));
    }

    PlainDocument document;
};

} // namespace

TEST_F(RtfWriterSelection, OfNothingIsADocumentWithoutText)
{
    EXPECT_EQ(selected(2, 2), QByteArray());
    EXPECT_EQ(selected(13, 13), QByteArray());
}

TEST_F(RtfWriterSelection, InsideAParagraphHasNoEnd)
{
    EXPECT_EQ(selected(1, 3), QByteArray("ne"));
    EXPECT_EQ(selected(5, 6), QByteArray("{\\b w}"));
}

TEST_F(RtfWriterSelection, TakesThePropertiesOfAParagraphWithItsEnd)
{
    EXPECT_EQ(selected(5, 8), QByteArray("\\pard\\qc{\\b w}o\\par\n"));
    EXPECT_EQ(selected(1, 5), QByteArray("ne\\par\nt"));
    EXPECT_EQ(selected(6, 10), QByteArray("\\pard\\qc o\\par\n\\pard th"));
}

TEST_F(RtfWriterSelection, OfAnEndAloneIsAnEmptyParagraph)
{
    EXPECT_EQ(selected(3, 4), QByteArray("\\par\n"));
}

TEST_F(RtfWriterSelection, OfAllIsTheDocument)
{
    EXPECT_EQ(selected(0, 13), bodyOf(document));
}

TEST_F(RtfWriterSelection, OfPartOfTheLastParagraphHasNoEnd)
{
    EXPECT_EQ(selected(9, 13), QByteArray("hree"));
}

TEST_F(RtfWriterSelection, NamesOnlyWhatItUses)
{
    QTextCharFormat format;
    format.setForeground(Qt::red);
    format.setFontFamilies({QStringLiteral("Courier New")});
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("x"), format);
    cursor.setPosition(2);
    cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor);
    EXPECT_EQ(RtfWriter::writeSelection(cursor),
              QByteArray("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil "
                         "Arial;}}\n{\\*\\generator Quill-Office Tools;}\nn}\n"));
}
