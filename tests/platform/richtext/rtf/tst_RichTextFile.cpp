#include "ErrorNumberOf.h"
#include "Files.h"
#include "FullDisk.h"
#include "RichTextFile.h"
#include "ScratchHome.h"

#include <QDir>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <gtest/gtest.h>

using RichTextFile::Format;

namespace {

struct RichTextFileTest : testing::Test
{
    RichTextFile::Loaded load(const QByteArray &bytes)
    {
        Files::write(path, bytes);
        return RichTextFile::load(path, document);
    }

    ScratchHome home;
    QString path = home.file(QStringLiteral("note"));
    QTextDocument document;
};

} // namespace

TEST_F(RichTextFileTest, LoadsRichText)
{
    const RichTextFile::Loaded loaded = load("{\\rtf1 one\\par two}");
    EXPECT_EQ(loaded.format, Format::Rtf);
    EXPECT_EQ(document.toPlainText(), QStringLiteral("one\ntwo"));
}

TEST_F(RichTextFileTest, LoadsWhatIsNotRichTextAsPlainText)
{
    const RichTextFile::Loaded loaded = load("caf\xC3\xA9\r\n{\\b x}\r\n");
    EXPECT_EQ(loaded.format, Format::Text);
    EXPECT_EQ(loaded.lineEnd, PlainText::LineEnd::CrLf);
    EXPECT_EQ(document.toPlainText(), QString::fromUtf16(u"caf\u00e9\n{\\b x}\n"));
}

TEST_F(RichTextFileTest, LoadsAnEmptyFile)
{
    EXPECT_EQ(load("").format, Format::Text);
    EXPECT_TRUE(document.isEmpty());
}

TEST_F(RichTextFileTest, LeavesNothingToUndo)
{
    for (const char *bytes : {"plain", "{\\rtf1 rich}"}) {
        document.clear();
        load(bytes);
        EXPECT_TRUE(document.isUndoRedoEnabled());
        EXPECT_FALSE(document.isUndoAvailable());
        EXPECT_FALSE(document.isModified());
    }
}

TEST_F(RichTextFileTest, LeavesTheDocumentAloneWhenTheFileIsMissing)
{
    document.setPlainText(QStringLiteral("old"));
    EXPECT_EQ(errorNumberOf([&] { RichTextFile::load(path, document); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(document.toPlainText(), QStringLiteral("old"));
}

TEST_F(RichTextFileTest, RefusesAFolder)
{
    EXPECT_EQ(errorNumberOf([&] { RichTextFile::load(home.path(), document); }),
              ErrorNumber::PathFileAccessError);
}

TEST_F(RichTextFileTest, SavesPlainTextWithItsLineEnds)
{
    document.setPlainText(QStringLiteral("one\ntwo\n"));
    RichTextFile::save(path, document, Format::Text, PlainText::LineEnd::CrLf);
    EXPECT_EQ(Files::read(path), QByteArray("one\r\ntwo\r\n"));
}

TEST_F(RichTextFileTest, SavesRichTextThatLoadsAgain)
{
    QTextCursor(&document).insertText(QStringLiteral("one\n{two}"));
    RichTextFile::save(path, document, Format::Rtf, PlainText::LineEnd::CrLf);
    QTextDocument again;
    EXPECT_EQ(RichTextFile::load(path, again).format, Format::Rtf);
    EXPECT_EQ(again.toPlainText(), QStringLiteral("one\n{two}"));
}

TEST_F(RichTextFileTest, LeavesTheOldFileWholeOnAFullDisk)
{
    Files::write(path, "old");
    document.setPlainText(QString(10000, u'x'));
    {
        const FullDisk disk(100);
        EXPECT_NE(
            errorNumberOf([&] { RichTextFile::save(path, document, Format::Rtf, PlainText::LineEnd::Lf); }),
            0);
    }
    EXPECT_EQ(Files::read(path), QByteArray("old"));
    EXPECT_EQ(QDir(home.path()).entryList(QDir::Files), QStringList(QStringLiteral("note")));
}

TEST_F(RichTextFileTest, TextHasOneCharacterForEachPosition)
{
    QTextCursor cursor(&document);
    cursor.insertText(QString::fromUtf16(u"a\u00a0b\u2028\U0001F600"));
    cursor.insertTable(1, 2)->cellAt(0, 1).firstCursorPosition().insertText(QStringLiteral("x"));
    const QString text = RichTextFile::text(document);
    EXPECT_EQ(text, QString::fromUtf16(u"a\u00a0b\n\U0001F600\n\nx\n"));
    EXPECT_EQ(text.size(), document.characterCount() - 1);
}

TEST_F(RichTextFileTest, TextKeepsThePlacesOfPictures)
{
    QTextCursor(&document).insertImage(QStringLiteral("none"));
    EXPECT_EQ(RichTextFile::text(document), QString(QChar(QChar::ObjectReplacementCharacter)));
}
