#include "RichTextFixture.h"
#include "RuntimeError.h"

#include <QTextTable>
#include <cmath>
#include <limits>

namespace {

struct Toggle
{
    const char *name;
    std::optional<bool> (RichTextBox::*get)() const;
    void (RichTextBox::*set)(bool);
};

class CharacterToggle : public RichTextFixture, public ::testing::WithParamInterface<Toggle>
{
protected:
    std::optional<bool> get() { return (box.*GetParam().get)(); }
    void set(bool on) { (box.*GetParam().set)(on); }
};

class CharacterFormat : public RichTextFixture
{};

int errorOf(const std::function<void()> &step)
{
    try {
        step();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    All, CharacterToggle,
    ::testing::Values(Toggle{"Bold", &RichTextBox::SelBold, &RichTextBox::setSelBold},
                      Toggle{"Italic", &RichTextBox::SelItalic, &RichTextBox::setSelItalic},
                      Toggle{"Underline", &RichTextBox::SelUnderline, &RichTextBox::setSelUnderline},
                      Toggle{"StrikeThru", &RichTextBox::SelStrikeThru, &RichTextBox::setSelStrikeThru}),
    [](const auto &row) { return row.param.name; });

TEST_P(CharacterToggle, IsFalseAtFirst)
{
    box.setText(QStringLiteral("one two"));
    EXPECT_EQ(get(), false);
    select(0, 7);
    EXPECT_EQ(get(), false);
}

TEST_P(CharacterToggle, IsMixedOverBoth)
{
    box.setText(QStringLiteral("one two"));
    select(0, 3);
    set(true);
    EXPECT_EQ(get(), true);
    select(0, 7);
    EXPECT_EQ(get(), std::nullopt);
    select(3, 7);
    EXPECT_EQ(get(), false);
}

TEST_P(CharacterToggle, SettingAMixedSelectionMakesItOne)
{
    box.setText(QStringLiteral("one two\nthree"));
    select(2, 5);
    set(true);
    select(0, 13);
    set(true);
    EXPECT_EQ(get(), true);
    set(false);
    EXPECT_EQ(get(), false);
}

TEST_P(CharacterToggle, IsOneUndoStep)
{
    box.setText(QStringLiteral("one\ntwo\nthree"));
    select(4, 6);
    set(true);
    const QByteArray before = box.TextRTF();
    select(0, 13);
    set(true);
    EXPECT_NE(box.TextRTF(), before);
    box.undo();
    EXPECT_EQ(box.TextRTF(), before);
}

TEST_P(CharacterToggle, IsTypedOnAtACaret)
{
    box.setText(QStringLiteral("ab"));
    box.setSelStart(1);
    set(true);
    EXPECT_EQ(get(), true);
    QTest::keyClicks(&box, QStringLiteral("xy"));
    EXPECT_EQ(box.Text(), QStringLiteral("axyb"));
    select(1, 3);
    EXPECT_EQ(get(), true);
    select(0, 4);
    EXPECT_EQ(get(), std::nullopt);
}

TEST_P(CharacterToggle, IsAskedAnewAfterAnUndo)
{
    box.setText(QStringLiteral("one two"));
    select(0, 7);
    set(true);
    EXPECT_EQ(get(), true);
    box.undo();
    select(0, 7);
    EXPECT_EQ(get(), false);
}

TEST_P(CharacterToggle, IsAskedAnewInAnotherDocument)
{
    box.setText(QStringLiteral("one"));
    select(0, 3);
    EXPECT_EQ(get(), false);
    set(true);
    EXPECT_EQ(get(), true);
    const QByteArray rich = box.TextRTF();
    box.setText(QStringLiteral("one"));
    select(0, 3);
    EXPECT_EQ(get(), false);
    box.setTextRTF(rich);
    select(0, 3);
    EXPECT_EQ(get(), true);
}

TEST_F(CharacterFormat, SelectedParagraphEndsAloneHaveTheFormatTypedThere)
{
    box.setText(QStringLiteral("a\n\n\nb"));
    select(2, 3);
    EXPECT_EQ(box.SelBold(), false);
    EXPECT_TRUE(box.SelFontSize().has_value());
}

/// Qt gives the caret in a new document the format that was chosen for typing in the old one.
TEST_F(CharacterFormat, OfTheCaretIsNotThatOfTheDocumentBefore)
{
    box.setText(QStringLiteral("a"));
    box.setSelStart(1);
    box.setSelBold(true);
    box.setText(QStringLiteral("b"));
    QTest::keyClick(&box, Qt::Key_X);
    select(0, 1);
    EXPECT_EQ(box.SelText(), QStringLiteral("x"));
    EXPECT_EQ(box.SelBold(), false);
}

TEST_F(CharacterFormat, UnsetColorIsBlack)
{
    box.setText(QStringLiteral("text"));
    EXPECT_EQ(box.SelColor(), QColor(Qt::black));
}

TEST_F(CharacterFormat, ColorsMix)
{
    box.setText(QStringLiteral("one two"));
    select(0, 3);
    box.setSelColor(Qt::red);
    EXPECT_EQ(box.SelColor(), QColor(Qt::red));
    select(0, 7);
    EXPECT_EQ(box.SelColor(), std::nullopt);
    EXPECT_EQ(errorOf([&] { box.setSelColor(QColor()); }), ErrorNumber::InvalidPropertyValue);
}

TEST_F(CharacterFormat, FontIsTheDocumentsWhereUnset)
{
    box.setText(QStringLiteral("text"));
    EXPECT_EQ(box.SelFontName(), QStringLiteral("Liberation Sans"));
    EXPECT_EQ(box.SelFontSize(), 10);
}

TEST_F(CharacterFormat, FontIsNotTheDesktops)
{
    QWidget parent;
    box.setText(QStringLiteral("text"));
    parent.setFont(QFont(QStringLiteral("DejaVu Serif"), 20));
    box.setParent(&parent);
    EXPECT_EQ(box.SelFontName(), QStringLiteral("Liberation Sans"));
    EXPECT_EQ(box.SelFontSize(), 10);
    EXPECT_EQ(box.document()->defaultFont().pointSize(), 10);
    box.setParent(nullptr);
}

TEST_F(CharacterFormat, FontNamesAndSizesMix)
{
    box.setText(QStringLiteral("one two"));
    select(0, 3);
    box.setSelFontName(QStringLiteral("Liberation Serif"));
    box.setSelFontSize(12.5);
    EXPECT_EQ(box.SelFontName(), QStringLiteral("Liberation Serif"));
    EXPECT_EQ(box.SelFontSize(), 12.5);
    select(0, 7);
    EXPECT_EQ(box.SelFontName(), std::nullopt);
    EXPECT_EQ(box.SelFontSize(), std::nullopt);
}

TEST_F(CharacterFormat, OneStateMayBeMixedAndAnotherNot)
{
    box.setText(QStringLiteral("one two"));
    select(0, 3);
    box.setSelBold(true);
    select(0, 7);
    box.setSelItalic(true);
    EXPECT_EQ(box.SelBold(), std::nullopt);
    EXPECT_EQ(box.SelItalic(), true);
    EXPECT_EQ(box.SelFontSize(), 10);
}

TEST_F(CharacterFormat, AbsurdSizesAreRefused)
{
    box.setText(QStringLiteral("text"));
    select(0, 4);
    const double sizes[] = {0, -1, 1638.5, 1e300, std::nan(""), std::numeric_limits<double>::infinity()};
    for (const double size : sizes)
        EXPECT_EQ(errorOf([&] { box.setSelFontSize(size); }), ErrorNumber::InvalidPropertyValue) << size;
    EXPECT_EQ(box.SelFontSize(), 10);
    box.setSelFontSize(1638);
    EXPECT_EQ(box.SelFontSize(), 1638);
    EXPECT_EQ(errorOf([&] { box.setSelFontName({}); }), ErrorNumber::InvalidPropertyValue);
}

TEST_F(CharacterFormat, ADoubleOrWavyLineCountsAsUnderlined)
{
    box.setText(QStringLiteral("text"));
    QTextCharFormat wavy;
    wavy.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    select(0, 4);
    box.textCursor().mergeCharFormat(wavy);
    EXPECT_EQ(box.SelUnderline(), true);
    box.setSelUnderline(false);
    EXPECT_EQ(box.SelUnderline(), false);
}

TEST_F(CharacterFormat, SelectedCellsOfATableAreOnlyThose)
{
    box.setText({});
    const auto *table = box.textCursor().insertTable(2, 2);
    for (int cell = 0; cell < 4; ++cell)
        table->cellAt(cell / 2, cell % 2).firstCursorPosition().insertText(QStringLiteral("x"));
    QTextCursor column = table->cellAt(0, 0).firstCursorPosition();
    column.setPosition(table->cellAt(1, 0).lastCursorPosition().position(), QTextCursor::KeepAnchor);
    box.setTextCursor(column);
    box.setSelBold(true);
    EXPECT_EQ(box.SelBold(), true);
    QTextCursor row = table->cellAt(0, 0).firstCursorPosition();
    row.setPosition(table->cellAt(0, 1).lastCursorPosition().position(), QTextCursor::KeepAnchor);
    box.setTextCursor(row);
    EXPECT_EQ(box.SelBold(), std::nullopt);
}
