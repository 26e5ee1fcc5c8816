#include "ParagraphFormat.h"
#include "RichTextFixture.h"
#include "RuntimeError.h"

#include <QTextList>

namespace {

class Paragraphs : public RichTextFixture
{
protected:
    Paragraphs() { box.setText(QStringLiteral("one\ntwo\nthree")); }

    /// Makes \a change on everything and expects that one undo takes it back.
    void expectOneStep(const std::function<void()> &change)
    {
        select(0, 13);
        const QByteArray before = box.TextRTF();
        change();
        EXPECT_NE(box.TextRTF(), before);
        box.undo();
        EXPECT_EQ(box.TextRTF(), before);
    }
};

constexpr int markWidth = 240;

class Lengths : public Paragraphs, public ::testing::WithParamInterface<int>
{};

} // namespace

TEST_F(Paragraphs, AlignmentIsLeftAtFirst)
{
    EXPECT_EQ(box.SelAlignment(), 0);
}

TEST_F(Paragraphs, AlignmentsMix)
{
    for (const int alignment : {0, 1, 2}) {
        box.setSelStart(5);
        box.setSelAlignment(alignment);
        EXPECT_EQ(box.SelAlignment(), alignment);
        select(0, 13);
        EXPECT_EQ(box.SelAlignment(), alignment == 0 ? std::optional(0) : std::nullopt);
    }
}

TEST_F(Paragraphs, JustifiedCountsAsLeft)
{
    QTextBlockFormat justified;
    justified.setAlignment(Qt::AlignJustify);
    box.textCursor().mergeBlockFormat(justified);
    EXPECT_EQ(box.SelAlignment(), 0);
}

TEST_F(Paragraphs, AlignmentIsThatOnThePaper)
{
    box.setText(QString::fromUtf8("שלום"));
    EXPECT_EQ(box.SelAlignment(), 1);
    box.setSelAlignment(0);
    EXPECT_EQ(box.SelAlignment(), 0);
    box.setSelAlignment(1);
    EXPECT_EQ(box.SelAlignment(), 1);
}

TEST_F(Paragraphs, UnknownAlignmentsAreRefused)
{
    for (const int alignment : {-1, 3, 100}) {
        try {
            box.setSelAlignment(alignment);
            ADD_FAILURE() << alignment;
        } catch (const RuntimeError &error) {
            EXPECT_EQ(error.number(), ErrorNumber::InvalidPropertyValue);
        }
    }
    EXPECT_EQ(box.SelAlignment(), 0);
}

TEST_F(Paragraphs, EverySettingIsOneStep)
{
    expectOneStep([&] { box.setSelAlignment(2); });
    expectOneStep([&] { box.setSelIndent(100); });
    expectOneStep([&] { box.setSelRightIndent(100); });
    expectOneStep([&] { box.setSelBullet(true); });
}

