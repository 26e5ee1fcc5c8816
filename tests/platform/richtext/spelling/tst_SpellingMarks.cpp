#include "BackgroundTask.h"
#include "PaintedArea.h"
#include "PrintQt.h"
#include "RichTextFixture.h"
#include "ScratchDictionary.h"
#include "Spellers.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QScreen>
#include <algorithm>

namespace {

/// The number of French as spoken in Monaco, of which no machine has a dictionary.
constexpr char language[] = "\\lang6156";

class SpellingMarksTest : public RichTextFixture
{
protected:
    ScratchHome home;

    void SetUp() override
    {
        addDictionary(home, QStringLiteral("fr_MC"), "UTF-8", {"maison", "rouge", "la"});
        box.setSpellingMarks(true);
        open("la maison rouge");
        show();
        if (!Spellers::shared().of(QStringLiteral("fr_MC"))) {
            ASSERT_TRUE(QSignalSpy(&Spellers::shared(), &Spellers::changed).wait(20000));
        }
    }
    void open(const QByteArray &text)
    {
        box.setTextRTF(QByteArray("{\\rtf1\\ansi ") + language + ' ' + text + '}');
    }
    QStringList marked()
    {
        box.viewport()->repaint();
        QStringList words;
        for (const QTextEdit::ExtraSelection &mark : box.extraSelections()) {
            if (mark.format.underlineStyle() == QTextCharFormat::SpellCheckUnderline)
                words.append(mark.cursor.selectedText());
        }
        return words;
    }
    QMenu &openMenu(int position)
    {
        const QPoint point = pointAt(position);
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, box.viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(box.viewport(), &event);
        return *box.findChild<QMenu *>();
    }
    static bool waitForSuggestions()
    {
        return QTest::qWaitFor([] { return !Spellers::shared().findChild<BackgroundTask *>(); }, 20000);
    }
    static void close(QMenu &menu)
    {
        menu.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Waits for it; null when it does not come.
    static QAction *item(const QMenu &menu, const QString &text)
    {
        const auto find = [&] {
            const QList<QAction *> items = menu.actions();
            const auto found = std::ranges::find(items, text, &QAction::text);
            return found == items.cend() ? nullptr : *found;
        };
        return QTest::qWaitFor([&] { return find() != nullptr; }, 20000) ? find() : nullptr;
    }
};

} // namespace

TEST_F(SpellingMarksTest, UnknownWordsAreUnderlinedAndTheDocumentStays)
{
    open("la masion rouge, la maison roug");
    const QByteArray before = box.TextRTF();
    EXPECT_EQ(marked(), QStringList({QStringLiteral("masion"), QStringLiteral("roug")}));
    EXPECT_EQ(box.TextRTF(), before);
    EXPECT_FALSE(box.document()->isUndoAvailable());
}

TEST_F(SpellingMarksTest, TextThatNamesNoLanguageIsInTheDocuments)
{
    box.setTextRTF("{\\rtf1\\ansi\\deflang6156 la masion {\\lang1036 roug} roug}");
    EXPECT_EQ(marked(), QStringList({QStringLiteral("masion"), QStringLiteral("roug")}));
}

TEST_F(SpellingMarksTest, TheMarksFollowEditsAndAnotherDocument)
{
    open("la masion");
    EXPECT_EQ(marked().size(), 1);
    select(3, 9);
    box.setSelText(QStringLiteral("maison"));
    box.setSelStart(0);
    EXPECT_EQ(marked(), QStringList());
    for (const QByteArray text : {"la roug", "roug la"}) {
        open(text);
        EXPECT_EQ(marked(), QStringList(QStringLiteral("roug"))) << text.constData();
    }
}

TEST_F(SpellingMarksTest, AddressesNumbersAndSignsArePassedOver)
{
    open("la2 12 x http://masion.example/roug masion@roug.example ...");
    EXPECT_EQ(marked(), QStringList());
}

TEST_F(SpellingMarksTest, TextOfALanguageWithoutDictionaryIsPassedOver)
{
    open("masion {\\lang1024 masion} {\\lang1125 masion} roug");
    EXPECT_EQ(marked(), QStringList({QStringLiteral("masion"), QStringLiteral("roug")}));
}

TEST_F(SpellingMarksTest, TheWordThatIsTypedIsLeftInPeace)
{
    box.setSelStart(15);
    QTest::keyClicks(&box, QStringLiteral(" ro"));
    EXPECT_EQ(marked(), QStringList());
    QTest::keyClicks(&box, QStringLiteral(" la"));
    EXPECT_EQ(marked(), QStringList(QStringLiteral("ro")));
}

TEST_F(SpellingMarksTest, ALockedTextIsNotMarked)
{
    open("masion la");
    box.setLocked(true);
    EXPECT_EQ(marked(), QStringList());
}

TEST_F(SpellingMarksTest, MarksGoWhenTheyAreSwitchedOff)
{
    open("masion la");
    ASSERT_EQ(marked().size(), 1);
    box.setSpellingMarks(false);
    EXPECT_EQ(marked(), QStringList());
}

TEST_F(SpellingMarksTest, TheContextMenuOffersBetterWordsFirst)
{
    open("la {\\b masion} rouge");
    QMenu &menu = openMenu(5);
    QAction *word = item(menu, QStringLiteral("maison"));
    ASSERT_TRUE(word);
    EXPECT_EQ(menu.actions().at(0), word);
    EXPECT_TRUE(menu.actions().at(1)->isSeparator());
    word->trigger();
    close(menu);
    EXPECT_EQ(box.Text(), QStringLiteral("la maison rouge"));
    select(3, 9);
    EXPECT_EQ(box.SelBold(), true);
    box.undo();
    EXPECT_EQ(box.Text(), QStringLiteral("la masion rouge"));
}

TEST_F(SpellingMarksTest, ABetterWordForAWordThatHasChangedMeanwhileIsLeft)
{
    open("la masion rouge");
    QMenu &menu = openMenu(5);
    QAction *word = item(menu, QStringLiteral("maison"));
    ASSERT_TRUE(word);
    box.setText(QStringLiteral("something quite else"));
    word->trigger();
    close(menu);
    EXPECT_EQ(box.Text(), QStringLiteral("something quite else"));
}

/// It opens before they are found.
TEST_F(SpellingMarksTest, WhatIsPointedAtInTheContextMenuStaysWhereItIs)
{
    open("la masion rouge");
    QMenu &menu = openMenu(5);
    const QList<QAction *> before = menu.actions();
    menu.setActiveAction(before.last());
    QAction *word = item(menu, QStringLiteral("maison"));
    ASSERT_TRUE(word);
    EXPECT_EQ(menu.actions().first(before.size()), before);
    EXPECT_EQ(menu.actions().last(), word);
    close(menu);
}

TEST_F(SpellingMarksTest, TheContextMenuStaysUnderThePointerThoughThereIsNoRoomForMore)
{
    open("la masion rouge");
    QMenu &menu = openMenu(5);
    const QRect screen = menu.screen()->availableGeometry();
    menu.move(menu.x(), screen.bottom() + 1 - menu.height());
    menu.setActiveAction(menu.actions().last());
    const QPoint before = menu.pos();
    ASSERT_TRUE(waitForSuggestions());
    EXPECT_EQ(menu.pos(), before);
    EXPECT_EQ(menu.geometry().bottom(), screen.bottom());
    close(menu);
}

/// Words that are asked for while the dictionary is busy pass as known.
TEST_F(SpellingMarksTest, AllViewsAskAgainWhenTheDictionaryIsFree)
{
    RichTextBox other;
    other.setSpellingMarks(true);
    other.resize(200, 100);
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    PaintedArea painted(*other.viewport());
    open("la masion rouge");
    QMenu &menu = openMenu(5);
    painted.covers({});
    ASSERT_TRUE(waitForSuggestions());
    EXPECT_TRUE(painted.covers(other.viewport()->rect()));
    close(menu);
}

TEST_F(SpellingMarksTest, AContextMenuThatGrowsStaysOnTheScreen)
{
    open("la masion rouge");
    QMenu &menu = openMenu(5);
    const QRect screen = menu.screen()->availableGeometry();
    menu.move(menu.x(), screen.bottom() - menu.height());
    ASSERT_TRUE(item(menu, QStringLiteral("maison")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return menu.geometry().bottom() <= screen.bottom(); }));
    close(menu);
}

TEST_F(SpellingMarksTest, AContextMenuMayCloseBeforeTheyAreFound)
{
    open("la masion rouge");
    close(openMenu(5));
    EXPECT_TRUE(waitForSuggestions());
    EXPECT_EQ(marked(), QStringList(QStringLiteral("masion")));
}

TEST_F(SpellingMarksTest, TheContextMenuOfAKnownWordIsTheUsualOne)
{
    ASSERT_TRUE(waitForSuggestions()); // of what was asked before
    close(openMenu(5));
    EXPECT_FALSE(Spellers::shared().findChild<BackgroundTask *>());
}
