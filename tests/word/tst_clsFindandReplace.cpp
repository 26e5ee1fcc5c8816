#include "DialogDriver.h"
#include "FindWords.h"
#include "LiteralLoop.h"
#include "Paths.h"
#include "PrintQt.h"
#include "RichTextBox.h"
#include "ScratchHome.h"
#include "clsFindandReplace.h"
#include "dlgFindReplace.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

namespace {

/// A window with a text, the object, and the events that it emits.
struct FindTest : testing::Test
{
    ScratchHome home;
    DialogDriver dialogs;
    QWidget window;
    RichTextBox box{&window};
    std::unique_ptr<clsFindandReplace> find = std::make_unique<clsFindandReplace>();
    QStringList events;
    bool cancelFound = false;
    bool cancelReplace = false;
    bool cancelReplaceAll = false;

    FindTest()
    {
        box.resize(400, 300);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        listen();
    }
    void listen()
    {
        QObject::connect(find.get(), &clsFindandReplace::FoundNext, &window,
                         [this](bool found, int position, const QString &text, bool &cancel) {
                             EXPECT_FALSE(cancel);
                             events += latin("FoundNext %1 %2 %3").arg(found).arg(position).arg(text);
                             cancel = cancelFound;
                         });
        QObject::connect(find.get(), &clsFindandReplace::BeforeReplace, &window,
                         [this](int position, const QString &text, const QString &by, bool &cancel) {
                             EXPECT_FALSE(cancel);
                             events += latin("BeforeReplace %1 %2 %3").arg(position).arg(text, by);
                             cancel = cancelReplace;
                         });
        QObject::connect(find.get(), &clsFindandReplace::BeforeReplaceAll, &window,
                         [this](const QString &text, const QString &by, bool &cancel) {
                             EXPECT_FALSE(cancel);
                             events += latin("BeforeReplaceAll %1 %2").arg(text, by);
                             cancel = cancelReplaceAll;
                         });
        QObject::connect(find.get(), &clsFindandReplace::Terminated, &window,
                         [this] { events += latin("Terminated"); });
        QObject::connect(find.get(), &clsFindandReplace::CommandDone, &window,
                         [this] { events += latin("CommandDone"); });
    }
    void select(int start, int length = 0)
    {
        box.setSelStart(start);
        box.setSelLength(length);
    }
    /// Opens over \a text with a selection.
    void open(const char *text, int start = 0, int length = 0)
    {
        box.setText(latin(text));
        select(start, length);
        ASSERT_TRUE(find->ShowReplace(box));
    }
    void ask(int flags, const char *text, const char *by = "")
    {
        events.clear();
        find->Messages_WMArrival({flags, latin(text), latin(by)});
    }
    void findNext(const char *text, int flags = down) { ask(flags | FindFlag::FindNext, text); }
    void replace(const char *text, const char *by, int flags = down)
    {
        ask(flags | FindFlag::Replace, text, by);
    }
    void replaceAll(const char *text, const char *by, int flags = down)
    {
        ask(flags | FindFlag::ReplaceAll, text, by);
    }
    void expectSearchComplete()
    {
        dialogs.expectBox(Paths::applicationTitle, latin("Search Complete."))
            .icon(QMessageBox::NoIcon)
            .buttons(QMessageBox::Ok);
    }
    std::pair<int, int> selection() const { return {box.SelStart(), box.SelStart() + box.SelLength()}; }
    template<class Control>
    Control &control(const char *name) const
    {
        return *find->hWndDialog()->findChild<Control *>(latin(name));
    }
};

using Selection = std::pair<int, int>;

} // namespace

// ---- Opening and closing the dialog

TEST_F(FindTest, AnEmptyTextOpensNothing)
{
    EXPECT_FALSE(find->ShowReplace(box));
    EXPECT_FALSE(find->ShowFind(box));
    EXPECT_EQ(find->hWndDialog(), nullptr);
}

TEST_F(FindTest, OpensWithTheWordAtTheCaret)
{
    open("one two three", 5);
    EXPECT_EQ(control<QLineEdit>("txtFind").text(), latin("two"));
    EXPECT_EQ(selection(), Selection(4, 7));
    EXPECT_EQ(find->hWndDialog()->windowTitle(), latin("Replace"));
    EXPECT_EQ(find->hWndDialog()->parentWidget(), &window);
}

