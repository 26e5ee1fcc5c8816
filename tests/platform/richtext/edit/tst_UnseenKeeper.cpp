#include "RichTextFixture.h"
#include "RowName.h"
#include "TextReplacement.h"

#include <QMap>
#include <QRandomGenerator>
#include <numeric>

namespace {

/// Where the pieces of \a document belong, by their bytes and text.
QMap<QByteArray, int> placesIn(const QTextDocument &document)
{
    QMap<QByteArray, int> places;
    const QHash<const Unseen::Piece *, int> all = Unseen::places(document);
    for (auto it = all.cbegin(); it != all.cend(); ++it) {
        QByteArray name = it.key()->before;
        for (const Unseen::Run &run : it.key()->text)
            name += run.text.toLatin1();
        places[name] = it.value();
    }
    return places;
}

struct DeletionRow
{
    const char *name;
    const char *body;
    int first; ///< of what is deleted
    int end;
    const char *text;    ///< that is left
    const char *written; ///< empty where the hidden text or the mark goes too
};

class UnseenKept : public RichTextFixture, public testing::WithParamInterface<DeletionRow>
{
protected:
    void load(const QByteArray &body)
    {
        box.setTextRTF("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Liberation Sans;}}" + body + '}');
    }
    void erase(int first, int end)
    {
        select(first, end);
        QTest::keyClick(&box, Qt::Key_Delete);
    }
    bool isWritten(const QByteArray &words) const { return box.TextRTF().contains(words); }
    QByteArray without(const QByteArray &words) const { return box.TextRTF().replace(words, {}); }
};

} // namespace

TEST_P(UnseenKept, WhereTheTextBehindIsDeleted)
{
    const DeletionRow &row = GetParam();
    load(row.body);
    const QByteArray before = box.TextRTF();
    erase(row.first, row.end);
    EXPECT_EQ(box.Text(), QString::fromLatin1(row.text));
    const QByteArray after = box.TextRTF();
    EXPECT_TRUE(after.contains(row.written)) << after.constData();
    for (const char *words : {"hid", "bkmkstart", "bkmkend"})
        EXPECT_EQ(after.count(words), QByteArray(row.written).count(words)) << after.constData();
    box.undo();
    EXPECT_EQ(box.TextRTF(), before);
    box.redo();
    EXPECT_EQ(box.TextRTF(), after);
    EXPECT_FALSE(box.document()->isRedoAvailable());
    box.undo();
    EXPECT_EQ(box.TextRTF(), before);
    EXPECT_FALSE(box.document()->isUndoAvailable());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, UnseenKept,
    testing::Values(
        DeletionRow{"OneCharacterOfMore", "a{\\v hid}bc", 1, 2, "ac", "a{\\v{hid}}c"},
        DeletionRow{"TheRun", "a{\\v hid}b\\b c", 1, 2, "ac", "a{\\v{hid}}{\\b c"},
        DeletionRow{"TheRunBetweenTwoOfOneLook", "\\b a\\b0{\\v hid}b\\b c", 1, 2, "ac",
                    "{\\b a}{\\v{hid}}{\\b c"},
        DeletionRow{"TheLastOfAParagraph", "a{\\v hid}b\\par c", 1, 2, "a\nc", "a{\\v{hid}}\\par"},
        DeletionRow{"AParagraphsEnd", "a{\\v hid}\\par b", 1, 2, "ab", "a{\\v{hid}}b"},
        DeletionRow{"AnEndBehindAnother", "a\\par b{\\v hid}\\par c", 1, 2, "ab\nc", "ab{\\v{hid}}\\par"},
        DeletionRow{"BeforeMore", "a{\\v hid}b{\\b{\\v hid2}c}d", 1, 2, "acd",
                    "{\\v{hid}}{\\v{\\b hid2}}{\\b c"},
        DeletionRow{"TextOnBothSides", "ab{\\v hid}cd", 1, 3, "ad", ""},
        DeletionRow{"TheTextOfABookmark", "a{\\*\\bkmkstart x}b{\\*\\bkmkend x}\\b c", 1, 2, "ac",
                    "{\\*\\bkmkstart x}{\\*\\bkmkend x}{\\b c"},
        DeletionRow{"ABookmark", "ab{\\*\\bkmkstart x}c{\\*\\bkmkend x}de", 1, 4, "ae", ""},
        DeletionRow{"TheBeginningOfABookmarkWhoseRunIsLeft", "ab{\\*\\bkmkstart x}cd\\b e{\\*\\bkmkend x}f",
                    1, 3, "adef", "a{\\*\\bkmkstart x}d{\\b e}{\\*\\bkmkend x}{\\b f"},
        DeletionRow{"TheBeginningOfABookmark", "ab{\\*\\bkmkstart\\bkmkcolf1 x}cd\\b e{\\*\\bkmkend x}f", 1,
                    4, "aef", "{\\*\\bkmkstart\\bkmkcolf1 x}{\\b e}{\\*\\bkmkend x}{\\b f"}),
    RowName());

