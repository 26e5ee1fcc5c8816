#include "RichTextFixture.h"
#include "RuntimeError.h"

#include <QAbstractTextDocumentLayout>
#include <QTextTable>

namespace {

class Text : public RichTextFixture
{};

} // namespace

TEST_F(Text, IsEmptyAtFirst)
{
    EXPECT_EQ(box.Text(), QString());
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(box.SelLength(), 0);
    EXPECT_EQ(box.SelText(), QString());
    EXPECT_FALSE(box.document()->isUndoAvailable());
}

TEST_F(Text, LinesEndInLineFeeds)
{
    box.setText(QStringLiteral("a\r\nb\rc\nd"));
    EXPECT_EQ(box.Text(), QStringLiteral("a\nb\nc\nd"));
    box.setText(QStringLiteral("a\u2028b"));
    EXPECT_EQ(box.Text(), QStringLiteral("a\nb"));
}

TEST_F(Text, SelectionIsAStretchOfText)
{
    box.setText(QStringLiteral("one\ntwo\u00A0three"));
    select(2, 9);
    EXPECT_EQ(box.SelText(), box.Text().mid(2, 7));
    EXPECT_EQ(box.SelStart(), 2);
    EXPECT_EQ(box.SelLength(), 7);
}

TEST_F(Text, SelectionOverATableIsAStretchOfText)
{
    box.setText(QStringLiteral("before"));
    box.setSelStart(6);
    const auto *table = box.textCursor().insertTable(2, 2);
    table->cellAt(0, 1).firstCursorPosition().insertText(QStringLiteral("x"));
    box.setSelStart(table->cellAt(0, 0).firstPosition());
    box.setSelLength(3);
    EXPECT_EQ(box.SelText(), box.Text().mid(box.SelStart(), box.SelLength()));
}

TEST_F(Text, PositionsEndAtTheTextsEnd)
{
    box.setText(QStringLiteral("text"));
    box.setSelStart(100);
    EXPECT_EQ(box.SelStart(), 4);
    box.setSelStart(1);
    box.setSelLength(std::numeric_limits<int>::max());
    EXPECT_EQ(box.SelText(), QStringLiteral("ext"));
}

TEST_F(Text, NegativePositionsAreRefused)
{
    box.setText(QStringLiteral("text"));
    select(1, 3);
    EXPECT_THROW(box.setSelStart(-1), RuntimeError);
    EXPECT_THROW(box.setSelLength(-1), RuntimeError);
    EXPECT_EQ(box.SelText(), QStringLiteral("ex"));
}

TEST_F(Text, SettingTheStartEndsTheSelection)
{
    box.setText(QStringLiteral("text"));
    select(1, 3);
    box.setSelStart(2);
    EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(Text, SelTextReplacesInOneStep)
{
    box.setText(QStringLiteral("one two"));
    select(4, 7);
    box.setSelText(QStringLiteral("three\nfour"));
    EXPECT_EQ(box.Text(), QStringLiteral("one three\nfour"));
    EXPECT_EQ(box.SelStart(), 14);
    box.undo();
    EXPECT_EQ(box.Text(), QStringLiteral("one two"));
    EXPECT_FALSE(box.document()->isUndoAvailable());
}

TEST_F(Text, SelTextTakesTheFormatAtTheCaret)
{
    box.setText(QStringLiteral("one"));
    box.setSelStart(3);
    box.setSelBold(true);
    box.setSelText(QStringLiteral("two"));
    select(3, 6);
    EXPECT_EQ(box.SelBold(), true);
}

TEST_F(Text, SelRtfCarriesFormats)
{
    box.setText(QStringLiteral("one two"));
    select(4, 7);
    box.setSelBold(true);
    const QByteArray rich = box.SelRTF();
    box.setText(QStringLiteral("ab"));
    box.setSelStart(1);
    box.setSelRTF(rich);
    EXPECT_EQ(box.Text(), QStringLiteral("atwob"));
    select(1, 4);
    EXPECT_EQ(box.SelBold(), true);
    select(0, 5);
    EXPECT_EQ(box.SelBold(), std::nullopt);
}

TEST_F(Text, SelRtfReplacesInOneStep)
{
    box.setText(QStringLiteral("one two"));
    select(0, 3);
    const QByteArray rich = box.SelRTF();
    select(4, 7);
    box.setSelRTF(rich);
    EXPECT_EQ(box.Text(), QStringLiteral("one one"));
    box.undo();
    EXPECT_EQ(box.Text(), QStringLiteral("one two"));
}

TEST_F(Text, SelRtfTakesPlainTextAsItIs)
{
    box.setText(QStringLiteral("ab"));
    box.setSelStart(1);
    box.setSelRTF("1 {2} \xE2\x82\xAC");
    EXPECT_EQ(box.Text(), QString::fromUtf8("a1 {2} €b"));
}

TEST_F(Text, ANewTextHasNothingToUndo)
{
    box.setText(QStringLiteral("one"));
    box.setSelText(QStringLiteral("x"));
    EXPECT_TRUE(box.document()->isUndoAvailable());
    box.setTextRTF(box.TextRTF());
    EXPECT_FALSE(box.document()->isUndoAvailable());
    EXPECT_EQ(box.Text(), QStringLiteral("xone"));
    EXPECT_EQ(box.SelStart(), 0);
}

TEST_F(Text, ARunOfTypingIsOneStep)
{
    box.setText({});
    QTest::keyClicks(&box, QStringLiteral("abc"));
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_EQ(box.Text(), QStringLiteral("abc\t"));
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), QString());
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(box.Text(), QStringLiteral("abc\t"));
}