TEST_F(FindTest, OpensWithTheSelectionUnchanged)
{
    open("one  two three", 3, 6);
    EXPECT_EQ(control<QLineEdit>("txtFind").text(), latin("two"));
    EXPECT_EQ(selection(), Selection(3, 9));
}

TEST_F(FindTest, TheFindFormOpensAsWell)
{
    box.setText(latin("one"));
    ASSERT_TRUE(find->ShowFind(box));
    EXPECT_EQ(find->hWndDialog()->windowTitle(), latin("Find"));
}

TEST_F(FindTest, TheFocusStaysInTheText)
{
    open("one");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(find->hWndDialog()));
    EXPECT_TRUE(window.isActiveWindow());
    EXPECT_TRUE(box.hasFocus());
}

TEST_F(FindTest, TheFlagsAreRawValues)
{
    EXPECT_EQ(find->UpDown(), 1);
    EXPECT_EQ(find->WholeWord(), 0);
    EXPECT_EQ(find->MatchCase(), 0);
    EXPECT_EQ(find->ShowHelp(), 0);
    find->setUpDown(0);
    find->setWholeWord(2);
    find->setMatchCase(4);
    find->setShowHelp(128);
    EXPECT_EQ(find->UpDown() | find->WholeWord() | find->MatchCase() | find->ShowHelp(), 134);
    open("one");
    EXPECT_TRUE(control<QRadioButton>("optUp").isChecked());
    EXPECT_TRUE(control<QCheckBox>("chkWholeWord").isChecked());
    EXPECT_TRUE(control<QCheckBox>("chkMatchCase").isChecked());
    EXPECT_TRUE(control<QWidget>("cmdHelp").isVisible());
}

TEST_F(FindTest, WhatTheUserChoseIsForgottenButTheReplaceTextIsNot)
{
    open("one two", 0, 3);
    control<QCheckBox>("chkMatchCase").click();
    control<QLineEdit>("txtReplace").setText(latin("kept"));
    control<QAbstractButton>("cmdFindNext").click();
    ASSERT_TRUE(find->ShowReplace(box));
    EXPECT_FALSE(control<QCheckBox>("chkMatchCase").isChecked());
    EXPECT_EQ(control<QLineEdit>("txtReplace").text(), latin("kept"));
    EXPECT_EQ(find->MatchCase(), 0);
}

TEST_F(FindTest, ASecondOpeningClosesTheFirstDialog)
{
    open("one");
    const QPointer<dlgFindReplace> first = find->hWndDialog();
    events.clear();
    ASSERT_TRUE(find->ShowFind(box));
    EXPECT_EQ(events, QStringList(latin("Terminated")));
    EXPECT_NE(find->hWndDialog(), first.data());
    QCoreApplication::processEvents();
    EXPECT_TRUE(first.isNull());
}

TEST_F(FindTest, AnOpeningThatFailsClosesTheFirstDialogAllTheSame)
{
    open("one");
    box.setText({});
    EXPECT_FALSE(find->ShowReplace(box));
    EXPECT_EQ(find->hWndDialog(), nullptr);
}

TEST_F(FindTest, TerminateClosesTheDialog)
{
    open("one");
    find->Terminate();
    EXPECT_EQ(find->hWndDialog(), nullptr);
    EXPECT_EQ(events, QStringList(latin("Terminated")));
    find->Terminate();
    EXPECT_EQ(events.size(), 1);
}

TEST_F(FindTest, TheUserClosesTheDialog)
{
    open("one");
    QTest::keyClick(find->hWndDialog(), Qt::Key_Escape);
    EXPECT_EQ(find->hWndDialog(), nullptr);
    EXPECT_EQ(events, QStringList(latin("Terminated")));
}

TEST_F(FindTest, TheDialogIsDeletedWithTheObjectAndNoEventIsEmitted)
{
    open("one");
    const QPointer<dlgFindReplace> dialog = find->hWndDialog();
    find.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(dialog.isNull());
    EXPECT_TRUE(events.isEmpty());
}

// ---- Requests

TEST_F(FindTest, FindNextSelectsAndEmitsItsEvents)
{
    open("one two one", 0, 3);
    findNext("one");
    EXPECT_EQ(selection(), Selection(8, 11));
    EXPECT_EQ(events, QStringList({latin("FoundNext 1 9 one"), latin("CommandDone")}));
    findNext("one"); // round to the beginning, silently
    EXPECT_EQ(selection(), Selection(0, 3));
    findNext("one", up);
    EXPECT_EQ(selection(), Selection(8, 11));
}