TEST_F(UnseenKept, WhereTheTextBehindIsReplaced)
{
    load("a{\\v hid}b\\b c");
    select(1, 2);
    QTest::keyClick(&box, Qt::Key_X);
    EXPECT_EQ(box.Text(), QStringLiteral("axc"));
    EXPECT_TRUE(isWritten("{\\v{hid}}"));
    EXPECT_EQ(box.TextRTF().count("hid"), 1);
}

/// What is before the selection stays.
TEST_F(UnseenKept, WhereTheTextBehindIsCutAndPasted)
{
    load("a{\\v hid}b{\\v two}\\b c\\b0 d");
    select(1, 3);
    QTest::keyClick(&box, Qt::Key_X, Qt::ControlModifier);
    EXPECT_TRUE(isWritten("a{\\v{hid}}d"));
    EXPECT_FALSE(isWritten("two"));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), QStringLiteral("abcd"));
    EXPECT_EQ(box.TextRTF().count("hid"), 1);
    EXPECT_EQ(box.TextRTF().count("two"), 1);
}

TEST_F(UnseenKept, WhenFormatsOfAllTheTextChange)
{
    load("ab{\\v hid}cd{\\*\\bkmkstart x}ef{\\*\\bkmkend x}g");
    select(0, 7);
    box.setSelBold(true);
    box.setSelAlignment(2);
    box.setSelIndent(720);
    box.setSelBullet(true);
    QInputMethodEvent composing(QStringLiteral("x"), {});
    QCoreApplication::sendEvent(&box, &composing);
    QInputMethodEvent composed;
    QCoreApplication::sendEvent(&box, &composed);
    for (const char *words : {"hid", "bkmkstart x", "bkmkend x"})
        EXPECT_EQ(box.TextRTF().count(words), 1) << words;
}

TEST_F(UnseenKept, WhenSeveralPlacesChangeAtOnce)
{
    load("a foo{\\v hid}x {\\*\\bkmkstart x}foo{\\*\\bkmkend x}y foo");
    QTextCursor edit(box.document());
    edit.beginEditBlock();
    for (const int position : {12, 7, 2}) {
        edit.setPosition(position);
        edit.setPosition(position + 3, QTextCursor::KeepAnchor);
        edit.removeSelectedText();
    }
    edit.endEditBlock();
    EXPECT_EQ(box.Text(), QStringLiteral("a x y "));
    EXPECT_TRUE(isWritten("a {\\v{hid}}x {\\*\\bkmkstart x}{\\*\\bkmkend x}y ")) << box.TextRTF().constData();
}

/// As dragging does.
TEST_F(UnseenKept, WhatIsMovedInOneStepIsThereOnce)
{
    load("ab{\\v hid}\\b c\\b0 d");
    select(1, 3);
    const QByteArray moved = box.SelRTF();
    QTextCursor edit = box.textCursor();
    edit.beginEditBlock();
    edit.removeSelectedText();
    box.setSelStart(2);
    box.setSelRTF(moved);
    edit.endEditBlock();
    EXPECT_EQ(box.Text(), QStringLiteral("adbc"));
    EXPECT_TRUE(isWritten("adb{\\v{hid}}{\\b c"));
    EXPECT_EQ(box.TextRTF().count("hid"), 1);
}

TEST_F(UnseenKept, WithoutASelectionInOneUndoStep)
{
    const QByteArray body = "a{\\v hid}b\\b c";
    for (const auto &[key, caret] : {std::pair(Qt::Key_Delete, 1), std::pair(Qt::Key_Backspace, 2)}) {
        load(body);
        const QByteArray before = box.TextRTF();
        box.setSelStart(caret);
        QTest::keyClick(&box, key);
        EXPECT_TRUE(isWritten("{\\v{hid}}{\\b c"));
        box.undo();
        EXPECT_EQ(box.TextRTF(), before);
        EXPECT_FALSE(box.document()->isUndoAvailable());
    }
}