TEST_P(Lengths, IndentsAreExact)
{
    select(0, 13);
    box.setSelIndent(GetParam());
    box.setSelRightIndent(GetParam());
    EXPECT_EQ(box.SelIndent(), GetParam());
    EXPECT_EQ(box.SelRightIndent(), GetParam());
    box.setTextRTF(box.TextRTF());
    EXPECT_EQ(box.SelIndent(), GetParam());
    EXPECT_EQ(box.SelRightIndent(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, Lengths, ::testing::Values(0, 5, 7, 567, -300, 32767, -32767));

TEST_F(Paragraphs, IndentsBeyondTheFormatAreRefused)
{
    EXPECT_THROW(box.setSelIndent(32768), RuntimeError);
    EXPECT_THROW(box.setSelRightIndent(-32768), RuntimeError);
    EXPECT_EQ(box.SelIndent(), 0);
}

TEST_F(Paragraphs, IndentsMix)
{
    box.setSelStart(5);
    box.setSelIndent(567);
    select(0, 13);
    EXPECT_EQ(box.SelIndent(), std::nullopt);
    EXPECT_EQ(box.SelRightIndent(), 0);
    box.setSelIndent(5);
    EXPECT_EQ(box.SelIndent(), 5);
}

TEST_F(Paragraphs, IndentKeepsTheHangingLines)
{
    QTextBlockFormat hanging;
    ParagraphFormat::setIndents(hanging, 720, 0, -360);
    box.textCursor().mergeBlockFormat(hanging);
    EXPECT_EQ(box.SelIndent(), 360);
    box.setSelIndent(100);
    EXPECT_EQ(box.SelIndent(), 100);
    EXPECT_EQ(ParagraphFormat::leftIndent(paragraph(0).blockFormat()), 460);
    EXPECT_EQ(ParagraphFormat::firstLineIndent(paragraph(0).blockFormat()), -360);
}

TEST_F(Paragraphs, ASelectionThatEndsBeforeAParagraphLeavesIt)
{
    select(0, 4);
    box.setSelIndent(100);
    box.setSelStart(4);
    EXPECT_EQ(box.SelIndent(), 0);
}

TEST_F(Paragraphs, BulletsMix)
{
    EXPECT_EQ(box.SelBullet(), false);
    box.setSelStart(5);
    box.setSelBullet(true);
    EXPECT_EQ(box.SelBullet(), true);
    select(0, 13);
    EXPECT_EQ(box.SelBullet(), std::nullopt);
    box.setSelBullet(false);
    EXPECT_EQ(box.SelBullet(), false);
}

TEST_F(Paragraphs, ABulletHangsTheTextByItsIndent)
{
    box.setSelIndent(100);
    box.setBulletIndent(50);
    box.setSelBullet(true);
    const QTextBlockFormat format = paragraph(0).blockFormat();
    EXPECT_EQ(ParagraphFormat::leftIndent(format), 100 + 50 + markWidth);
    EXPECT_EQ(ParagraphFormat::firstLineIndent(format), -(50 + markWidth));
    EXPECT_EQ(box.SelIndent(), 100);
    box.setSelBullet(false);
    EXPECT_EQ(box.SelIndent(), 100);
    EXPECT_EQ(ParagraphFormat::leftIndent(paragraph(0).blockFormat()), 100);
    EXPECT_EQ(ParagraphFormat::firstLineIndent(paragraph(0).blockFormat()), 0);
}

TEST_F(Paragraphs, ABulletKeepsTheIndentsOfTheParagraph)
{
    box.setSelRightIndent(300);
    box.setSelAlignment(2);
    box.setSelBullet(true);
    EXPECT_EQ(box.SelRightIndent(), 300);
    EXPECT_EQ(box.SelAlignment(), 2);
}

TEST_F(Paragraphs, NeighboursShareOneList)
{
    box.setSelStart(0);
    box.setSelBullet(true);
    box.setSelStart(9);
    box.setSelBullet(true);
    EXPECT_NE(paragraph(0).textList(), paragraph(2).textList());
    box.setSelStart(5);
    box.setSelBullet(true);
    EXPECT_EQ(paragraph(0).textList(), paragraph(1).textList());
    box.setText(QStringLiteral("one\ntwo"));
    box.setSelStart(5);
    box.setSelBullet(true);
    box.setSelStart(0);
    box.setSelBullet(true);
    EXPECT_EQ(paragraph(0).textList(), paragraph(1).textList());
}

TEST_F(Paragraphs, AMixedSelectionOfBulletsBecomesOneList)
{
    box.setSelStart(5);
    box.setSelBullet(true);
    select(0, 13);
    box.setBulletIndent(30);
    box.setSelBullet(true);
    EXPECT_EQ(box.SelBullet(), true);
    EXPECT_EQ(box.SelIndent(), 0);
    for (int number : {0, 1, 2})
        EXPECT_EQ(ParagraphFormat::leftIndent(paragraph(number).blockFormat()), 30 + markWidth) << number;
    EXPECT_EQ(paragraph(0).textList(), paragraph(2).textList());
}

TEST_F(Paragraphs, ANumberedParagraphHasNoBullet)
{
    select(0, 13);
    QTextList *numbers = box.textCursor().createList(QTextListFormat::ListDecimal);
    EXPECT_EQ(box.SelBullet(), false);
    box.setSelBullet(false);
    EXPECT_EQ(numbers->count(), 3);
    box.setSelStart(5);
    box.setSelBullet(true);
    EXPECT_EQ(box.SelBullet(), true);
    EXPECT_EQ(numbers->count(), 2);
}

TEST_F(Paragraphs, CirclesAndSquaresAreBullets)
{
    box.textCursor().createList(QTextListFormat::ListCircle);
    EXPECT_EQ(box.SelBullet(), true);
    box.setSelBullet(false);
    EXPECT_EQ(box.SelBullet(), false);
}

TEST_F(Paragraphs, BulletIndentIsTheControls)
{
    EXPECT_EQ(box.BulletIndent(), 0);
    box.setBulletIndent(45);
    EXPECT_EQ(box.BulletIndent(), 45);
    EXPECT_THROW(box.setBulletIndent(-5), RuntimeError);
    EXPECT_EQ(box.BulletIndent(), 45);
    box.setText(QStringLiteral("other"));
    EXPECT_EQ(box.BulletIndent(), 45);
}

TEST_F(Paragraphs, BackspaceBeforeAnItemEndsItsList)
{
    box.setSelIndent(100);
    box.setSelBullet(true);
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.SelBullet(), false);
    EXPECT_EQ(box.SelIndent(), 100);
    EXPECT_EQ(box.Text(), QStringLiteral("one\ntwo\nthree"));
    EXPECT_EQ(paragraph(0).blockFormat().leftMargin(), 7);
}

TEST_F(Paragraphs, ReturnInAnEmptyItemEndsTheList)
{
    box.setSelStart(3);
    box.setSelBullet(true);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.SelBullet(), true);
    EXPECT_EQ(box.document()->blockCount(), 4);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.SelBullet(), false);
    EXPECT_EQ(box.document()->blockCount(), 4);
}