TEST_F(Text, ALoadIsOneChange)
{
    const QSignalSpy changes(&box, &RichTextBox::Change);
    box.setText(QStringLiteral("text"));
    EXPECT_EQ(changes.size(), 1);
    box.setTextRTF(box.TextRTF());
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(Text, EveryEditIsAChange)
{
    box.setText(QStringLiteral("one two"));
    QSignalSpy changes(&box, &RichTextBox::Change);
    const auto expectChange = [&](const char *what) {
        EXPECT_GE(changes.size(), 1) << what;
        changes.clear();
    };
    QTest::keyClick(&box, Qt::Key_A);
    expectChange("key");
    box.undo();
    expectChange("undo");
    select(0, 3);
    box.setSelBold(true);
    expectChange("format");
    box.setSelIndent(100);
    expectChange("paragraph");
    box.setSelText(QStringLiteral("x"));
    expectChange("text");
}

TEST_F(Text, SelectingAndPaintingLinksIsNoChange)
{
    box.setText(QStringLiteral("see www.example.org"));
    show();
    const QSignalSpy changes(&box, &RichTextBox::Change);
    box.setAutoURLDetection(true);
    box.grab();
    select(0, 3);
    box.grab();
    box.setAutoURLDetection(false);
    box.grab();
    EXPECT_EQ(changes.size(), 0);
    EXPECT_FALSE(box.document()->isModified());
}

TEST_F(Text, AChangeIsReportedWhenTheTextIsLaidOut)
{
    box.setText(QStringLiteral("one"));
    show();
    double height = 0;
    QObject::connect(&box, &RichTextBox::Change, &box,
                     [&] { height = box.document()->documentLayout()->documentSize().height(); });
    const double before = box.document()->documentLayout()->documentSize().height();
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_GT(height, before);
}

TEST_F(Text, EveryMoveOfTheSelectionIsReported)
{
    box.setText(QStringLiteral("one two"));
    QSignalSpy moves(&box, &RichTextBox::SelChange);
    QTest::keyClick(&box, Qt::Key_Right);
    EXPECT_GE(moves.size(), 1);
    moves.clear();
    QTest::keyClick(&box, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_GE(moves.size(), 1);
    moves.clear();
    box.selectAll();
    EXPECT_GE(moves.size(), 1);
    moves.clear();
    box.setSelStart(3);
    EXPECT_GE(moves.size(), 1);
}

TEST_F(Text, LockedKeepsTheUserFromEditing)
{
    box.setText(QStringLiteral("one two"));
    box.setLocked(true);
    EXPECT_TRUE(box.Locked());
    QTest::keyClicks(&box, QStringLiteral("x"));
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), QStringLiteral("one two"));
    QTest::keyClick(&box, Qt::Key_Right);
    QTest::keyClick(&box, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(box.SelText(), QStringLiteral("n"));
    box.setLocked(false);
    QTest::keyClicks(&box, QStringLiteral("x"));
    EXPECT_EQ(box.Text(), QStringLiteral("oxe two"));
}

TEST_F(Text, FocusIsReported)
{
    const QSignalSpy focus(&box, &RichTextBox::GotFocus);
    QFocusEvent in(QEvent::FocusIn);
    QCoreApplication::sendEvent(&box, &in);
    EXPECT_EQ(focus.size(), 1);
}

TEST_F(Text, RightMarginIsTheWidthOverTheWholeControl)
{
    QString line;
    for (int i = 0; i < 60; ++i)
        line += QStringLiteral("word ");
    box.setText(line.repeated(40));
    show();
    EXPECT_EQ(box.RightMargin(), 0);
    box.setRightMargin(400 * 15);
    EXPECT_EQ(box.RightMargin(), 6000);
    EXPECT_EQ(box.document()->pageSize().width(), box.viewport()->width());
    box.setRightMargin(800 * 15);
    EXPECT_EQ(box.document()->pageSize().width(), box.viewport()->width() + 400);
    box.setText(QStringLiteral("other"));
    EXPECT_GE(box.document()->pageSize().width(), 780);
    EXPECT_THROW(box.setRightMargin(-1), RuntimeError);
    box.setRightMargin(0);
    EXPECT_EQ(box.document()->pageSize().width(), box.viewport()->width());
}

TEST_F(Text, PaperIsWhiteOnADarkDesktop)
{
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Highlight, QColor(1, 2, 3));
    QApplication::setPalette(dark);
    box.setText({});
    show();
    EXPECT_EQ(box.viewport()->grab().toImage().pixelColor(200, 200), QColor(Qt::white));
    EXPECT_EQ(box.palette().color(QPalette::Text), QColor(Qt::black));
    EXPECT_EQ(box.palette().color(QPalette::Highlight), QColor(1, 2, 3));
    QApplication::setPalette(before);
}

TEST_F(Text, HasAnAccessibleName)
{
    EXPECT_FALSE(box.accessibleName().isEmpty());
}