TEST_F(FindTest, TheCaseCountsWhereItIsAskedFor)
{
    open("one two ONE one", 0, 3);
    findNext("one", down);
    EXPECT_EQ(selection(), Selection(8, 11));
    select(0);
    findNext("ONE", down | matchCase);
    EXPECT_EQ(selection(), Selection(8, 11));
    expectSearchComplete();
    findNext("One", down | matchCase);
}

TEST_F(FindTest, FindNextGivesTheFocusToTheText)
{
    open("one two one", 0, 3);
    find->hWndDialog()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(find->hWndDialog()));
    control<QAbstractButton>("cmdFindNext").click();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(box.hasFocus());
    EXPECT_TRUE(find->hWndDialog()->isVisible());
}

TEST_F(FindTest, NoHitAnywhereShowsTheBox)
{
    open("one two", 0, 3);
    expectSearchComplete();
    findNext("three");
    EXPECT_EQ(events, QStringList({latin("FoundNext 0 0 three"), latin("CommandDone")}));
    EXPECT_EQ(selection(), Selection(0, 3));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(box.hasFocus());
}

TEST_F(FindTest, AnEmptyFindTextIsNotFound)
{
    open("one");
    expectSearchComplete();
    findNext("");
}

TEST_F(FindTest, ACancelledSearchShowsNoBox)
{
    open("one");
    cancelFound = true;
    findNext("three");
    EXPECT_EQ(events, QStringList({latin("FoundNext 0 0 three"), latin("CommandDone")}));
}

TEST_F(FindTest, ARefusedHitCountsAsFoundAndSelectsNothing)
{
    open("cats cat", 4);
    select(0);
    findNext("cat", down | wholeWord);
    EXPECT_EQ(events, QStringList({latin("FoundNext 1 0 cat"), latin("CommandDone")}));
    EXPECT_EQ(selection(), Selection(3, 3));
    findNext("cat", down | wholeWord);
    EXPECT_EQ(selection(), Selection(5, 8));
}

TEST_F(FindTest, TypingIsNotSeenByTheSearch)
{
    open("one two", 0, 3);
    select(0);
    QTest::keyClicks(&box, latin("12"));
    findNext("two"); // is two characters further back by now
    EXPECT_EQ(selection(), Selection(4, 7));
    EXPECT_EQ(box.SelText(), latin("e t"));
}

TEST_F(FindTest, ATextThatHasShrunkIsNoHarm)
{
    open("one two", 0, 3);
    box.setText(latin("o"));
    findNext("two");
    EXPECT_EQ(selection(), Selection(1, 1));
    select(1);
    findNext("one", up);
    EXPECT_EQ(selection(), Selection(0, 1));
}

TEST_F(FindTest, ReplaceReplacesAndFindsTheNext)
{
    open("one two one", 0, 3);
    replace("one", "1");
    EXPECT_EQ(box.Text(), latin("1 two one"));
    EXPECT_EQ(selection(), Selection(6, 9));
    EXPECT_EQ(events, QStringList({latin("BeforeReplace 1 one 1"), latin("FoundNext 1 7 one"),
                                   latin("CommandDone")}));
    expectSearchComplete();
    replace("one", "1");
    EXPECT_EQ(box.Text(), latin("1 two 1"));
    EXPECT_EQ(selection(), Selection(7, 7));
}

TEST_F(FindTest, ReplaceTakesWhateverIsSelected)
{
    open("one two one", 4, 3);
    replace("one", "1");
    EXPECT_EQ(box.Text(), latin("one 1 one"));
    EXPECT_EQ(events.constFirst(), latin("BeforeReplace 5 one 1"));
}

TEST_F(FindTest, ReplaceReadsTheTextAgain)
{
    open("one two", 0, 3);
    select(0);
    QTest::keyClicks(&box, latin("12"));
    select(0, 1);
    replace("two", "x"); // "x2one two"
    EXPECT_EQ(box.SelText(), latin("two"));
}

TEST_F(FindTest, ReplaceWithNothingSelectedNeitherReplacesNorReports)
{
    open("one two", 0, 3);
    select(2);
    replace("nowhere", "x");
    EXPECT_EQ(box.Text(), latin("one two"));
    EXPECT_EQ(events, QStringList(latin("CommandDone")));
    EXPECT_NE(find->hWndDialog(), nullptr);
}