TEST_F(UnseenKept, AtTheFirstParagraphsEndWhenItsDeletionIsUndone)
{
    for (const int end : {4, 5}) {
        load("ab{\\v hid}\\par cd");
        erase(1, end);
        box.undo();
        EXPECT_EQ(box.TextRTF().count("hid"), 1) << end;
    }
}

TEST_F(UnseenKept, AllOfItGoesWithAllOfTheText)
{
    load("a{\\v hid}b\\par c{\\v two}d");
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    EXPECT_FALSE(isWritten("hid"));
    EXPECT_FALSE(isWritten("two"));
}

TEST_F(UnseenKept, ThousandsOfBookmarks)
{
    QByteArray body;
    for (int i = 0; i < 5000; ++i)
        body +=
            "{\\*\\bkmkstart n" + QByteArray::number(i) + "}a{\\*\\bkmkend n" + QByteArray::number(i) + "}b";
    load(body);
    erase(1, 9999);
    EXPECT_EQ(box.Text(), QStringLiteral("ab"));
    EXPECT_EQ(box.TextRTF().count("bkmkstart"), 2); // the first and the last reach out of what was deleted
    EXPECT_EQ(box.TextRTF().count("bkmkend"), 2);
}

/// By another edit, which ends what could be done again.
TEST_F(UnseenKept, AfterAnUndoneStep)
{
    load("a{\\v hid}b\\b c");
    erase(2, 3);
    box.undo();
    erase(1, 2);
    EXPECT_EQ(box.Text(), QStringLiteral("ac"));
    EXPECT_TRUE(isWritten("{\\v{hid}}{\\b c"));
}

TEST_F(UnseenKept, AlsoWhatWasPasted)
{
    load("x");
    select(0, 1);
    box.setSelRTF("{\\rtf1 a{\\v hid}b\\b c}");
    erase(1, 2);
    EXPECT_TRUE(isWritten("hid"));
}

TEST_F(UnseenKept, BeforeTheFirstOfTheRunsThatWereOne)
{
    load("a{\\v hid}bcd");
    select(2, 3);
    box.setSelBold(true);
    EXPECT_TRUE(isWritten("a{\\v{hid}}b{\\b c}d"));
}

TEST_F(UnseenKept, TheEndOfASplitParagraph)
{
    load("ab{\\v hid}\\par c");
    box.setSelStart(1);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_TRUE(isWritten("a\\par\nb{\\v{hid}}\\par")) << box.TextRTF().constData();
    EXPECT_EQ(box.TextRTF().count("hid"), 1);
    box.undo();
    EXPECT_TRUE(isWritten("ab{\\v{hid}}\\par\nc"));
    EXPECT_EQ(box.TextRTF().count("hid"), 1);
}

TEST_F(UnseenKept, OneChangeIsReported)
{
    load("a{\\v hid}b\\b c");
    QSignalSpy changes(&box, &RichTextBox::Change);
    erase(1, 2);
    EXPECT_EQ(changes.size(), 1);
}

/// Splitting a paragraph and typing copy formats, and what is not shown with them.
TEST_F(UnseenKept, NoCopyComesBackWhenItIsDeleted)
{
    load("ab\\par cd{\\v hid}\\par ef");
    box.setSelStart(4);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.Text(), QStringLiteral("ab\nc\nd\nef"));
    erase(5, 8);
    EXPECT_EQ(box.Text(), QStringLiteral("ab\nc\nf"));
    EXPECT_FALSE(isWritten("hid")) << box.TextRTF().constData();

    load("a{\\v hid}bcd");
    box.setSelStart(2);
    box.setSelBold(true);
    QTest::keyClick(&box, Qt::Key_X);
    select(2, 3);
    const QTextCharFormat copied = box.textCursor().charFormat();
    QTextCursor typed(box.document());
    typed.setPosition(4);
    typed.insertText(QStringLiteral("y"), copied);
    EXPECT_EQ(box.Text(), QStringLiteral("abxcyd"));
    erase(0, 3);
    EXPECT_EQ(box.Text(), QStringLiteral("cyd"));
    EXPECT_FALSE(isWritten("hid")) << box.TextRTF().constData();
}