TEST_F(Paragraphs, EnterOnTheKeypadEndsTheListToo)
{
    box.setSelStart(3);
    box.setSelBullet(true);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(&box, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(box.SelBullet(), false);
    EXPECT_EQ(box.document()->blockCount(), 4);
}

TEST_F(Paragraphs, ReturnInAnEmptyOneMakesAnotherThatLooksTheSame)
{
    box.setTextRTF("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\qc\\f0\\fs30\\b one\\par\\par}");
    box.setSelStart(4);
    const QByteArray before = box.TextRTF();
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.SelStart(), 5);
    EXPECT_EQ(box.SelBold(), true);
    EXPECT_EQ(paragraph(2).blockFormat(), paragraph(1).blockFormat());
    EXPECT_EQ(paragraph(2).charFormat(), paragraph(1).charFormat());
    box.undo();
    EXPECT_EQ(box.TextRTF(), before);
    EXPECT_FALSE(box.document()->isUndoAvailable());
}

TEST_F(Paragraphs, ReturnInAnEmptyOneOfALockedTextDoesNothing)
{
    box.setText(QString());
    box.setLocked(true);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.document()->blockCount(), 1);
}

TEST_F(Paragraphs, ALockedListStays)
{
    box.setSelBullet(true);
    box.setLocked(true);
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.SelBullet(), true);
}

TEST_F(Paragraphs, ManyBulletsComeAndGo)
{
    constexpr int count = 5000;
    box.setText(QStringLiteral("item\n").repeated(count));
    box.selectAll();
    box.setSelBullet(true);
    EXPECT_EQ(box.SelBullet(), true);
    EXPECT_NE(paragraph(count / 2).textList(), nullptr);
    box.undo();
    box.selectAll();
    EXPECT_EQ(box.SelBullet(), false);
    box.setSelBullet(true);
    box.setSelBullet(false);
    EXPECT_EQ(box.SelBullet(), false);
}
