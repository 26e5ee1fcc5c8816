#include "Files.h"
#include "RichTextFixture.h"
#include "RuntimeError.h"

#include <QTemporaryDir>

namespace {

class FilesOfBox : public RichTextFixture
{
protected:
    QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }
    int errorOf(const std::function<void()> &step)
    {
        try {
            step();
        } catch (const RuntimeError &error) {
            return error.number();
        }
        return 0;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(FilesOfBox, RichTextComesBackAsItWas)
{
    box.setText(QString::fromUtf8("one\ntwo € \\ {braces}\n"));
    select(4, 7);
    box.setSelBold(true);
    box.setSelColor(Qt::blue);
    box.setSelAlignment(2);
    const QByteArray rich = box.TextRTF();
    box.SaveFile(path("a.rtf"), RichTextFile::Format::Rtf);
    EXPECT_EQ(Files::read(path("a.rtf")), rich);

    RichTextBox other;
    other.LoadFile(path("a.rtf"));
    EXPECT_EQ(other.Text(), box.Text());
    EXPECT_EQ(other.TextRTF(), rich);
    EXPECT_FALSE(other.document()->isUndoAvailable());
    EXPECT_EQ(other.SelStart(), 0);
}

TEST_F(FilesOfBox, APlainFileKeepsItsLineEnds)
{
    Files::write(path("a.txt"), "one\r\ntwo\r\n");
    box.LoadFile(path("a.txt"));
    EXPECT_EQ(box.Text(), QStringLiteral("one\ntwo\n"));
    box.SaveFile(path("b.txt"), RichTextFile::Format::Text);
    EXPECT_EQ(Files::read(path("b.txt")), "one\r\ntwo\r\n");
}

TEST_F(FilesOfBox, ANewTextHasLineFeedsOfItsOwn)
{
    Files::write(path("a.txt"), "one\r\ntwo\r\n");
    box.LoadFile(path("a.txt"));
    box.setText(QStringLiteral("x\ny"));
    box.SaveFile(path("b.txt"), RichTextFile::Format::Text);
    EXPECT_EQ(Files::read(path("b.txt")), "x\ny");
}

TEST_F(FilesOfBox, AFailedLoadLeavesTheContent)
{
    box.setText(QStringLiteral("kept"));
    box.setSelText(QStringLiteral("x"));
    const QSignalSpy changes(&box, &RichTextBox::Change);
    EXPECT_EQ(errorOf([&] { box.LoadFile(path("missing.rtf")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorOf([&] { box.LoadFile(folder.path()); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(box.Text(), QStringLiteral("xkept"));
    EXPECT_TRUE(box.document()->isUndoAvailable());
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(FilesOfBox, AFailedSaveLeavesFileAndContent)
{
    box.setText(QStringLiteral("text"));
    EXPECT_EQ(errorOf([&] { box.SaveFile(path("none/a.rtf"), RichTextFile::Format::Rtf); }),
              ErrorNumber::PathNotFound);
    EXPECT_EQ(box.Text(), QStringLiteral("text"));
}

TEST_F(FilesOfBox, ALoadIsOneChange)
{
    Files::write(path("a.txt"), "text");
    const QSignalSpy changes(&box, &RichTextBox::Change);
    box.LoadFile(path("a.txt"));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(FilesOfBox, WhatIsLoadedCanBeEditedAndUndone)
{
    Files::write(path("a.txt"), "text");
    box.LoadFile(path("a.txt"));
    QTest::keyClicks(&box, QStringLiteral("x"));
    EXPECT_EQ(box.Text(), QStringLiteral("xtext"));
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), QStringLiteral("text"));
}

TEST_F(FilesOfBox, ALoadedDocumentHasTheStandardFont)
{
    Files::write(path("a.txt"), "text");
    box.LoadFile(path("a.txt"));
    EXPECT_EQ(box.SelFontName(), QStringLiteral("Liberation Sans"));
    EXPECT_EQ(box.SelFontSize(), 10);
}
