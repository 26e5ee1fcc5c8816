#include "FindWords.h"
#include "PrintQt.h"
#include "dlgFindReplace.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// The dialog over a window of its own, and what it asks for.
struct FindDialogTest : testing::Test
{
    QWidget owner;
    QPointer<dlgFindReplace> dialog;
    QList<FindRequest> requests;

    void open(const FindRequest &initial, bool replaces = true)
    {
        owner.show();
        dialog = new dlgFindReplace(initial, replaces, &owner);
        QObject::connect(dialog.data(), &dlgFindReplace::Request, &owner,
                         [this](const FindRequest &request) { requests.append(request); });
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.data()));
    }
    template<class Control>
    Control &control(const char *name) const
    {
        return *dialog->findChild<Control *>(latin(name));
    }
    QWidget &widget(const char *name) const { return control<QWidget>(name); }
    QString focus() const { return dialog->focusWidget()->objectName(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(dialog->focusWidget(), key, modifiers);
    }
    bool becomesChecked(const char *name) const
    {
        return QTest::qWaitFor([&] { return control<QAbstractButton>(name).isChecked(); });
    }
    /// What a key asked for, and nothing else.
    int askedBy(Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        requests.clear();
        key(pressed, modifiers);
        (void)QTest::qWaitFor([this] { return !requests.isEmpty(); }); // a button is seen to go down first
        return requests.size() == 1 ? requests.constFirst().flags : -1;
    }
};

} // namespace

TEST_F(FindDialogTest, TheReplaceFormHasAllItsControls)
{
    open({down, latin("one"), latin("two")});
    EXPECT_EQ(dialog->windowTitle(), latin("Replace"));
    EXPECT_EQ(control<QLineEdit>("txtFind").text(), latin("one"));
    EXPECT_EQ(control<QLineEdit>("txtFind").selectedText(), latin("one"));
    EXPECT_EQ(control<QLineEdit>("txtReplace").text(), latin("two"));
    for (const char *name : {"txtFind", "txtReplace", "chkWholeWord", "chkMatchCase", "optUp", "optDown",
                             "cmdFindNext", "cmdReplace", "cmdReplaceAll", "cmdCancel"})
        EXPECT_TRUE(widget(name).isVisible()) << name;
    EXPECT_FALSE(widget("cmdHelp").isVisible());
}

TEST_F(FindDialogTest, TheFindFormLacksTheReplaceRow)
{
    open({down, latin("one"), {}}, false);
    EXPECT_EQ(dialog->windowTitle(), latin("Find"));
    for (const char *name : {"lblReplace", "txtReplace", "cmdReplace", "cmdReplaceAll"})
        EXPECT_FALSE(widget(name).isVisible()) << name;
    for (const char *name : {"lblFind", "txtFind", "optUp", "cmdFindNext", "cmdCancel"})
        EXPECT_TRUE(widget(name).isVisible()) << name;
}

TEST_F(FindDialogTest, IsAModelessWindowAboveItsOwner)
{
    open({});
    EXPECT_TRUE(dialog->isWindow());
    EXPECT_FALSE(dialog->isModal());
    EXPECT_EQ(dialog->parentWidget(), &owner);
}

TEST_F(FindDialogTest, TheFlagsSetTheControlsAndComeBack)
{
    for (int flags = 0; flags < 8; ++flags) {
        open({flags, latin("x"), latin("y")});
        EXPECT_EQ(control<QRadioButton>("optDown").isChecked(), bool(flags & FindFlag::Down));
        EXPECT_EQ(control<QRadioButton>("optUp").isChecked(), !(flags & FindFlag::Down));
        EXPECT_EQ(control<QCheckBox>("chkWholeWord").isChecked(), bool(flags & FindFlag::WholeWord));
        EXPECT_EQ(control<QCheckBox>("chkMatchCase").isChecked(), bool(flags & FindFlag::MatchCase));
        requests.clear();
        control<QPushButton>("cmdFindNext").click();
        ASSERT_EQ(requests.size(), 1);
        EXPECT_EQ(requests.constFirst().flags, flags | FindFlag::FindNext);
        EXPECT_EQ(requests.constFirst().findText, latin("x"));
        EXPECT_EQ(requests.constFirst().replaceText, latin("y"));
        delete dialog;
    }
}

TEST_F(FindDialogTest, WhatIsChosenIsAskedFor)
{
    open({down, latin("x"), {}});
    control<QRadioButton>("optUp").click();
    control<QCheckBox>("chkWholeWord").click();
    control<QCheckBox>("chkMatchCase").click();
    control<QPushButton>("cmdReplace").click();
    EXPECT_EQ(requests.constLast().flags, FindFlag::Replace | FindFlag::WholeWord | FindFlag::MatchCase);
    control<QRadioButton>("optDown").click();
    control<QCheckBox>("chkWholeWord").click();
    control<QPushButton>("cmdReplaceAll").click();
    EXPECT_EQ(requests.constLast().flags, FindFlag::ReplaceAll | FindFlag::Down | FindFlag::MatchCase);
}

TEST_F(FindDialogTest, NothingIsSearchedForWithoutAFindText)
{
    open({down, {}, latin("y")});
    for (const char *name : {"cmdFindNext", "cmdReplace", "cmdReplaceAll"})
        EXPECT_FALSE(widget(name).isEnabled()) << name;
    key(Qt::Key_Return);
    EXPECT_TRUE(requests.isEmpty());
    QTest::keyClicks(&widget("txtFind"), latin("a"));
    for (const char *name : {"cmdFindNext", "cmdReplace", "cmdReplaceAll"})
        EXPECT_TRUE(widget(name).isEnabled()) << name;
    key(Qt::Key_Backspace);
    EXPECT_FALSE(widget("cmdFindNext").isEnabled());
}