TEST_F(FindTest, ACancelledReplaceSearchesAllTheSame)
{
    open("one two one", 0, 3);
    cancelReplace = true;
    replace("one", "1");
    EXPECT_EQ(box.Text(), latin("one two one"));
    EXPECT_EQ(selection(), Selection(8, 11));
    EXPECT_EQ(events.value(1), latin("FoundNext 1 9 one"));
}

TEST_F(FindTest, ReplaceStopsWhenNothingIsLeft)
{
    open("one", 0, 3);
    replace("one", "");
    EXPECT_EQ(box.Text(), QString());
    EXPECT_EQ(events, QStringList(latin("BeforeReplace 1 one ")));
}

TEST_F(FindTest, ReplaceAllEmitsOneEventAndShowsNoBox)
{
    open("one two one", 0, 3);
    replaceAll("one", "1");
    EXPECT_EQ(box.Text(), latin("1 two 1"));
    EXPECT_EQ(selection(), Selection(7, 7));
    EXPECT_EQ(events, QStringList(latin("BeforeReplaceAll one 1")));
    EXPECT_TRUE(box.hasFocus());
    replaceAll("one", "1"); // nothing is selected
    EXPECT_EQ(box.Text(), latin("1 two 1"));
}

TEST_F(FindTest, ReplaceAllWithoutAHitShowsNothing)
{
    open("one two", 0, 3);
    replaceAll("nowhere", "x"); // the selection is replaced all the same
    EXPECT_EQ(box.Text(), latin("x two"));
}

TEST_F(FindTest, ReplaceAllMayLeaveNothing)
{
    open("aaa", 0, 3);
    replaceAll("a", "");
    EXPECT_EQ(box.Text(), QString());
}

TEST_F(FindTest, ACancelledReplaceAllReplacesNothing)
{
    open("one two one", 0, 3);
    cancelReplaceAll = true;
    replaceAll("one", "1");
    EXPECT_EQ(box.Text(), latin("one two one"));
    EXPECT_TRUE(box.hasFocus());
}

TEST_F(FindTest, ReplaceAllReadsTheTextAgain)
{
    open("one two one", 0, 3);
    replaceAll("one", "longer");
    findNext("two");
    EXPECT_EQ(box.SelText(), latin("two"));
}

TEST_F(FindTest, TheHelpBitSwallowsEveryRequestButTheClosing)
{
    find->setShowHelp(FindFlag::ShowHelp);
    open("one two one", 0, 3);
    events.clear();
    control<QAbstractButton>("cmdHelp").click();
    control<QAbstractButton>("cmdFindNext").click();
    control<QAbstractButton>("cmdReplace").click();
    control<QAbstractButton>("cmdReplaceAll").click();
    EXPECT_TRUE(events.isEmpty());
    EXPECT_EQ(box.Text(), latin("one two one"));
    control<QAbstractButton>("cmdCancel").click();
    EXPECT_EQ(events, QStringList(latin("Terminated")));
}

TEST_F(FindTest, AWordWithNoneOfTheBitsEndsAtOnce)
{
    open("one one", 0, 3);
    ask(down | matchCase | wholeWord, "one", "x");
    EXPECT_TRUE(events.isEmpty());
    EXPECT_EQ(selection(), Selection(0, 3));
}

TEST_F(FindTest, ALockedTextIsSearchedButNotChanged)
{
    open("one two one", 0, 3);
    box.setLocked(true);
    replace("one", "1");
    EXPECT_EQ(box.Text(), latin("one two one"));
    EXPECT_EQ(selection(), Selection(8, 11));
    replaceAll("one", "1");
    EXPECT_EQ(box.Text(), latin("one two one"));
}

TEST_F(FindTest, AControlThatIsGoneIsLeftAlone)
{
    auto *other = new RichTextBox(&window);
    other->setText(latin("one"));
    ASSERT_TRUE(find->ShowReplace(*other));
    delete other;
    findNext("one");
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(FindTest, TheLongestFindTextIsFound)
{
    const QString word(1023, u'w');
    box.setText(latin("a ") + word + latin("w ") + word);
    select(2);
    ASSERT_TRUE(find->ShowReplace(box));
    EXPECT_EQ(selection(), Selection(2, 1026));
    EXPECT_EQ(control<QLineEdit>("txtFind").text(), word);
    control<QCheckBox>("chkWholeWord").click();
    control<QAbstractButton>("cmdFindNext").click();
    EXPECT_EQ(box.SelText(), word);
    EXPECT_EQ(box.SelStart(), 1027);
}