TEST_F(UnseenKept, TheFirstParagraphsEndLosesWhatIsDeleted)
{
    load("ab{\\v hid}\\par cd");
    erase(2, 3); // the end itself
    EXPECT_TRUE(isWritten("ab{\\v{hid}}cd"));
    erase(1, 3);
    EXPECT_EQ(box.Text(), QStringLiteral("ad"));
    EXPECT_FALSE(isWritten("hid")) << box.TextRTF().constData();
    box.undo();
    EXPECT_TRUE(isWritten("ab{\\v{hid}}cd"));
    box.undo();
    EXPECT_TRUE(isWritten("ab{\\v{hid}}\\par"));
    box.redo();
    EXPECT_TRUE(isWritten("ab{\\v{hid}}cd"));
    box.redo();
    EXPECT_FALSE(isWritten("hid"));
}

TEST_F(UnseenKept, TheFirstParagraphsEndLosesItAgainWhenThatIsRedone)
{
    load("ab{\\v hid}\\par cd");
    erase(1, 5);
    EXPECT_FALSE(isWritten("hid"));
    box.undo();
    EXPECT_TRUE(isWritten("ab{\\v{hid}}\\par"));
    box.redo();
    EXPECT_FALSE(isWritten("hid"));
    erase(0, 1);
    EXPECT_EQ(box.Text(), QString());
    EXPECT_FALSE(isWritten("hid"));
}

TEST_F(UnseenKept, WhereReplacingShortensTheTextBefore)
{
    load("one two{\\v hid}\\par one two three{\\v hidden}\\par one");
    QTextCursor edit(box.document());
    edit.beginEditBlock();
    TextReplacement::replaceEach(edit, {0, 6, 18}, 3, QStringLiteral("1"));
    edit.endEditBlock();
    EXPECT_EQ(box.Text(), QStringLiteral("1 two\n1 two three\n1"));
    EXPECT_TRUE(isWritten("two{\\v{hid}}\\par")) << box.TextRTF().constData();
    EXPECT_TRUE(isWritten("three{\\v{hidden}}\\par")) << box.TextRTF().constData();
}

TEST_F(UnseenKept, WithoutASelectionByEachKeyThatDeletes)
{
    struct
    {
        const char *body;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int caret;
        const char *written;
    } const rows[] = {
        {"a{\\v hid}b\\b c", Qt::Key_Delete, Qt::KeypadModifier, 1, "{\\v{hid}}{\\b c"},
        {"a{\\v hid}b\\b c", Qt::Key_Backspace, Qt::ShiftModifier, 2, "{\\v{hid}}{\\b c"},
        {"x\\par a{\\v hid}\\par b", Qt::Key_Backspace, Qt::NoModifier, 4, "a{\\v{hid}}b"},
    };
    for (const auto &row : rows) {
        load(row.body);
        const QByteArray before = box.TextRTF();
        box.setSelStart(row.caret);
        QTest::keyClick(&box, row.key, row.modifiers);
        EXPECT_TRUE(isWritten(row.written)) << box.TextRTF().constData();
        box.undo();
        EXPECT_EQ(box.TextRTF(), before);
        EXPECT_FALSE(box.document()->isUndoAvailable()) << row.body;
    }
}

TEST_F(UnseenKept, BackspaceTakesAsMuchAsElsewhere)
{
    for (const auto &[body, left] :
         {std::pair("a{\\v hid}b\\u769 ?", "ab"), std::pair("ab{\\v hid}\\u-10179 ?\\u-8694 ?", "ab")}) {
        load(body);
        box.moveCursor(QTextCursor::End);
        QTest::keyClick(&box, Qt::Key_Backspace);
        EXPECT_EQ(box.Text().trimmed(), QString::fromLatin1(left));
        EXPECT_TRUE(isWritten("{\\v{hid}}")) << body;
    }
}

/// Neither in a run that begins with something, nor where something was once.
TEST_F(UnseenKept, BackspacesInARowAreOneUndoStep)
{
    load("a{\\v hid}bcdef");
    box.setSelStart(6);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.document()->availableUndoSteps(), 1);

    load("a{\\v hid}bcdef");
    erase(0, 3);
    const int steps = box.document()->availableUndoSteps();
    box.moveCursor(QTextCursor::End);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.Text(), QString(u'd'));
    EXPECT_EQ(box.document()->availableUndoSteps(), steps + 1);
}