TEST_F(FindDialogTest, ReturnFindsTheNext)
{
    open({down, latin("x"), {}});
    EXPECT_TRUE(control<QPushButton>("cmdFindNext").isDefault());
    EXPECT_EQ(askedBy(Qt::Key_Return), down | FindFlag::FindNext);
    widget("txtReplace").setFocus();
    EXPECT_EQ(askedBy(Qt::Key_Return), down | FindFlag::FindNext);
    widget("cmdReplaceAll").setFocus();
    EXPECT_EQ(askedBy(Qt::Key_Return), down | FindFlag::ReplaceAll);
}

TEST_F(FindDialogTest, EveryWayOfClosingIsReportedOnceAndDeletesIt)
{
    const std::function<void()> ways[] = {[this] { key(Qt::Key_Escape); },
                                          [this] { control<QPushButton>("cmdCancel").click(); },
                                          [this] { dialog->close(); }};
    for (const auto &leave : ways) {
        open({down, latin("x"), {}});
        requests.clear();
        leave();
        ASSERT_EQ(requests.size(), 1);
        EXPECT_EQ(requests.constFirst().flags, down | FindFlag::DialogTerm);
        QCoreApplication::processEvents();
        EXPECT_TRUE(dialog.isNull());
    }
}

TEST_F(FindDialogTest, EveryControlHasItsLetter)
{
    open({down, latin("x"), {}});
    key(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(focus(), latin("txtReplace"));
    key(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(focus(), latin("txtFind"));
    key(Qt::Key_W, Qt::AltModifier);
    EXPECT_TRUE(becomesChecked("chkWholeWord"));
    key(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(becomesChecked("chkMatchCase"));
    key(Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(becomesChecked("optUp"));
    key(Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(becomesChecked("optDown"));
    const int options = FindFlag::Down | FindFlag::WholeWord | FindFlag::MatchCase;
    EXPECT_EQ(askedBy(Qt::Key_F, Qt::AltModifier), options | FindFlag::FindNext);
    EXPECT_EQ(askedBy(Qt::Key_R, Qt::AltModifier), options | FindFlag::Replace);
    EXPECT_EQ(askedBy(Qt::Key_A, Qt::AltModifier), options | FindFlag::ReplaceAll);
}

TEST_F(FindDialogTest, TheTabKeyFollowsTheReadingOrder)
{
    open({down, latin("x"), {}});
    for (const char *name : {"txtFind", "txtReplace", "chkWholeWord", "chkMatchCase", "optDown",
                             "cmdFindNext", "cmdReplace", "cmdReplaceAll", "cmdCancel", "txtFind"}) {
        EXPECT_EQ(focus(), latin(name));
        key(Qt::Key_Tab);
    }
}

TEST_F(FindDialogTest, TheLabelsBelongToTheirFields)
{
    open({});
    EXPECT_EQ(control<QLabel>("lblFind").buddy(), &widget("txtFind"));
    EXPECT_EQ(control<QLabel>("lblReplace").buddy(), &widget("txtReplace"));
}

TEST_F(FindDialogTest, TextsEndAt1023Characters)
{
    open({down, QString(1024, u'a'), QString(2000, u'b')});
    EXPECT_EQ(control<QLineEdit>("txtFind").text(), QString(1023, u'a'));
    EXPECT_EQ(control<QLineEdit>("txtReplace").text(), QString(1023, u'b'));
    key(Qt::Key_End);
    QTest::keyClicks(&widget("txtFind"), latin("c"));
    EXPECT_EQ(control<QLineEdit>("txtFind").text(), QString(1023, u'a'));
}

TEST_F(FindDialogTest, LineEndsInTheTextsAreKept)
{
    open({down, latin("one\ntwo"), latin("a\nb")});
    control<QPushButton>("cmdReplace").click();
    EXPECT_EQ(requests.constFirst().findText, latin("one\ntwo"));
    EXPECT_EQ(requests.constFirst().replaceText, latin("a\nb"));
}

TEST_F(FindDialogTest, GrowsInWidthOnly)
{
    open({down, latin("x"), {}});
    const QSize before = dialog->size();
    dialog->resize(before.width() + 200, before.height() + 200);
    EXPECT_EQ(dialog->size(), QSize(before.width() + 200, before.height()));
    dialog->resize(10, 10);
    EXPECT_EQ(dialog->height(), before.height());
    EXPECT_GE(dialog->width(), widget("cmdCancel").geometry().right());
}

TEST_F(FindDialogTest, ALargerFontMakesItHigher)
{
    open({down, latin("x"), {}});
    const int before = dialog->height();
    QFont font = dialog->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    dialog->setFont(font);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->height() > before; }));
    EXPECT_EQ(dialog->height(), dialog->sizeHint().height());
}

TEST_F(FindDialogTest, TheHelpButtonComesWithItsFlag)
{
    open({down | FindFlag::ShowHelp, latin("x"), {}});
    ASSERT_TRUE(widget("cmdHelp").isVisible());
    EXPECT_EQ(askedBy(Qt::Key_H, Qt::AltModifier), down | FindFlag::ShowHelp);
    EXPECT_EQ(askedBy(Qt::Key_Return), down | FindFlag::ShowHelp | FindFlag::FindNext);
}