TEST_F(UnseenKept, BackspaceThatEndsAListOrAnIndentDeletesNothing)
{
    load("a{\\v hid}\\par b");
    box.setSelStart(2);
    QTextCursor cursor = box.textCursor();
    QTextBlockFormat indented;
    indented.setIndent(1);
    cursor.mergeBlockFormat(indented);
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.Text(), QStringLiteral("a\nb"));
    box.setSelBullet(true);
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.Text(), QStringLiteral("a\nb"));
    EXPECT_TRUE(isWritten("a{\\v{hid}}\\par"));
}

/// Their signs are no characters, and with one selected Qt would empty the cells.
TEST_F(UnseenKept, AKeyBesideATableLeavesItsCellsAlone)
{
    load("x\\par a{\\v hid}\\par\\trowd\\cellx2000\\cellx4000\\intbl b{\\v two}\\cell c{\\v "
         "three}\\cell\\row\\pard d");
    const QByteArray before = box.TextRTF();
    const QString text = box.Text();
    for (const auto &[key, caret] :
         {std::pair(Qt::Key_Delete, 3), std::pair(Qt::Key_Backspace, 4), std::pair(Qt::Key_Delete, 5),
          std::pair(Qt::Key_Backspace, 6), std::pair(Qt::Key_Delete, 7), std::pair(Qt::Key_Backspace, 8)}) {
        box.setSelStart(caret);
        QTest::keyClick(&box, key);
        EXPECT_EQ(box.Text(), text) << caret;
        EXPECT_EQ(box.TextRTF(), before) << caret;
        EXPECT_FALSE(box.textCursor().hasSelection()) << caret;
    }
}

TEST_F(UnseenKept, OfTwoThatAreEqualTheOneThatIsLostIsMoved)
{
    load("ab{\\v hid}\\b c\\b0 d{\\v hid}\\b e\\b0 fgh");
    select(1, 3);
    const QByteArray moved = box.SelRTF();
    ASSERT_EQ(moved.count("hid"), 1);
    QTextCursor edit = box.textCursor();
    edit.beginEditBlock();
    edit.removeSelectedText();
    edit.setPosition(2);
    edit.deleteChar();
    box.setSelStart(4);
    box.setSelRTF(moved);
    edit.endEditBlock();
    EXPECT_EQ(box.Text(), QStringLiteral("adfgbch"));
    EXPECT_TRUE(isWritten("ad{\\v{hid}}fgb{\\v{hid}}{\\b c}h")) << box.TextRTF().constData();
}

/// In the format of text that is moved, as replacing does it.
TEST_F(UnseenKept, OfTwoThatAreEqualTheOneThatIsMovedIsThereOnce)
{
    load("a{\\v hid}\\b b\\b0 c{\\v hid}\\i d\\i0 efg");
    QTextCursor edit(box.document());
    edit.setPosition(4);
    const QTextCharFormat format = edit.charFormat();
    edit.beginEditBlock();
    edit.deletePreviousChar();
    edit.setPosition(1);
    edit.deleteChar();
    edit.setPosition(4);
    edit.insertText(QStringLiteral("d"), format);
    edit.endEditBlock();
    EXPECT_EQ(box.Text(), QStringLiteral("acefdg"));
    EXPECT_TRUE(isWritten("a{\\v{hid}}cef{\\v{hid}}{\\i d}g")) << box.TextRTF().constData();
}

/// Typing at a paragraph's start copies the format of what is behind.
TEST_F(UnseenKept, BeforeWhatWasTypedBeforeIt)
{
    load("{\\v hid}Hello");
    box.setSelStart(0);
    QTest::keyClicks(&box, QStringLiteral("Oh "));
    erase(0, 5);
    EXPECT_EQ(box.Text(), QStringLiteral("llo"));
    EXPECT_TRUE(isWritten("{\\v{hid}}llo")) << box.TextRTF().constData();
}

TEST_F(UnseenKept, BeforeWhatWasTypedIntoAnEmptyParagraph)
{
    load("a\\par{\\v hid}\\par b");
    box.setSelStart(2);
    QTest::keyClick(&box, Qt::Key_X);
    erase(2, 4);
    EXPECT_EQ(box.Text(), QStringLiteral("a\nb"));
    EXPECT_TRUE(isWritten("{\\v{hid}}b")) << box.TextRTF().constData();
}

TEST_F(UnseenKept, AtAParagraphsEndAloneWhereItsTextWasSplit)
{
    load("a{\\v hid}bcd");
    box.setSelStart(2);
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Left);
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.Text(), QStringLiteral("a\ncd"));
    EXPECT_TRUE(isWritten("a{\\v{hid}}\\par")) << box.TextRTF().constData();
    erase(1, 2);
    EXPECT_TRUE(isWritten("a{\\v{hid}}cd")) << box.TextRTF().constData();
    box.undo();
    EXPECT_TRUE(isWritten("a{\\v{hid}}\\par"));
    box.undo();
    EXPECT_TRUE(isWritten("a{\\v{hid}}b\\par")) << box.TextRTF().constData();
}

TEST_F(UnseenKept, AtTheEndThatTakesThePlaceOfItsCharacter)
{
    load("a{\\v hid}bc");
    box.setSelStart(2);
    QTest::keyClick(&box, Qt::Key_Return);
    select(1, 2);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.Text(), QStringLiteral("a\n\nc"));
    EXPECT_FALSE(isWritten("{\\v{hid}}c")) << box.TextRTF().constData();
    EXPECT_EQ(box.TextRTF().count("hid"), 1);
    box.undo();
    EXPECT_TRUE(isWritten("a{\\v{hid}}b\\par"));
    erase(1, 2);
    EXPECT_TRUE(isWritten("a{\\v{hid}}\\par")) << box.TextRTF().constData();
}

TEST_F(UnseenKept, AtTheEndAgainWhenWhatWasTypedBeforeIsUndone)
{
    load("a\\par{\\v hid}\\par b");
    box.setSelStart(2);
    QTest::keyClick(&box, Qt::Key_X);
    box.undo();
    erase(2, 3);
    EXPECT_EQ(box.Text(), QStringLiteral("a\nb"));
    EXPECT_TRUE(isWritten("{\\v{hid}}b")) << box.TextRTF().constData();
}

/// Any edits: nothing is there twice, nothing goes but what was inside of what was deleted, and each step is
/// undone and redone to the same bytes.
TEST_F(UnseenKept, ThroughRandomEdits)
{
    const QByteArray body =
        "ab{\\v h0}c\\b d{\\v h1}e\\b0{\\*\\bkmkstart h2}f{\\v h3}\\par {\\v h4}gh{\\*\\bkmkend "
        "h2}i\\par{\\v h5}\\par jk\\i l{\\v h6}m\\i0 n{\\v h7}";
    QList<unsigned> seeds(100);
    std::iota(seeds.begin(), seeds.end(), 0);
    seeds += {509, 3997}; // of two ends that have copies the last counts, and text before both
    for (const unsigned seed : std::as_const(seeds)) {
        QRandomGenerator random(seed);
        load(body);
        QList<QByteArray> states{box.TextRTF()};
        QList<int> steps{box.document()->availableUndoSteps()};
        for (int i = 0; i < 12; ++i) {
            const int length = int(box.Text().size());
            const int first = random.bounded(length + 1);
            select(first, qMin(length, first + random.bounded(5)));
            const QMap<QByteArray, int> places = placesIn(*box.document());
            const QTextCursor selected = box.textCursor();
            const int from = selected.selectionStart();
            const int end = selected.selectionEnd();
            box.document()->setModified(false); // so that each edit is a step
            switch (random.bounded(5)) {
            case 0:
                box.textCursor().insertBlock();
                break;
            case 1:
                QTest::keyClick(&box, Qt::Key_X);
                break;
            case 2:
                QTest::keyClick(&box, Qt::Key_Backspace);
                break;
            default:
                QTest::keyClick(&box, Qt::Key_Delete);
            }
            const QMap<QByteArray, int> left = placesIn(*box.document());
            for (auto it = places.cbegin(); it != places.cend(); ++it)
                ASSERT_TRUE(left.contains(it.key()) || (it.value() > from && it.value() < end))
                    << seed << ' ' << i << it.key().constData();
            if (box.document()->availableUndoSteps() == steps.last())
                continue;
            states.append(box.TextRTF());
            steps.append(box.document()->availableUndoSteps());
            for (char number = '0'; number < '8'; ++number)
                ASSERT_LE(states.last().count(QByteArray("h") + number), number == '2' ? 2 : 1)
                    << seed << states.last().constData();
        }
        for (qsizetype i = states.size() - 1; i > 0; --i) {
            ASSERT_EQ(box.TextRTF(), states.at(i)) << seed << ' ' << i;
            box.undo();
        }
        ASSERT_EQ(box.TextRTF(), states.first()) << seed;
        for (qsizetype i = 1; i < states.size(); ++i) {
            box.document()->redo();
            ASSERT_EQ(box.TextRTF(), states.at(i)) << seed << ' ' << i;
        }
    }
}
